#include "shutdown/logoff_form.h"

namespace tv::ui {
namespace {

constexpr Bounds kClient{0, 0, 360, 200};
constexpr Bounds picture(int column) { return {56 + column * 108, 28, 64, 64}; }
constexpr Bounds below(int column) { return {40 + column * 108, 100, 96, 18}; }

Control& centred(Control& control) {
    control.setCentred(true);
    return control;
}

Control& showing(Control& control, const char* pictureName) {
    control.setPicture(pictureName);
    return control;
}

}  // namespace

LogoffForm::LogoffForm()
    : Form("frmLogoff", "Secure Shut Down", kClient),
      Timer1(add(Kind::Timer, "Timer1", {})),
      Image2(hidden(showing(add(Kind::Image, "Image2", picture(0), "Standby"), "standby-lit"))),
      Image4(hidden(showing(add(Kind::Image, "Image4", picture(1), "Turn Off"), "turnoff-lit"))),
      Image6(hidden(showing(add(Kind::Image, "Image6", picture(2), "Restart"), "restart-lit"))),
      Image1(showing(add(Kind::Image, "Image1", picture(0), "Standby"), "standby")),
      Image3(showing(add(Kind::Image, "Image3", picture(1), "Turn Off"), "turnoff")),
      Image5(showing(add(Kind::Image, "Image5", picture(2), "Restart"), "restart")),
      Label4(centred(add(Kind::Label, "Label4", below(0), "Standby"))),
      Label6(centred(add(Kind::Label, "Label6", {13, 120, 150, 18}, "hold SHIFT for Hibernate"))),
      Label5(centred(add(Kind::Label, "Label5", below(1), "Turn Off"))),
      Label3(centred(add(Kind::Label, "Label3", below(2), "Restart"))),
      Label2(add(Kind::Label, "Label2", {24, 166, 100, 18}, "Log Off...")),
      Label1(add(Kind::Label, "Label1", {288, 166, 60, 18}, "Cancel")) {
    Timer1.setValue(1000);
    Timer1.setEnabled(false);
    Label1.setPressable(true);
    Label2.setPressable(true);
    cancelButton = &Label1;
}

}  // namespace tv::ui
