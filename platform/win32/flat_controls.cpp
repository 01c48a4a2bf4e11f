#include "platform/win32/flat_controls.h"

#include <algorithm>
#include <unordered_map>

namespace tv::win32 {
namespace {

constexpr COLORREF kFace = RGB(126, 150, 186);     // mid steel blue: black and white captions both read
constexpr COLORREF kFaceEdge = RGB(84, 104, 138);
constexpr int kBoxSize = 13;  // a flat check's box, at 96 DPI

// What a control window reports to, and the window procedure it had before.
// Kept in the process rather than in window properties: under Wine every
// property look-up is a round trip to the Wine server, and the procedure runs
// for every message (a list of 250,000 rows gets as many).
struct Following {
    ui::Control* control;
    ui::Form* form;
    WNDPROC oldProc;
};
std::unordered_map<HWND, Following>& followed() {
    static std::unordered_map<HWND, Following> windows;  // the one thread's
    return windows;
}

bool isFlat(ui::Kind kind) {
    return kind == ui::Kind::FlatButton || kind == ui::Kind::Image || kind == ui::Kind::FlatCheck;
}

// The flat controls' own look under the mouse; false when the message is not theirs.
bool followFlat(HWND window, ui::Control& control, UINT message, LPARAM lParam) {
    switch (message) {
    case WM_MOUSEMOVE: {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, window, 0};
        ::TrackMouseEvent(&track);
        control.userHover(static_cast<short>(LOWORD(lParam)) > Scale{windowDpi(window)}.px(kBoxSize + 2));
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
    const auto found = followed().find(window);
    if (found == followed().end()) return ::DefWindowProcA(window, message, wParam, lParam);
    const Following following = found->second;  // the entry goes with the window
    ui::Control& control = *following.control;
    if (isFlat(control.kind()) && followFlat(window, control, message, lParam) && message == WM_SETCURSOR) return TRUE;
    switch (message) {
    case WM_MOUSEMOVE: control.userMouseMove(); break;
    case WM_LBUTTONDOWN: control.userMouseDown(); break;
    case WM_LBUTTONUP: control.userMouseUp(); break;
    // The space bar presses a pressable label as the mouse does; its button
    // reports the click, as it does for the mouse and for a screen reader.
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
        if (control.pressable() && wParam == VK_SPACE) control.userMouseDown();
        following.form->userKeyDown(static_cast<int>(wParam));
        break;
    case WM_KEYUP:
    case WM_SYSKEYUP:
        if (control.pressable() && wParam == VK_SPACE) control.userMouseUp();
        following.form->userKeyUp(static_cast<int>(wParam));
        break;
    case WM_NCDESTROY:
        followed().erase(window);
        ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(following.oldProc));
        break;
    default: break;
    }
    return ::CallWindowProcA(following.oldProc, window, message, wParam, lParam);
}

// Captions are drawn as the system's labels draw them: "&&" shows as one "&"
// ("Scan && Update Warnings"), a single "&" underlines the letter behind it.
void drawCaption(HDC dc, const std::string& caption, RECT area, COLORREF colour, UINT format) {
    ::SetBkMode(dc, TRANSPARENT);
    ::SetTextColor(dc, colour);
    ::DrawTextA(dc, caption.c_str(), -1, &area, format);
}

}  // namespace

void drawFlatButton(const DRAWITEMSTRUCT& item, const ui::Control& control, HFONT font, ColourBrushes& brushes,
                    Scale scale) {
    RECT face = item.rcItem;
    ::FillRect(item.hDC, &face, brushes.brush(kFace));
    ::FrameRect(item.hDC, &face, brushes.brush(kFaceEdge));
    const bool pressed = (item.itemState & ODS_SELECTED) != 0;
    const COLORREF colour = pressed || !control.enabled() ? ui::kWhite : control.foreColour();
    HGDIOBJ old = ::SelectObject(item.hDC, font);
    drawCaption(item.hDC, control.caption(), face, colour, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    ::SelectObject(item.hDC, old);
    if (item.itemState & ODS_FOCUS) {
        ::InflateRect(&face, -scale.px(3), -scale.px(3));
        ::DrawFocusRect(item.hDC, &face);
    }
}

void drawFlatCheck(const DRAWITEMSTRUCT& item, const ui::Control& control, const CaptionFonts& fonts, Scale scale) {
    RECT area = item.rcItem;
    ::FillRect(item.hDC, &area, ::GetSysColorBrush(COLOR_BTNFACE));
    const int boxSize = scale.px(kBoxSize);
    const int top = area.top + (area.bottom - area.top - boxSize) / 2;
    RECT box{area.left, top, area.left + boxSize, top + boxSize};
    UINT state = DFCS_BUTTONCHECK | DFCS_FLAT;
    if (control.value()) state |= DFCS_CHECKED;
    if (!control.enabled()) state |= DFCS_INACTIVE;
    ::DrawFrameControl(item.hDC, &box, DFC_BUTTON, state);

    RECT text{box.right + scale.px(5), area.top, area.right, area.bottom};
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

void drawPressableLabel(const DRAWITEMSTRUCT& item, const ui::Control& control, const CaptionFonts& fonts,
                        ColourBrushes& brushes) {
    RECT area = item.rcItem;
    const std::uint32_t back = control.backColour();
    ::FillRect(item.hDC, &area, back == ui::kSystemColour ? ::GetSysColorBrush(COLOR_BTNFACE) : brushes.brush(back));
    HGDIOBJ old = ::SelectObject(item.hDC, control.underlined() ? fonts.underlined : fonts.plain);
    const COLORREF colour = control.enabled() ? control.foreColour() : ::GetSysColor(COLOR_GRAYTEXT);
    const UINT align = control.centred() ? DT_CENTER : DT_LEFT;
    RECT measured = area;
    ::DrawTextA(item.hDC, control.caption().c_str(), -1, &measured, DT_CALCRECT | DT_WORDBREAK | align);
    drawCaption(item.hDC, control.caption(), area, colour, DT_WORDBREAK | align);
    ::SelectObject(item.hDC, old);
    if (item.itemState & ODS_FOCUS) {
        const LONG width = measured.right - measured.left;
        const LONG left = control.centred() ? area.left + (area.right - area.left - width) / 2 : area.left;
        RECT focus{left - 1, area.top, std::min<LONG>(left + width + 1, area.right),
                   std::min<LONG>(measured.bottom + 1, area.bottom)};
        ::DrawFocusRect(item.hDC, &focus);
    }
}

void followInput(HWND window, ui::Control& control, ui::Form& form) {
    // Entered before the procedure changes, so that no message finds it missing.
    auto& entry = followed()[window];
    entry = {&control, &form, reinterpret_cast<WNDPROC>(::GetWindowLongPtrA(window, GWLP_WNDPROC))};
    ::SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(followingProc));
}

}  // namespace tv::win32
