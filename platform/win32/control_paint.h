// Drawing that the system's controls do not do by themselves: the colours a
// control was given, check boxes in colours of their own, and the items of a
// check list (a box and a text per row).
#pragma once

#include <cstdint>
#include <unordered_map>

#include "platform/controls.h"
#include "platform/win32/display_scale.h"
#include "platform/win32/win32_base.h"

namespace tv::win32 {

// One solid brush per colour, kept for the life of the renderer.
class ColourBrushes {
public:
    ColourBrushes() = default;
    ~ColourBrushes();
    ColourBrushes(const ColourBrushes&) = delete;
    ColourBrushes& operator=(const ColourBrushes&) = delete;
    HBRUSH brush(std::uint32_t colour);

private:
    std::unordered_map<std::uint32_t, HBRUSH> brushes_;
};

// The answer to a colour message for `control`: its text and background
// colours on `dc` and the brush of its background. Null when the control has
// the system's colours, so that the system answers.
HBRUSH paintColours(HDC dc, const ui::Control& control, ColourBrushes& brushes);

// Plain check boxes given colours of their own are drawn here as owner-drawn
// buttons: a check box drawn by a visual style shows its text in the style's
// colour whatever the colour messages answer, so those colours would be lost.
bool hasOwnColours(const ui::Control& control);
void drawColouredCheckBox(const DRAWITEMSTRUCT& item, const ui::Control& control, HFONT font, ColourBrushes& brushes,
                          Scale scale);

// Check lists: each row is a check box drawn beside the item's text; a row's
// tick is its selection in a multiple-selection list.
inline constexpr int kCheckListRowHeight = 18;  // at 96 DPI
void drawCheckListRow(const DRAWITEMSTRUCT& item, const ui::Control& control, Scale scale);

}  // namespace tv::win32
