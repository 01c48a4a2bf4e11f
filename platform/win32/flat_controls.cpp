#include "platform/win32/flat_controls.h"

#include <algorithm>

namespace tv::win32 {
namespace {

constexpr const char* kControlProperty = "TarvelonControl";
constexpr const char* kFormProperty = "TarvelonForm";
constexpr const char* kOldProcProperty = "TarvelonOldProc";
constexpr COLORREF kFace = RGB(126, 150, 186);     // mid steel blue: black and white captions both read
constexpr COLORREF kFaceEdge = RGB(84, 104, 138);
constexpr int kBoxSize = 13;

ui::Control* controlOf(HWND window) { return static_cast<ui::Control*>(::GetPropA(window, kControlProperty)); }
ui::Form* formOf(HWND window) { return static_cast<ui::Form*>(::GetPropA(window, kFormProperty)); }

bool isFlat(ui::Kind kind) {
    return kind == ui::Kind::FlatButton || kind == ui::Kind::Image || kind == ui::Kind::FlatCheck;
}

// The flat controls' own look under the mouse; false when the message is not theirs.
bool followFlat(HWND window, ui::Control& control, UINT message, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE: {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
        ::TrackMouseEvent(&track);
        control.userHover(static_cast<short>(LOWORD(lParam)) > kBoxSize + 2);
        return true;
    }
    case WM_MOUSELEAVE: control.downStatus(); return true;
    case WM_LBUTTONDOWN: control.userPress(true); return true;
    case WM_LBUTTONUP: control.userPress(false); return true;
    case WM_SETCURSOR:
        if (control.kind() != ui::Kind::FlatCheck && control.enabled()) {
            ::SetCursor(::LoadCursorA(nullptr, IDC_HAND));
            return true;
        }
        return false;
    default: return false;
    }
}

LRESULT CALLBACK followingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    ui::Control* control = controlOf(window);
    ui::Form* form = formOf(window);
    const auto oldProc = reinterpret_cast<WNDPROC>(::GetPropA(window, kOldProcProperty));
    if (control && form) {
        if (isFlat(control->kind()) && followFlat(window, *control, message, lParam) && message == WM_SETCURSOR)
            return TRUE;
        switch (message) {
        case WM_MOUSEMOVE: control->userMouseMove(); break;
        case WM_LBUTTONDOWN: control->userMouseDown(); break;
        case WM_LBUTTONUP: control->userMouseUp(); break;
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: form->userKeyDown(static_cast<int>(wParam)); break;
        case WM_KEYUP:
        case WM_SYSKEYUP: form->userKeyUp(static_cast<int>(wParam)); break;
        case WM_NCDESTROY:
            ::RemovePropA(window, kControlProperty);
            ::RemovePropA(window, kFormProperty);
            ::RemovePropA(window, kOldProcProperty);
            ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(oldProc));
            break;
        default: break;
        }
    }
    return ::CallWindowProcA(oldProc, window, message, wParam, lParam);
}

// Captions are drawn as the system's labels draw them: "&&" shows as one "&"
// ("Scan && Update Warnings"), a single "&" underlines the letter behind it.
void drawCaption(HDC dc, const std::string& caption, RECT area, COLORREF colour, UINT format) {
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, colour);
    ::DrawTextA(dc, caption.c_str(), -1, &area, format);
}

}  // namespace

void drawFlatButton(const DRAWITEMSTRUCT& item, const ui::Control& control, HFONT font, ColourBrushes& brushes) {
    RECT face = item.rcItem;
    ::FillRect(item.hDC, &face, brushes.brush(kFace));
    ::FrameRect(item.hDC, &face, brushes.brush(kFaceEdge));
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const COLORREF colour = pressed || !control.enabled() ? ui::kWhite : control.foreColour();
    HGDIOBJ old = ::SelectObject(item.hDC, font);
    drawCaption(item.hDC, control.caption(), face, colour, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    ::SelectObject(item.hDC, old);
    if (item.itemState & ODS_FOCUS) {
        ::InflateRect(&face, -3, -3);
        ::DrawFocusRect(item.hDC, &face);
    }
}

void drawFlatCheck(const DRAWITEMSTRUCT& item, const ui::Control& control, const CaptionFonts& fonts) {
    RECT area = item.rcItem;
    ::FillRect(item.hDC, &area, ::GetSysColorBrush(COLOR_BTNFACE));
    const int top = area.top + (area.bottom - area.top - kBoxSize) / 2;
    RECT box{area.left, top, area.left + kBoxSize, top + kBoxSize};
    UINT state = DFCS_BUTTONCHECK | DFCS_FLAT;
    if (control.value()) state |= DFCS_CHECKED;
    if (!control.enabled()) state |= DFCS_INACTIVE;
    ::DrawFrameControl(item.hDC, &box, DFC_BUTTON, state);

    RECT text{box.right + 5, area.top, area.right, area.bottom};
    HGDIOBJ old = ::SelectObject(item.hDC, control.underlined() ? fonts.underlined : fonts.plain);
    const COLORREF colour = control.enabled() ? control.foreColour() : ::GetSysColor(COLOR_GRAYTEXT);
    RECT measured = text;
    ::DrawTextA(item.hDC, control.caption().c_str(), -1, &measured, DT_CALCRECT | DT_SINGLELINE);
    drawCaption(item.hDC, control.caption(), text, colour, DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    ::SelectObject(item.hDC, old);
    if ((item.itemState & ODS_FOCUS) && !control.caption().empty()) {
        RECT focus{text.left - 1, text.top + 1, std::min(measured.right + 1, text.right), text.bottom - 1};
        ::DrawFocusRect(item.hDC, &focus);
    }
}

void followInput(HWND window, ui::Control& control, ui::Form& form) {
    ::SetPropA(window, kControlProperty, &control);
    ::SetPropA(window, kFormProperty, &form);
    const LONG_PTR oldProc = ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(followingProc));
    ::SetPropA(window, kOldProcProperty, reinterpret_cast<HANDLE>(oldProc));
}

}  // namespace tv::win32
