// Text routines with the semantics the whole program relies on: positions count
// from 1, a "not found" position is 0, case-blind comparison folds the letters of
// the system's 8-bit code page, and trimming removes blanks only (never tabs or
// line ends). Texts are bytes; a NUL byte is an ordinary character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

enum class Compare { Exact, IgnoreCase };

// The letter case of one byte of the 8-bit code page.
char foldCase(char c);
char upperChar(char c);
// foldCase as a table by byte value, for loops over many bytes.
const unsigned char* foldTable();

std::string upperCase(std::string_view text);
std::string lowerCase(std::string_view text);
bool sameText(std::string_view a, std::string_view b);  // case-blind equality

// Position (from 1) of `find` in `text`, searching from position `start`.
// 0 when absent, when `start` lies beyond the text or is below 1, or when the
// text is empty. An empty `find` is found at `start`.
std::size_t inStr(std::size_t start, std::string_view text, std::string_view find,
                  Compare how = Compare::Exact);

// `count` characters from position `start` (from 1); fewer when the text ends.
std::string midText(std::string_view text, std::size_t start,
                    std::size_t count = std::string_view::npos);
std::string leftText(std::string_view text, std::size_t count);
std::string rightText(std::string_view text, std::size_t count);

std::string trimBlanks(std::string_view text);

// Every non-overlapping `find`, left to right, replaced by `with`.
// An empty `find` leaves the text as it is.
std::string replaceText(std::string_view text, std::string_view find, std::string_view with,
                        Compare how = Compare::Exact);

// Parts between the separators. An empty text gives no parts at all.
std::vector<std::string> splitText(std::string_view text, std::string_view separator);

// The text between `left` (searched from `start`) and the next `right` after it,
// both found without regard to case. Empty when `left` is absent; empty ("nothing")
// as well when `right` is missing behind it.
std::string getBetween(std::string_view text, std::size_t start, std::string_view left,
                       std::string_view right);

// Raises ("ABC") or lowers ("CBA") every character code by 21, but only when
// `apply` is set; otherwise the text passes unchanged.
std::string shiftText(std::string_view mode, std::string_view text, bool apply = false);

// Adds one backslash when the text does not already end in one.
std::string withTrailingBackslash(std::string_view path);

// The path with its last three characters (all of a shorter one) replaced by
// `ending`: how a data file names its backup ("bak") and its companions.
std::string withLastThree(std::string_view path, std::string_view ending);

}  // namespace tv
