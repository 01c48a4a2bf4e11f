#include "ui/main_window.h"

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 640, 440};
constexpr int kNavLeft = 12, kNavWidth = 130, kNavHeight = 28;
constexpr Bounds kPage{160, 10, 468, 420};
constexpr Bounds kInner{0, 0, 468, 420};  // a page inside a holder page

constexpr Bounds nav(int row) { return {kNavLeft, 16 + row * 36, kNavWidth, kNavHeight}; }
constexpr Bounds navFoot(int row) { return {kNavLeft, 330 + row * 36, kNavWidth, kNavHeight}; }
constexpr Bounds line(int left, int row, int width) { return {left, 40 + row * 24, width, 20}; }

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
      Combo1(add(Kind::ComboBox, "Combo1", {20, 40, 420, 24}, {}, &intF)),
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
    // The About page is what the window opens on; the settings page waits,
    // visible, inside its hidden holder.
    norms2();
    qSett.setVisible(true);
    Frame2.setVisible(true);
}

void MainWindow::norms2() {
    for (Control* page : {&Frame2, &repF, &setFq, &appF, &regF, &intF, &settF, &qSett, &advF})
        page->setVisible(false);
}

}  // namespace tv::ui
