// The blank baseline of a folder: a walk that sorts the folder's names into the
// nine sections by their last four characters, and the data file that lists
// them all with the value "NULL" for the scan to fill in.
#pragma once

#include <array>
#include <string>
#include <string_view>

#include "core/app_context.h"
#include "core/section_blocks.h"

namespace tv {

// Per section, the names found, each followed by a comma.
using SectionNameLists = std::array<std::string, kSectionCount>;

// 1 to 9 by the name's last four characters (".DLL" ... ".SCR", any case), 0 for none.
int sectionOfName(std::string_view name);

// The blank data file: the header and an empty line, then per section its head,
// a "name=NULL*E" line per name, and "NULL*E". A comma inside a name splits it
// in two, as the lists are cut at commas.
std::string blankDataFileText(const SectionNameLists& lists);

// Lists one level of `folder` (ending in a backslash); folders with a matching
// name count like files. Lets pending messages run once per entry other than
// "." and "..".
SectionNameLists walkFolder(AppContext& ctx, const std::string& folder);

}  // namespace tv
