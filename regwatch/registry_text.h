// Registry values as the program writes them down: one value folded into
// text by its type, its snapshot line (key and stored text), and the rows
// and tree nodes of the RegWatch page. The forms are part of what the
// snapshot holds, so a changed form would report every value as modified.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace tv {

namespace regtype {
inline constexpr std::uint32_t Sz = 1;
inline constexpr std::uint32_t Binary = 3;
}  // namespace regtype

// What a value query into a buffer of blanks gives as text: a string's
// first size - 1 characters; binary data's first size - 1 bytes as
// hexadecimal numbers, each followed by a blank and padded to two digits only
// when it reads as a number ("05", but "A"); any other type the whole buffer
// as it stands, NULs and untouched blanks kept.
std::string renderRegistryValue(std::uint32_t type, std::string_view buffer, std::uint32_t size);

// A value read in full, however long, as text: short ones exactly as from a
// query into 256 blanks. A string the code page cannot spell keeps its exact
// form beside, cut the same way (a string's last character dropped).
RegText registryValueText(const RegValue& value);

// The value "%1" %*, the usual content of a shell\open\command key; it is
// never watched. The test is exact.
bool isDefaultOpenCommand(std::string_view value);

// A blank, "(", the value, ")": the form a value takes in the snapshot.
std::string storedTextOf(std::string_view value);
RegText storedTextOf(const RegText& value);
// The text in front of its first NUL.
std::string cutAtNul(std::string_view text);
RegText cutAtNul(const RegText& text);
// Whether a value's stored text differs from its snapshot entry: both trimmed
// of blanks at their ends, then compared exactly.
bool storedTextChanged(std::string_view storedText, std::string_view entry);

enum class EntryCheck : std::int16_t { Unchanged = 0, New = 1, Modified = 2 };

inline constexpr const char* kWarningsHeading = "New and Modified Registry Entry Warnings";
inline constexpr const char* kNoWarnings = "*No new or modified Registry Entries*";

// The part of a key path behind its last backslash ("Run", "command").
std::string keyTail(std::string_view keyPath);
// A warning: root text, "|Loaded in ", the key tail, "\", the treated name,
// the stored text and " New Entry!" or " Entry Modified!".
std::string warningRow(std::string_view rootText, std::string_view tail, std::string_view name,
                       std::string_view storedText, EntryCheck result);

// A value's tree node: keyed "#", its location's place in the group, the
// other view's suffix ("/32") and the stored text; shown as the name as the
// registry has it and the stored text.
std::string valueNodeKey(int groupIndex, std::string_view viewSuffix, std::string_view storedText);

}  // namespace tv
