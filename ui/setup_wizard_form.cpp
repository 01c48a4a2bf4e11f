#include "ui/setup_wizard_form.h"

namespace tv::ui {
namespace {

constexpr int kPageTop = 212;  // where a page's own controls begin
constexpr Bounds line(int row) { return {16, kPageTop + row * 24, 468, 20}; }

}  // namespace

SetupWizardForm::SetupWizardForm()
    : Form("vDct", "Tarvelon - Setup Wizard", {0, 0, 500, 400}),
      title(add(Kind::Label, "title", {16, 12, 468, 20}, "%Title%")),
      desc(add(Kind::Label, "desc", {16, 40, 468, 164}, "%Description")),
      vpath(add(Kind::TextBox, "vpath", {16, kPageTop, 360, 22}, "Anti-Virus Path")),
      locate(add(Kind::FlatButton, "locate", {384, kPageTop - 1, 100, 24}, "Locate...")),
      Label4(add(Kind::Label, "Label4", {16, kPageTop + 33, 120, 18}, "Extra Arguments")),
      varg(add(Kind::TextBox, "varg", {140, kPageTop + 30, 236, 22})),
      helpme(add(Kind::FlatButton, "helpme", {16, kPageTop + 62, 120, 26}, "Help Me!")),
      Command1(add(Kind::FlatButton, "Command1", {16, kPageTop, 120, 26}, "Test It!")),
      aload(add(Kind::FlatCheck, "aload", line(0), "Enable Auto-Load (Highly Recommended)")),
      Check1(add(Kind::FlatCheck, "Check1", line(0), "Check DLL (Dynamic Linked Libraries)")),
      Check2(add(Kind::FlatCheck, "Check2", line(1), "Check DRV (Drivers)")),
      Check3(add(Kind::FlatCheck, "Check3", line(2), "Check SYS (System files)")),
      Check4(add(Kind::FlatCheck, "Check4", line(3), "Check OCX (ActiveX)")),
      Check5(add(Kind::FlatCheck, "Check5", line(4), "Check EXE (Executables)")),
      Check8(add(Kind::FlatCheck, "Check8", line(5), "Check SCR,PIF (Commonly Exploited File Types)")),
      Check6(add(Kind::FlatCheck, "Check6", line(0), "Enable Auto-Scan")),
      Check7(add(Kind::FlatCheck, "Check7", line(0), "Enable Logging Feature")),
      cButton1(add(Kind::FlatButton, "cButton1", {16, kPageTop, 260, 26}, "Create Shutdown/Scan shortcut")),
      Command2(add(Kind::FlatButton, "Command2", {16, kPageTop, 120, 26}, "Save")),
      Label2(add(Kind::Label, "Label2", {16, 370, 80, 18}, "<<< Back")),
      Label3(add(Kind::Label, "Label3", {220, 370, 60, 18}, "Cancel")),
      Label1(add(Kind::Label, "Label1", {404, 370, 80, 18}, "Next >>>")) {
    Label3.setCentred(true);
    for (Control* label : {&Label1, &Label2, &Label3}) label->setPressable(true);
    defaultButton = &Label1;
    cancelButton = &Label3;
}

std::array<Control*, 8> SetupWizardForm::settingsBoxes() const {
    return {&Check1, &Check2, &Check3, &Check4, &Check5, &Check8, &Check6, &Check7};
}

}  // namespace tv::ui
