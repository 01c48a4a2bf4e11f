// The display scale. Every window is designed in pixels at 96 dots per inch
// (`ui::Bounds`); the renderer draws it at the scale of the monitor it stands
// on: its layout, its fonts and the program's own drawing grow with the
// monitor's dots per inch, and follow the window to a monitor of another scale.
#pragma once

#include "platform/controls.h"
#include "platform/win32/win32_base.h"

namespace tv::win32 {

inline constexpr int kDesignDpi = 96;
inline constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED, Windows 8.1 and later

// Tells the system, before the first window, that the program draws at the
// monitor's scale itself: per monitor (Windows 10's second kind where it has
// it, else Windows 8.1's), or at the system's scale on Vista and 7. Older
// systems ask nothing: they never stretch a program's windows.
void declareDpiAwareness();

// The dots per inch of the monitor a window stands on; the system's where the
// system knows no other.
int windowDpi(HWND window);
int systemDpi();

// The lengths of the 96-DPI design at one scale.
struct Scale {
    int dpi = kDesignDpi;
    int px(int designPixels) const { return ::MulDiv(designPixels, dpi, kDesignDpi); }
    // Edges scaled one by one, so that controls that touch in the design touch.
    RECT rect(const ui::Bounds& b) const {
        return {px(b.left), px(b.top), px(b.left + b.width), px(b.top + b.height)};
    }
};

// The window's outer rectangle for a client area of `client`, at the scale
// of its monitor (its frame, caption and borders included).
RECT frameFor(RECT client, DWORD style, DWORD exStyle, int dpi);

}  // namespace tv::win32
