// The values of the autostart places watched after the seventeen, as text:
// read in full and shown as the system holds them. Some hold several
// entries, each a program or DLL of its own: BootExecute and the LSA
// packages (lists of strings), AppInit_DLLs (names apart by blanks or
// commas). A change of such a value is told entry by entry, so that the
// entry added or removed is named and scanned, not the list's first one.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tv {

enum class EntrySplit {
    Whole,         // one entry: the value itself
    StringList,    // a list of strings, shown joined by ", " (see stringListText)
    BlankOrComma,  // one string, its entries apart by blanks or commas
};

// A list of strings (each ended by a NUL, the list by an empty one) as one
// text: the strings joined by ", ". Bytes behind the list's end are ignored.
std::string stringListText(std::string_view data);

// A value of any type as text: a string up to its first NUL (an expandable
// one unexpanded), a list of strings as above, a number in decimal, any
// other data as its bytes in two hexadecimal digits each, apart by blanks.
std::string placeValueText(std::uint32_t type, std::string_view data);

// The entries of a value's text, in their order; none for an empty list.
std::vector<std::string> valueEntries(std::string_view text, EntrySplit split);

struct EntryChanges {
    std::vector<std::string> added;    // in the new text's order
    std::vector<std::string> removed;  // in the old text's order
};

// What changed between two texts of one value, entry by entry, exactly
// (case counts). An entry listed twice counts twice.
EntryChanges entryChanges(std::string_view before, std::string_view now, EntrySplit split);

}  // namespace tv
