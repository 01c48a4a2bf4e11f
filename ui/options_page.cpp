#include "ui/options_page.h"

namespace tv::ui {
namespace {

// A button, with its note to the right.
constexpr Bounds button(int top) { return {8, top, 190, 28}; }
constexpr Bounds note(int top, int lines) { return {208, top + (lines == 1 ? 6 : 0), 332, lines * 16}; }

}  // namespace

OptionsPage::OptionsPage(Form& form, Control& frame)
    : setFq(frame),
      cSetW(form.add(Kind::FlatButton, "cSetW", button(8), "Settings Wizard", &setFq)),
      Label15(form.add(Kind::Label, "Label15", note(8, 2),
                       "First-time Tarvelon Users are Recommended to use the Settings Wizard", &setFq)),
      cSettings(form.add(Kind::FlatButton, "cSettings", button(44), "Edit Settings", &setFq)),
      cButton2(form.add(Kind::FlatButton, "cButton2", button(80), "Advanced Settings", &setFq)),
      Label16(form.add(Kind::Label, "Label16", note(80, 1), "Only Intended for Advanced Users", &setFq)),
      cCreateSS(form.add(Kind::FlatButton, "cCreateSS", button(116), "Shutdown/Scan Shortcut", &setFq)),
      Label23(form.add(Kind::Label, "Label23", note(116, 3),
                       "Click to Create a Shutdown/Scan shortcut. For more information about this feature, please "
                       "look at the Help Files.",
                       &setFq)),
      cUpdates(form.add(Kind::FlatButton, "cUpdates", button(160), "Check for Updates", &setFq)),
      cAbout(form.add(Kind::FlatButton, "cAbout", button(196), "About Tarvelon", &setFq)),
      Label6(form.add(Kind::Label, "Label6", {8, 456, 532, 18}, "Please Remember to Save these Settings", &setFq)) {}

}  // namespace tv::ui
