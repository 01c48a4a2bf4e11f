#include "ui/advanced_page.h"

#include <string>

namespace tv::ui {
namespace {

constexpr std::uint32_t kRed = 0x0000FF;  // 0xBBGGRR
constexpr const char* kBuffers[] = {"64 Kb", "128 Kb", "256 Kb", "512 Kb"};
constexpr const char* kBatches[] = {"Pass All Files", "50", "100", "200", "350", "500"};
constexpr const char* kAlgorithms[] = {"CRC32", "MD5", "SHA-1", "MD4"};

constexpr Bounds row(int left, int top, int width = 516) { return {left, top, width, 20}; }

Control& red(Control& control) {
    control.setLook(kRed);
    return control;
}

}  // namespace

// Option buttons named from `firstNumber` on, side by side, each at least
// `width` wide and wider where its caption needs it.
template <std::size_t N>
std::array<Control*, N> AdvancedPage::addOptions(Form& form, int firstNumber, const char* const (&captions)[N],
                                                 Control* parent, int left, int top, int width) {
    std::array<Control*, N> options{};
    for (std::size_t i = 0; i < N; ++i) {
        const int needed = 24 + 7 * static_cast<int>(std::string(captions[i]).size());
        const int wide = needed > width ? needed : width;
        options[i] = &form.add(Kind::OptionButton, "Option" + std::to_string(firstNumber + static_cast<int>(i)),
                               {left, top, wide, 20}, captions[i], parent);
        left += wide + 6;
    }
    return options;
}

AdvancedPage::AdvancedPage(Form& form, Control& frame)
    : advF(frame),
      Label22(form.add(Kind::Label, "Label22", row(8, 6), "Tarvelon Integrity Checker Read Buffer:", &advF)),
      bufferOptions(addOptions(form, 1, kBuffers, &advF, 16, 28, 80)),
      Frame1(form.add(Kind::Frame, "Frame1", {8, 56, 532, 50}, "Pass 'x' Files at a Time (500 is recommended)",
                      &advF)),
      batchOptions(addOptions(form, 5, kBatches, &Frame1, 10, 22, 56)),
      Label28(form.add(Kind::Label, "Label28", row(8, 114), "Anti-Virus Shell Options:", &advF)),
      Check10(form.add(Kind::CheckBox, "Check10", row(16, 136), "Enclose Files with Quotes", &advF)),
      Check11(form.add(Kind::CheckBox, "Check11", {16, 158, 516, 32},
                       "Use ShortPath File Names (For DOS-Based On-Demand Anti-Virus scanners...Example: McAfee)",
                       &advF)),
      avfocus(form.add(Kind::CheckBox, "avfocus", row(16, 192),
                       "Give anti-virus program Focus (Fixes GUI Errors with AVAST 4)", &advF)),
      Label1(hidden(red(form.add(Kind::Label, "Label1", row(34, 214, 498), "Warning! Current options may cause errors!",
                                 &advF)))),
      Frame3(form.add(Kind::Frame, "Frame3", {8, 240, 532, 50}, "Integrity Checker Algorithm:", &advF)),
      algorithmOptions(addOptions(form, 11, kAlgorithms, &Frame3, 10, 22, 80)),
      Label30(form.add(Kind::Label, "Label30", row(8, 298), "Micellaneous:", &advF)),
      wsh(form.add(Kind::FlatCheck, "wsh", row(16, 320),
                   "Use Windows Scripting Host (If Auto-Load won't create shortcut/save)", &advF)),
      cSave2(form.add(Kind::FlatButton, "cSave2", {16, 352, 120, 28}, "Save", &advF)),
      cButton1(form.add(Kind::FlatButton, "cButton1", {144, 352, 120, 28}, "Cancel", &advF)),
      cSpeeds(form.add(Kind::FlatButton, "cSpeeds", {272, 352, 180, 28}, "Compare Speeds", &advF)),
      List1(form.add(Kind::ListBox, "List1", {8, 388, 532, 88}, {}, &advF)) {}

}  // namespace tv::ui
