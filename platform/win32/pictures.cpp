#include "platform/win32/pictures.h"

#include <algorithm>
#include <functional>
#include <map>

namespace tv::win32 {
namespace {

// A pen or brush for the length of one drawing, selected into the device
// context and given back afterwards.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), object_(object), old_(::SelectObject(dc, object)) {}
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;
    ~Selected() {
        ::SelectObject(dc_, old_);
        ::DeleteObject(object_);
    }

private:
    HDC dc_;
    HGDIOBJ object_;
    HGDIOBJ old_;
};

constexpr COLORREF kSymbol = RGB(255, 255, 255);

COLORREF darker(COLORREF colour) {
    return RGB(GetRValue(colour) * 2 / 3, GetGValue(colour) * 2 / 3, GetBValue(colour) * 2 / 3);
}

struct Area {
    int cx, cy, size;  // the middle and the side of the square face
};

// The button's face: a rounded square in its colour on the dialog's
// background; lit, it gets a white rim.
Area drawFace(HDC dc, const RECT& area, COLORREF colour, bool lit, Scale scale) {
    ::FillRect(dc, &area, ::GetSysColorBrush(COLOR_BTNFACE));
    const int size = std::min(area.right - area.left, area.bottom - area.top) - 4;
    const int left = (area.left + area.right - size) / 2, top = (area.top + area.bottom - size) / 2;
    Selected brush(dc, ::CreateSolidBrush(colour));
    Selected pen(dc, ::CreatePen(PS_SOLID, scale.px(lit ? 3 : 2), lit ? kSymbol : darker(colour)));
    ::RoundRect(dc, left, top, left + size, top + size, size / 4, size / 4);
    return {left + size / 2, top + size / 2, size};
}

// Standby: a crescent moon, a white disc with a disc of the face's colour over it.
void drawMoon(HDC dc, const Area& a, COLORREF face) {
    const int r = a.size * 5 / 16;
    {
        Selected brush(dc, ::CreateSolidBrush(kSymbol));
        Selected pen(dc, ::CreatePen(PS_SOLID, 1, kSymbol));
        ::Ellipse(dc, a.cx - r, a.cy - r, a.cx + r, a.cy + r);
    }
    Selected brush(dc, ::CreateSolidBrush(face));
    Selected pen(dc, ::CreatePen(PS_SOLID, 1, face));
    const int shift = r * 3 / 5;
    ::Ellipse(dc, a.cx - r + shift, a.cy - r - shift / 2, a.cx + r + shift, a.cy + r - shift / 2);
}

// Turn Off: the power sign, a ring open at the top with a bar through the gap.
void drawPowerSign(HDC dc, const Area& a) {
    const int r = a.size * 5 / 16;
    Selected pen(dc, ::CreatePen(PS_SOLID, std::max(3, a.size / 12), kSymbol));
    ::Arc(dc, a.cx - r, a.cy - r, a.cx + r, a.cy + r, a.cx - r / 2, a.cy - r, a.cx + r / 2, a.cy - r);
    ::MoveToEx(dc, a.cx, a.cy - r - r / 4, nullptr);
    ::LineTo(dc, a.cx, a.cy);
}

// Restart: a ring of three quarters, clockwise from the top round to the
// left, with an arrow head pointing on up into the gap.
void drawRestartArrow(HDC dc, const Area& a) {
    const int r = a.size * 5 / 16;
    {
        Selected pen(dc, ::CreatePen(PS_SOLID, std::max(3, a.size / 12), kSymbol));
        ::Arc(dc, a.cx - r, a.cy - r, a.cx + r, a.cy + r, a.cx - r, a.cy, a.cx, a.cy - r);
    }
    const int head = a.size / 7;
    const POINT arrow[] = {{a.cx - r - head, a.cy}, {a.cx - r + head, a.cy}, {a.cx - r, a.cy - head * 4 / 3}};
    Selected brush(dc, ::CreateSolidBrush(kSymbol));
    Selected pen(dc, ::CreatePen(PS_SOLID, 1, kSymbol));
    ::Polygon(dc, arrow, 3);
}

using Painter = std::function<void(HDC, const RECT&, Scale)>;

// A picture at rest in its muted colour, or lit in its bright one.
Painter button(COLORREF rest, COLORREF bright, bool lit, void (*symbol)(HDC, const Area&, COLORREF)) {
    return [=](HDC dc, const RECT& area, Scale scale) {
        const COLORREF colour = lit ? bright : rest;
        symbol(dc, drawFace(dc, area, colour, lit, scale), colour);
    };
}

void moon(HDC dc, const Area& a, COLORREF face) { drawMoon(dc, a, face); }
void power(HDC dc, const Area& a, COLORREF) { drawPowerSign(dc, a); }
void restart(HDC dc, const Area& a, COLORREF) { drawRestartArrow(dc, a); }

const std::map<std::string, Painter>& painters() {
    static const std::map<std::string, Painter> all{
        {"standby", button(RGB(196, 150, 36), RGB(250, 196, 48), false, moon)},
        {"standby-lit", button(RGB(196, 150, 36), RGB(250, 196, 48), true, moon)},
        {"turnoff", button(RGB(176, 58, 46), RGB(232, 76, 56), false, power)},
        {"turnoff-lit", button(RGB(176, 58, 46), RGB(232, 76, 56), true, power)},
        {"restart", button(RGB(56, 140, 60), RGB(76, 190, 80), false, restart)},
        {"restart-lit", button(RGB(56, 140, 60), RGB(76, 190, 80), true, restart)},
    };
    return all;
}

}  // namespace

bool drawPicture(const DRAWITEMSTRUCT& item, const std::string& name, Scale scale) {
    const auto found = painters().find(name);
    if (found == painters().end()) return false;
    found->second(item.hDC, item.rcItem, scale);
    return true;
}

}  // namespace tv::win32
