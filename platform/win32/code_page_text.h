// Text between the system's 8-bit code page, in which the program names its
// files, keys and values, and UTF-16, in which the Windows NT family holds
// them and its wide calls take them.
#pragma once

#include <string>
#include <string_view>

namespace tv::win32 {

std::string codePageText(std::u16string_view units);
std::u16string utf16Text(std::string_view text);
std::wstring wideText(std::string_view text);  // the same, as the COM and wide calls take it

// Whether `spelling` reads back as exactly `units`: not where the code page
// wrote "?" for a letter it lacks, or a look-alike ("i" for a dotless i).
bool spellsBack(std::string_view spelling, std::u16string_view units);

}  // namespace tv::win32
