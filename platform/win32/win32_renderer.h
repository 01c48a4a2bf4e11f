// Shows forms of the logical model as real windows: one top-level window per
// form, one child window per control, frames as containers. Property changes of
// the model are mirrored into the windows; clicks, edits, selections, timer ticks
// and the close box come back as the model's user events.
//
// Every control window carries its caption as window text and its name in the
// window property "TarvelonName" (a global atom), so that screen readers and
// other programs can find it.
#pragma once

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
    HINSTANCE instance_;
    CaptionFonts fonts_;
    std::vector<std::unique_ptr<FormWindow>> windows_;
};

}  // namespace tv::win32
