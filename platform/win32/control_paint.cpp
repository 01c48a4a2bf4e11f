#include "platform/win32/control_paint.h"

#include <algorithm>

namespace tv::win32 {

ColourBrushes::~ColourBrushes() {
    for (const auto& [colour, brush] : brushes_) ::DeleteObject(brush);
}

HBRUSH ColourBrushes::brush(std::uint32_t colour) {
    auto& brush = brushes_[colour];
    if (!brush) brush = ::CreateSolidBrush(colour);
    return brush;
}

bool hasOwnColours(const ui::Control& control) {
    return control.foreColour() != ui::kBlack || control.backColour() != ui::kSystemColour;
}

HBRUSH paintColours(HDC dc, const ui::Control& control, ColourBrushes& brushes) {
    if (!hasOwnColours(control)) return nullptr;
    ::SetTextColor(dc, control.foreColour());
    const std::uint32_t back =
        control.backColour() == ui::kSystemColour ? ::GetSysColor(COLOR_BTNFACE) : control.backColour();
    ::SetBkColor(dc, back);
    return control.backColour() == ui::kSystemColour ? ::GetSysColorBrush(COLOR_BTNFACE) : brushes.brush(back);
}

void drawColouredCheckBox(const DRAWITEMSTRUCT& item, const ui::Control& control, HFONT font,
                          ColourBrushes& brushes, Scale scale) {
    const RECT area = item.rcItem;
    const COLORREF back =
        control.backColour() == ui::kSystemColour ? ::GetSysColor(COLOR_BTNFACE) : control.backColour();
    ::FillRect(item.hDC, &area, brushes.brush(back));

    const int boxSize = scale.px(13);
    const int top = area.top + (area.bottom - area.top - boxSize) / 2;
    RECT box{area.left + 1, top, area.left + 1 + boxSize, top + boxSize};
    UINT state = DFCS_BUTTONCHECK;
    if (control.value() == 1) state |= DFCS_CHECKED;
    if (control.value() == 2) state |= DFCS_BUTTON3STATE | DFCS_CHECKED;
    if (!control.enabled()) state |= DFCS_INACTIVE;
    ::DrawFrameControl(item.hDC, &box, DFC_BUTTON, state);

    // Disabled, the text fades halfway into the background, so that it stays
    // readable on any colour.
    COLORREF text = control.foreColour();
    if (!control.enabled())
        text = RGB((GetRValue(text) + GetRValue(back)) / 2, (GetGValue(text) + GetGValue(back)) / 2,
                   (GetBValue(text) + GetBValue(back)) / 2);
    RECT caption{box.right + scale.px(5), area.top, area.right, area.bottom};
    HGDIOBJ old = ::SelectObject(item.hDC, font);
    ::SetBkMode(item.hDC, TRANSPARENT);
    ::SetTextColor(item.hDC, text);
    RECT measured = caption;
    ::DrawTextA(item.hDC, control.caption().c_str(), -1, &measured, DT_CALCRECT | DT_SINGLELINE | DT_NOPREFIX);
    ::DrawTextA(item.hDC, control.caption().c_str(), -1, &caption, DT_LEFT | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
    ::SelectObject(item.hDC, old);
    if ((item.itemState & ODS_FOCUS) && !control.caption().empty()) {
        RECT focus{caption.left - 1, caption.top + 1, std::min(measured.right + 1, caption.right), caption.bottom - 1};
        ::DrawFocusRect(item.hDC, &focus);
    }
}

void drawCheckListRow(const DRAWITEMSTRUCT& item, const ui::Control& control, Scale scale) {
    if (item.itemID == static_cast<UINT>(-1)) return;
    const bool enabled = !(item.itemState & ODS_DISABLED);
    RECT row = item.rcItem;
    ::FillRect(item.hDC, &row, ::GetSysColorBrush(COLOR_WINDOW));

    const int margin = scale.px(2), box = scale.px(kCheckListRowHeight) - 2 * margin;
    RECT boxRect{row.left + margin, row.top + margin, row.left + margin + box, row.top + margin + box};
    UINT state = DFCS_BUTTONCHECK | DFCS_FLAT;
    if (item.itemState & ODS_SELECTED) state |= DFCS_CHECKED;
    if (!enabled) state |= DFCS_INACTIVE;
    ::DrawFrameControl(item.hDC, &boxRect, DFC_BUTTON, state);

    RECT text{boxRect.right + scale.px(6), row.top, row.right - margin, row.bottom};
    const auto& items = control.items();
    if (item.itemID < items.size()) {
        ::SetBkMode(item.hDC, TRANSPARENT);
        ::SetTextColor(item.hDC, ::GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
        ::DrawTextA(item.hDC, items[item.itemID].c_str(), -1, &text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    if (item.itemState & ODS_FOCUS) ::DrawFocusRect(item.hDC, &row);
}

}  // namespace tv::win32
