// The program's flat controls drawn by the renderer: buttons as a plain face
// with their caption, check boxes as a box and a caption that reacts to the
// mouse. Both are owner-drawn buttons. Every control's window is subclassed so
// that the mouse's movements and the keys reach the model.
#pragma once

#include "platform/controls.h"
#include "platform/form.h"
#include "platform/win32/control_paint.h"
#include "platform/win32/display_scale.h"
#include "platform/win32/win32_base.h"

namespace tv::win32 {

// Fonts of the flat checks' captions: plain, and underlined under the mouse.
struct CaptionFonts {
    HFONT plain = nullptr;
    HFONT underlined = nullptr;
};

// Each draws at the scale of its window.
void drawFlatButton(const DRAWITEMSTRUCT& item, const ui::Control& control, HFONT font, ColourBrushes& brushes,
                    Scale scale);
void drawFlatCheck(const DRAWITEMSTRUCT& item, const ui::Control& control, const CaptionFonts& fonts, Scale scale);
// A pressable label: its text as a label shows it, in its colours and font,
// with the focus drawn around it.
void drawPressableLabel(const DRAWITEMSTRUCT& item, const ui::Control& control, const CaptionFonts& fonts,
                        ColourBrushes& brushes);

// Hooks the control's window: the mouse moving, leaving, going down and up
// are told to `control` (userMouseMove, userMouseDown, userMouseUp, and on
// flat controls userHover, downStatus, userPress, with the hand cursor); keys
// going down and up are told to `form`.
void followInput(HWND window, ui::Control& control, ui::Form& form);

}  // namespace tv::win32
