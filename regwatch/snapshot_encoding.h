// How a registry value goes into a line of the snapshot Data\Registry.dat,
// a profile file: the line's key (the value's name) and its text (the
// value's stored text). Ordinary names and texts are written as they are;
// those the profile format would break or bend (line breaks, an "=" or a
// leading "[" or ";" in a key, white space at an end, characters the code
// page cannot spell) are escaped, and texts too long for a line are kept as
// their digest, so that every value has a line of its own that reads back
// to exactly that value.
//
// Escaped keys and texts begin with "%": "%" becomes "%25", "=" "%3D", a
// control character "%0D" and so on, a character of UTF-16 that the code page
// cannot spell "%u4E2D"; a blank at the end "%20". Names that begin with "%"
// are escaped themselves, so that no plain name is ever read as an escaped one.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace tv {

// The longest text a snapshot line holds as it is; a longer one is kept as
// "%%SHA1:" and the digest of its escaped form, and is compared in full so.
inline constexpr std::size_t kSnapshotTextChars = 1024;

// The key of a value's line: a plain name as it is; the key's default value
// (no name) by its stored text with every "=" made "-", as a person reads
// it; anything else escaped.
std::string snapshotKey(const RegText& name, const RegText& storedText);

// The text of a value's line: a plain stored text as it is (" (value)"),
// others escaped behind " %" or, too long, as their digest.
std::string snapshotText(const RegText& storedText);

// What an escaped key or text stands for: a name, or a stored text. A
// spelled one comes back in `text`, one of UTF-16 in `exact` alone. Nothing
// for a plain form or a digest.
std::optional<RegText> nameOfSnapshotKey(std::string_view key);
std::optional<RegText> storedTextOfSnapshotText(std::string_view text);

// A name as a message shows it: control characters as "%0D" and the like,
// so that a name cannot lay out the message it stands in.
std::string shownName(const RegText& name);

}  // namespace tv
