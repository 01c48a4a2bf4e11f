#include "ui/about_page.h"

namespace tv::ui {

AboutPage::AboutPage(Form& form, Control& frame)
    : Frame2(frame),
      Label32(form.add(Kind::Label, "Label32", {20, 20, 300, 24}, "Tarvelon", &Frame2)),
      Label33(form.add(Kind::Label, "Label33", {20, 52, 300, 20}, "Version: 2.0", &Frame2)),
      Label36(form.add(Kind::Label, "Label36", {20, 80, 90, 20}, "Programmer:", &Frame2)),
      Label37(form.add(Kind::Label, "Label37", {112, 80, 300, 20}, "Quillfen Software", &Frame2)),
      cButton4(form.add(Kind::FlatButton, "cButton4", {20, 120, 170, 28}, "View Help Files", &Frame2)),
      cButton5(form.add(Kind::FlatButton, "cButton5", {200, 120, 170, 28}, "Visit Quillfen Online", &Frame2)) {
    Label37.setPressable(true);  // the mail link
}

}  // namespace tv::ui
