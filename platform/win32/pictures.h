// The program's own pictures, drawn with the system's drawing calls at 96 DPI
// into an image control's area. Each has a name; the model names the picture
// an image shows.
#pragma once

#include <string>

#include "platform/win32/win32_base.h"

namespace tv::win32 {

// Draws the picture called `name` into the item's area; false when the program
// has no picture of that name.
bool drawPicture(const DRAWITEMSTRUCT& item, const std::string& name);

}  // namespace tv::win32
