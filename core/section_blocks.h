// A baseline held in memory: nine blocks, one per file-type section, each
// running from its "[NAME]" line up to and including its "NULL*E" line, with the
// section names beside them. Entry lines read "<file name>=<value>*E".
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/baseline_block.h"

namespace tv {

inline constexpr int kSectionCount = 9;

struct SectionBlocks {
    std::array<BaselineBlock, kSectionCount> text;  // block n at index n - 1
    std::array<std::string, kSectionCount> name;    // without brackets

    void clear() {
        text = {};
        name = {};
    }
};

// Number (1 to 9) of the first section whose name equals `name` after
// upper-casing both, or 0 when none does.
int findSectionNumber(const SectionBlocks& blocks, std::string_view name);

// Stores `key` with `value` (which already ends in "*E") in the block of
// `section`. A key that is not yet in the block lands ahead of the block's
// "NULL*E" line; a present key has its value replaced in place. The presence
// test is exact, the replacements are not: a key in another case becomes a
// second line, and a key that only begins a longer stored key changes nothing.
// False when no loaded section has that name.
bool writeEntryToBlocks(SectionBlocks& blocks, std::string_view section, std::string_view key,
                        std::string_view value);

}  // namespace tv
