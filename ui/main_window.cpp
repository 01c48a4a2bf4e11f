#include "ui/main_window.h"

#include <string>

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 640, 440};
constexpr int kNavLeft = 12, kNavWidth = 130, kNavHeight = 28;
constexpr Bounds kPage{160, 10, 468, 420};
constexpr Bounds kInner{0, 0, 468, 420};  // a page inside a holder page

constexpr Bounds nav(int row) { return {kNavLeft, 16 + row * 36, kNavWidth, kNavHeight}; }
constexpr Bounds navFoot(int row) { return {kNavLeft, 330 + row * 36, kNavWidth, kNavHeight}; }
constexpr Bounds line(int left, int row, int width) { return {left, 40 + row * 24, width, 20}; }

// Folder scan page: a box and its toggle button per file group.
constexpr Bounds groupBox(int row) { return {24, 76 + row * 34, 20, 26}; }
constexpr Bounds groupButton(int row) { return {50, 76 + row * 34, 300, 26}; }
// Options page: a button with its note to the right.
constexpr Bounds optionButton(int row) { return {16, 16 + row * 52, 180, 28}; }
constexpr Bounds optionNote(int row) { return {208, 16 + row * 52, 250, 44}; }

constexpr const char* kGroupButtons[6][2] = {
    {"bDLL", "Dynamic Linked Library (DLL)"}, {"bDRV", "Driver Files (DRV)"},
    {"bSYS", "System Files (SYS, 386)"},      {"bOCX", "ActiveX Files (OCX)"},
    {"bEXE", "Executable Files (EXE, COM)"},  {"bEXE2", "Exploited File Types (PIF, SCR)"}};

}  // namespace

MainWindow::MainWindow()
    : Form("mForm1", "Welcome to Tarvelon", kClient),
      Image5(add(Kind::Image, "Image5", nav(0), "Integrity Scan")),
      Image7(add(Kind::Image, "Image7", nav(1), "RegWatch")),
      Image9(add(Kind::Image, "Image9", nav(2), "AppWatch")),
      Image11(add(Kind::Image, "Image11", nav(3), "Options")),
      cButton6(add(Kind::FlatButton, "cButton6", navFoot(0), "Help")),
      cButton7(add(Kind::FlatButton, "cButton7", navFoot(1), "About")),
      cButton9(add(Kind::FlatButton, "cButton9", navFoot(2), "Exit")),
      intF(add(Kind::Frame, "intF", kPage)),
      regF(add(Kind::Frame, "regF", kPage)),
      appF(add(Kind::Frame, "appF", kPage)),
      setFq(add(Kind::Frame, "setFq", kPage)),
      settF(add(Kind::Frame, "settF", kPage)),
      qSett(add(Kind::Frame, "qSett", kInner, {}, &settF)),
      advF(add(Kind::Frame, "advF", kInner, {}, &settF)),
      repF(add(Kind::Frame, "repF", kPage)),
      Frame2(add(Kind::Frame, "Frame2", kPage)),
      lFolder(add(Kind::Label, "lFolder", {24, 16, 420, 20}, "Folder to check:", &intF)),
      Combo1(add(Kind::ComboBox, "Combo1", {24, 38, 420, 200}, {}, &intF)),
      check(addGroupRows()),
      groupButtons(groupButtonsAdded()),
      bFULL(add(Kind::FlatButton, "bFULL", {50, 286, 146, 28}, "Select All", &intF)),
      bCLEAR(add(Kind::FlatButton, "bCLEAR", {204, 286, 146, 28}, "Clear Selections", &intF)),
      bSCAN(add(Kind::FlatButton, "bSCAN", {50, 330, 300, 32}, "Scan Folder Now", &intF)),
      addRem(add(Kind::FlatButton, "addRem", {50, 378, 300, 28}, "Add/Remove Custom Folders...", &intF)),
      Label15(add(Kind::Label, "Label15", optionNote(0),
                  "First-time Tarvelon Users are Recommended to use the Settings Wizard", &setFq)),
      cSetW(add(Kind::FlatButton, "cSetW", optionButton(0), "Settings Wizard", &setFq)),
      cSettings(add(Kind::FlatButton, "cSettings", optionButton(1), "Edit Settings", &setFq)),
      Label16(add(Kind::Label, "Label16", optionNote(2), "Only Intended for Advanced Users", &setFq)),
      cButton2(add(Kind::FlatButton, "cButton2", optionButton(2), "Advanced Settings", &setFq)),
      Label23(add(Kind::Label, "Label23", optionNote(3),
                  "Click to Create a Shutdown/Scan shortcut. For more information about this feature, please "
                  "look at the Help Files.",
                  &setFq)),
      cCreateSS(add(Kind::FlatButton, "cCreateSS", optionButton(3), "Shutdown/Scan Shortcut", &setFq)),
      cReports(add(Kind::FlatButton, "cReports", optionButton(4), "Load Logs", &setFq)),
      cUpdates(add(Kind::FlatButton, "cUpdates", optionButton(5), "Check for Updates", &setFq)),
      cAbout(add(Kind::FlatButton, "cAbout", optionButton(6), "About Tarvelon", &setFq)),
      Label6(add(Kind::Label, "Label6", {16, 384, 440, 20}, "Please Remember to Save these Settings", &setFq)),
      Label32(add(Kind::Label, "Label32", {20, 20, 300, 24}, "Tarvelon", &Frame2)),
      Label33(add(Kind::Label, "Label33", {20, 52, 300, 20}, "Version: 2.0", &Frame2)),
      Label36(add(Kind::Label, "Label36", {20, 80, 90, 20}, "Programmer:", &Frame2)),
      Label37(add(Kind::Label, "Label37", {112, 80, 300, 20}, "Quillfen Software", &Frame2)),
      cButton4(add(Kind::FlatButton, "cButton4", {20, 120, 170, 28}, "View Help Files", &Frame2)),
      cButton5(add(Kind::FlatButton, "cButton5", {200, 120, 170, 28}, "Visit Quillfen Online",
                   &Frame2)),
      Check1(add(Kind::FlatCheck, "Check1", line(16, 0, 420), "Auto-Load at Startup", &qSett)),
      Check2(add(Kind::FlatCheck, "Check2", line(32, 2, 420),
                 "Check Dynamic Linked Libraries (DLL)", &qSett)),
      Check3(add(Kind::FlatCheck, "Check3", line(32, 3, 420), "Check Drivers (DRV)", &qSett)),
      Check4(add(Kind::FlatCheck, "Check4", line(32, 4, 420), "Check System Files (SYS,386)",
                 &qSett)),
      Check5(add(Kind::FlatCheck, "Check5", line(32, 5, 420), "Check ActiveX Files (OCX)", &qSett)),
      Check6(add(Kind::FlatCheck, "Check6", line(32, 6, 420), "Check Executables (EXE,COM)",
                 &qSett)),
      Check9(add(Kind::FlatCheck, "Check9", line(32, 7, 420),
                 "Check Commonly Exploited Files (SCR,PIF)", &qSett)),
      Check8(add(Kind::FlatCheck, "Check8", line(16, 8, 420), "Auto-Scan Failed Files", &qSett)),
      Check7(add(Kind::FlatCheck, "Check7", line(16, 9, 420), "Auto-Logging", &qSett)),
      Check15(add(Kind::FlatCheck, "Check15", line(32, 11, 70), "DLL", &qSett)),
      Check14(add(Kind::FlatCheck, "Check14", line(106, 11, 70), "DRV", &qSett)),
      Check13(add(Kind::FlatCheck, "Check13", line(180, 11, 90), "SYS,386", &qSett)),
      Check12(add(Kind::FlatCheck, "Check12", line(32, 12, 70), "OCX", &qSett)),
      Check16(add(Kind::FlatCheck, "Check16", line(106, 12, 70), "EXE,COM", &qSett)),
      Check17(add(Kind::FlatCheck, "Check17", line(180, 12, 90), "SCR,PIF", &qSett)),
      Check10(add(Kind::CheckBox, "Check10", line(16, 0, 440), "Enclose Files with Quotes", &advF)),
      Check11(add(Kind::CheckBox, "Check11", line(16, 1, 440),
                  "Use ShortPath File Names (For DOS-Based On-Demand Anti-Virus scanners..."
                  "Example: McAfee)",
                  &advF)),
      avfocus(add(Kind::CheckBox, "avfocus", line(16, 2, 440),
                  "Give anti-virus program Focus (Fixes GUI Errors with AVAST 4)", &advF)),
      wsh(add(Kind::FlatCheck, "wsh", line(16, 3, 440),
              "Use Windows Scripting Host (If Auto-Load won't create shortcut/save)", &advF)) {
    // Their screens are still to come.
    for (Control* button : {&cSetW, &cSettings, &cButton2, &cCreateSS, &cReports}) button->setEnabled(false);
    // The About page is what the window opens on; the settings page waits,
    // visible, inside its hidden holder.
    norms2();
    qSett.setVisible(true);
    Frame2.setVisible(true);
}

// Each row's box, then its button, so that the tab key walks the rows in order.
std::array<Control*, 6> MainWindow::addGroupRows() {
    std::array<Control*, 6> boxes{};
    for (int group = 0; group < 6; ++group) {
        boxes[group] = &add(Kind::FlatCheck, "check(" + std::to_string(group) + ")", groupBox(group), {}, &intF);
        add(Kind::FlatButton, kGroupButtons[group][0], groupButton(group), kGroupButtons[group][1], &intF);
    }
    return boxes;
}

std::array<Control*, 6> MainWindow::groupButtonsAdded() const {
    std::array<Control*, 6> buttons{};
    for (int group = 0; group < 6; ++group) buttons[group] = &at(kGroupButtons[group][0]);
    return buttons;
}

void MainWindow::norms() {
    for (const auto& control : controls()) control->downStatus();
}

void MainWindow::norms2() {
    for (Control* page : {&Frame2, &repF, &setFq, &appF, &regF, &intF, &settF, &qSett, &advF})
        page->setVisible(false);
}

}  // namespace tv::ui
