#include "integrity/folder_scan_page.h"

#include <string>

namespace tv::ui {
namespace {

constexpr Bounds groupBox(int row) { return {24, 76 + row * 34, 20, 26}; }
constexpr Bounds groupButton(int row) { return {50, 76 + row * 34, 300, 26}; }

constexpr const char* kGroupButtons[kPassCount][2] = {
    {"bDLL", "Dynamic Linked Library (DLL)"}, {"bDRV", "Driver Files (DRV)"},
    {"bSYS", "System Files (SYS, 386)"},      {"bOCX", "ActiveX Files (OCX)"},
    {"bEXE", "Executable Files (EXE, COM)"},  {"bEXE2", "Exploited File Types (PIF, SCR)"}};

}  // namespace

FolderScanPage::FolderScanPage(Form& form, Control& frame)
    : intF(frame),
      lFolder(form.add(Kind::Label, "lFolder", {24, 16, 420, 20}, "Folder to check:", &intF)),
      Combo1(form.add(Kind::ComboBox, "Combo1", {24, 38, 420, 200}, {}, &intF)),
      check(addGroupRows(form)),
      groupButtons(groupButtonsOf(form)),
      bFULL(form.add(Kind::FlatButton, "bFULL", {50, 286, 146, 28}, "Select All", &intF)),
      bCLEAR(form.add(Kind::FlatButton, "bCLEAR", {204, 286, 146, 28}, "Clear Selections", &intF)),
      bSCAN(form.add(Kind::FlatButton, "bSCAN", {50, 330, 300, 32}, "Scan Folder Now", &intF)),
      addRem(form.add(Kind::FlatButton, "addRem", {50, 378, 300, 28}, "Add/Remove Custom Folders...", &intF)) {}

// Each row's box, then its button, so that the tab key walks the rows in order.
std::array<Control*, kPassCount> FolderScanPage::addGroupRows(Form& form) {
    std::array<Control*, kPassCount> boxes{};
    for (int group = 0; group < kPassCount; ++group) {
        boxes[group] = &form.add(Kind::FlatCheck, "check(" + std::to_string(group) + ")", groupBox(group), {}, &intF);
        form.add(Kind::FlatButton, kGroupButtons[group][0], groupButton(group), kGroupButtons[group][1], &intF);
    }
    return boxes;
}

std::array<Control*, kPassCount> FolderScanPage::groupButtonsOf(const Form& form) {
    std::array<Control*, kPassCount> buttons{};
    for (int group = 0; group < kPassCount; ++group) buttons[group] = &form.at(kGroupButtons[group][0]);
    return buttons;
}

}  // namespace tv::ui
