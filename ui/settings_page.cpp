#include "ui/settings_page.h"

namespace tv::ui {
namespace {

constexpr Bounds row(int left, int top, int width = 500) { return {left, top, width, 20}; }

}  // namespace

SettingsPage::SettingsPage(Form& form, Control& frame)
    : qSett(frame),
      Label21(form.add(Kind::Label, "Label21", row(8, 6), "Main Tarvelon Settings:", &qSett)),
      Check1(form.add(Kind::FlatCheck, "Check1", row(16, 30), "Auto-Load at Startup", &qSett)),
      Label20(form.add(Kind::Label, "Label20", row(16, 58), "Scan these System files on Auto-Load:", &qSett)),
      Check2(form.add(Kind::FlatCheck, "Check2", row(32, 80), "Check Dynamic Linked Libraries (DLL)", &qSett)),
      Check3(form.add(Kind::FlatCheck, "Check3", row(32, 102), "Check Drivers (DRV)", &qSett)),
      Check4(form.add(Kind::FlatCheck, "Check4", row(32, 124), "Check System Files (SYS,386)", &qSett)),
      Check5(form.add(Kind::FlatCheck, "Check5", row(32, 146), "Check ActiveX Files (OCX)", &qSett)),
      Check6(form.add(Kind::FlatCheck, "Check6", row(32, 168), "Check Executables (EXE,COM)", &qSett)),
      Check9(form.add(Kind::FlatCheck, "Check9", row(32, 190), "Check Commonly Exploited Files (SCR,PIF)", &qSett)),
      Check8(form.add(Kind::FlatCheck, "Check8", row(16, 218), "Auto-Scan Failed Files", &qSett)),
      Check7(form.add(Kind::FlatCheck, "Check7", row(16, 240), "Auto-Logging", &qSett)),
      Label2(form.add(Kind::Label, "Label2", row(16, 268), "...On secure shut down:", &qSett)),
      Check15(form.add(Kind::FlatCheck, "Check15", row(32, 290, 90), "DLL", &qSett)),
      Check14(form.add(Kind::FlatCheck, "Check14", row(130, 290, 90), "DRV", &qSett)),
      Check13(form.add(Kind::FlatCheck, "Check13", row(228, 290, 110), "SYS,386", &qSett)),
      Check12(form.add(Kind::FlatCheck, "Check12", row(32, 312, 90), "OCX", &qSett)),
      Check16(form.add(Kind::FlatCheck, "Check16", row(130, 312, 90), "EXE,COM", &qSett)),
      Check17(form.add(Kind::FlatCheck, "Check17", row(228, 312, 110), "SCR,PIF", &qSett)),
      cButton10(form.add(Kind::FlatButton, "cButton10", {16, 348, 516, 28},
                         "Click here to setup your anti-virus or anti-trojan application(s).", &qSett)),
      cSave(form.add(Kind::FlatButton, "cSave", {16, 400, 160, 28}, "Save Settings", &qSett)),
      cCancelSett(form.add(Kind::FlatButton, "cCancelSett", {184, 400, 120, 28}, "Cancel", &qSett)),
      chlp(form.add(Kind::FlatButton, "chlp", {312, 400, 100, 28}, "Help", &qSett)) {}

std::array<Control*, 8> SettingsPage::logOnBoxes() const {
    return {&Check2, &Check3, &Check4, &Check5, &Check6, &Check9, &Check8, &Check7};
}

std::array<Control*, 6> SettingsPage::shutDownBoxes() const {
    return {&Check15, &Check14, &Check13, &Check12, &Check16, &Check17};
}

}  // namespace tv::ui
