// The comma lists of the settings file ("settings", "settings2") as rows of
// flat check boxes: read onto the boxes, and written back from them.
#pragma once

#include <span>
#include <string>

#include "platform/controls.h"

namespace tv::ui {

// Sets each box from its position of the list: any number other than 0 ticks
// it. A shorter list leaves the remaining boxes as they are, positions beyond
// the boxes are ignored. Stops at the first position that is no number and
// gives false; the boxes before it keep what they were given.
bool applyFlagList(const std::string& list, std::span<Control* const> boxes);

// The boxes' values joined by commas, without blanks: "1,0,0,1".
std::string joinValues(std::span<Control* const> boxes);

}  // namespace tv::ui
