// Shows forms of the logical model as real windows: one top-level window per
// form, one child window per control, frames as containers. Property changes of
// the model are mirrored into the windows; clicks, edits, selections, timer ticks
// and the close box come back as the model's user events.
//
// Each window is laid out at the scale of its monitor from the forms' 96-DPI
// design, and laid out again when it moves to a monitor of another scale.
//
// Every control window carries its caption as window text and its name in the
// window property "TarvelonName" (a global atom), so that screen readers and
// other programs can find it.
#pragma once

#include <map>
#include <memory>
#include <vector>

#include "platform/form.h"
#include "platform/win32/flat_controls.h"
#include "platform/win32/win32_base.h"

namespace tv::win32 {

inline constexpr const char* kNameProperty = "TarvelonName";

class Win32Renderer final : public ui::Renderer {
public:
    explicit Win32Renderer(HINSTANCE instance);
    ~Win32Renderer() override;

    void attach(ui::Form& form) override;

    struct FormWindow;  // the real windows of one form

private:
    // The dialog font at one scale, made when a window first needs it.
    const CaptionFonts& fontsFor(int dpi);

    HINSTANCE instance_;
    std::map<int, CaptionFonts> fonts_;  // by dots per inch
    std::vector<std::unique_ptr<FormWindow>> windows_;
};

}  // namespace tv::win32
