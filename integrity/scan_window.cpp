#include "integrity/scan_window.h"

#include "integrity/scan_passes.h"

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 460, 360};
constexpr Bounds kFrame{8, 40, 444, 312};
constexpr int kRow = 36;

constexpr Bounds title(int row) { return {8, 6 + row * kRow, 300, 16}; }
constexpr Bounds file(int row) { return {24, 22 + row * kRow, 330, 14}; }
constexpr Bounds percent(int row) { return {370, 6 + row * kRow, 60, 16}; }
constexpr Bounds figure(int row, int left, int width) { return {left, 16 + row * 28, width, 18}; }
constexpr Bounds kNowhere{0, 0, 0, 0};

}  // namespace

ScanWindow::ScanWindow()
    : Form("intCheck", "AutoCheck", kClient),
      Label13(add(Kind::Label, "Label13", {12, 10, 436, 22}, "Scanning...Please Wait")),
      Frame1(add(Kind::Frame, "Frame1", kFrame)),
      Frame2(add(Kind::Frame, "Frame2", kFrame)),
      Frame3(add(Kind::Frame, "Frame3", kFrame)),
      l_cust2(add(Kind::Label, "l_cust2", title(kPassCount), "Custom Folder", &Frame1)),
      l_cust(add(Kind::Label, "l_cust", file(kPassCount), "", &Frame1)),
      l_scust(add(Kind::Label, "l_scust", percent(kPassCount), "", &Frame1)),
      Image9(add(Kind::FlatButton, "Image9", {8, 270, 100, 26}, "Pause", &Frame1)),
      Label11(hidden(add(Kind::Label, "Label11", {118, 275, 80, 18}, "Resume", &Frame1))),
      Image11(add(Kind::FlatButton, "Image11", {336, 270, 100, 26}, "Cancel", &Frame1)),
      Text1(hidden(add(Kind::TextBox, "Text1", kNowhere, "", &Frame1))),
      Text2(hidden(add(Kind::TextBox, "Text2", kNowhere, "", &Frame1))),
      textav1(hidden(add(Kind::TextBox, "textav1", kNowhere, "", &Frame1))),
      textav2(hidden(add(Kind::TextBox, "textav2", kNowhere, "", &Frame1))),
      Command1(hidden(add(Kind::FlatButton, "Command1", kNowhere, "Command1", &Frame1))),
      Timer1(add(Kind::Timer, "Timer1", kNowhere)),
      Label1(add(Kind::Label, "Label1", figure(0, 16, 160), "Total Files Scanned:", &Frame2)),
      Label6(add(Kind::Label, "Label6", figure(0, 180, 120), "1000", &Frame2)),
      Label3(add(Kind::Label, "Label3", figure(1, 16, 160), "New Files:", &Frame2)),
      Label8(add(Kind::Label, "Label8", figure(1, 180, 120), "1000", &Frame2)),
      Label4(add(Kind::Label, "Label4", figure(2, 16, 160), "Failed Files:", &Frame2)),
      Label9(add(Kind::Label, "Label9", figure(2, 180, 120), "1000", &Frame2)),
      Label5(add(Kind::Label, "Label5", figure(3, 16, 160), "Passing Files:", &Frame2)),
      Label7(add(Kind::Label, "Label7", figure(3, 180, 120), "1000", &Frame2)),
      Label14(hidden(add(Kind::Label, "Label14", figure(5, 16, 420),
                       "Scan Complete. No new or modified files were found.", &Frame2))),
      Label2(add(Kind::Label, "Label2", figure(7, 16, 420), "Repair and Update Failed Files...", &Frame2)),
      Label10(add(Kind::Label, "Label10", {8, 8, 300, 18}, "New and Failed Files:", &Frame3)),
      List1(add(Kind::ListBox, "List1", {8, 30, 428, 226}, "", &Frame3)),
      Label12(add(Kind::Label, "Label12", {8, 266, 420, 20}, "Scan Failing Files...", &Frame3)),
      pb1max(hidden(add(Kind::Label, "pb1max", kNowhere))),
      pb2max(hidden(add(Kind::Label, "pb2max", kNowhere))),
      pbm(hidden(add(Kind::Label, "pbm", kNowhere, "0"))) {
    for (int pass = 0; pass < kPassCount; ++pass) {
        const ScanPass& names = kScanPasses[pass];
        titles[pass] = &add(Kind::Label, names.titleLabel, title(pass), names.designTitle, &Frame1);
        fileLabels[pass] = &add(Kind::Label, names.fileLabel, file(pass), "", &Frame1);
        percentLabels[pass] = &add(Kind::Label, names.percentLabel, percent(pass), "", &Frame1);
    }
    for (Control* action : {&Label2, &Label11, &Label12}) action->setPressable(true);
    Timer1.setValue(1);  // a one-shot: enabled by the plan, disabled by its own tick
    Timer1.setEnabled(false);
    Frame2.setVisible(false);
    Frame3.setVisible(false);
}

}  // namespace tv::ui
