#include "platform/win32/control_paint.h"

namespace tv::win32 {

ColourBrushes::~ColourBrushes() {
    for (const auto& [colour, brush] : brushes_) ::DeleteObject(brush);
}

HBRUSH ColourBrushes::brush(std::uint32_t colour) {
    auto& brush = brushes_[colour];
    if (!brush) brush = ::CreateSolidBrush(colour);
    return brush;
}

HBRUSH paintColours(HDC dc, const ui::Control& control, ColourBrushes& brushes) {
    if (control.foreColour() == ui::kBlack && control.backColour() == ui::kSystemColour) return nullptr;
    ::SetTextColor(dc, control.foreColour());
    const std::uint32_t back =
        control.backColour() == ui::kSystemColour ? ::GetSysColor(COLOR_BTNFACE) : control.backColour();
    ::SetBkColor(dc, back);
    return control.backColour() == ui::kSystemColour ? ::GetSysColorBrush(COLOR_BTNFACE) : brushes.brush(back);
}

void drawCheckListRow(const DRAWITEMSTRUCT& item, const ui::Control& control) {
    if (item.itemID == static_cast<UINT>(-1)) return;
    const bool enabled = !(item.itemState & ODS_DISABLED);
    RECT row = item.rcItem;
    ::FillRect(item.hDC, &row, ::GetSysColorBrush(COLOR_WINDOW));

    const int box = kCheckListRowHeight - 4;
    RECT boxRect{row.left + 2, row.top + 2, row.left + 2 + box, row.top + 2 + box};
    UINT state = DFCS_BUTTONCHECK | DFCS_FLAT;
    if (item.itemState & ODS_SELECTED) state |= DFCS_CHECKED;
    if (!enabled) state |= DFCS_INACTIVE;
    ::DrawFrameControl(item.hDC, &boxRect, DFC_BUTTON, state);

    RECT text{boxRect.right + 6, row.top, row.right - 2, row.bottom};
    const auto& items = control.items();
    if (item.itemID < items.size()) {
        ::SetBkMode(item.hDC, TRANSPARENT);
        ::SetTextColor(item.hDC, ::GetSysColor(enabled ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT));
        ::DrawTextA(item.hDC, items[item.itemID].c_str(), -1, &text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    if (item.itemState & ODS_FOCUS) ::DrawFocusRect(item.hDC, &row);
}

}  // namespace tv::win32
