// The look-up and the entry writer of a baseline block as plain text searches.
// These define what a block answers; the indexed block gives the same answers in
// constant time and falls back on these for shapes the index does not cover.
#pragma once

#include <string>
#include <string_view>

namespace tv {

// The value of `key`: the text between the first CR LF + key + "=" (found without
// regard to case) and the next "*E" CR LF, untrimmed; empty when either is missing.
std::string literalEntry(std::string_view block, std::string_view key);

// The block after storing `key` with `value` (which already ends in "*E"): an
// absent key (exact test, no "=") lands ahead of every CR LF "NULL*E" CR LF; a
// present key has every CR LF key "=" old "*E" CR LF replaced, without regard to case.
std::string literalWrite(std::string_view block, std::string_view key, std::string_view value);

}  // namespace tv
