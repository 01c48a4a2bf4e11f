#include "ui/main_window.h"

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 720, 500};
constexpr Bounds kPage{160, 10, 548, 480};
constexpr Bounds kInner{0, 0, 548, 480};  // a page inside a holder page

constexpr Bounds nav(int row) { return {12, 16 + row * 36, 130, 28}; }
constexpr Bounds navFoot(int row) { return {12, 390 + row * 36, 130, 28}; }

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
      folderScan(*this, intF),
      regWatch(*this, regF),
      appWatch(*this, appF),
      options(*this, setFq),
      logBrowser(*this, setFq),
      report(*this, repF),
      settings(*this, qSett),
      advanced(*this, advF),
      about(*this, Frame2) {
    // The About page is what the window opens on; the settings page waits,
    // visible, inside its hidden holder.
    norms2();
    qSett.setVisible(true);
    Frame2.setVisible(true);
}

void MainWindow::norms() {
    for (const auto& control : controls()) control->downStatus();
}

void MainWindow::norms2() {
    for (Control* page : {&Frame2, &repF, &setFq, &appF, &regF, &intF, &settF, &qSett, &advF})
        page->setVisible(false);
}

}  // namespace tv::ui
