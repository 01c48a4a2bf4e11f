// The program's own pictures, drawn with the system's drawing calls into an
// image control's area, at the scale of its window. Each has a name; the model names the picture
// an image shows.
#pragma once

#include <string>

#include "platform/win32/display_scale.h"

namespace tv::win32 {

// Draws the picture called `name` into the item's area; false when the program
// has no picture of that name.
bool drawPicture(const DRAWITEMSTRUCT& item, const std::string& name, Scale scale);

}  // namespace tv::win32
