#include "regwatch/regwatch_page.h"

namespace tv::ui {
namespace {

constexpr const char* kPlacesRecorded =
    "Tarvelon now also watches the Startup folders, services, scheduled tasks and other places where programs "
    "set themselves up to start. What they held was recorded now, without warnings.";

constexpr Bounds kTree{8, 130, 532, 196};
constexpr Bounds kHidden{0, 0, 0, 0};

}  // namespace

RegWatchPage::RegWatchPage(Form& form, Control& frame)
    : regF(frame),
      List5(form.add(Kind::ListBox, "List5", {8, 8, 532, 114}, {}, &regF)),
      TreeView1(form.add(Kind::TreeView, "TreeView1", kTree, {}, &regF)),
      List6(hidden(form.add(Kind::ListBox, "List6", kTree, {}, &regF))),
      Text4(form.add(Kind::TextBox, "Text4", {8, 334, 532, 22}, {}, &regF)),
      Label19(hidden(form.add(Kind::Label, "Label19", kHidden, {}, &regF))),
      Command1(form.add(Kind::FlatButton, "Command1", {8, 366, 120, 28}, "Refresh", &regF)),
      Command3(form.add(Kind::FlatButton, "Command3", {136, 366, 120, 28}, "Delete Key", &regF)),
      Command11(form.add(Kind::FlatButton, "Command11", {264, 366, 190, 28}, "Scan File for Viruses", &regF)),
      cScnUpd(form.add(Kind::FlatButton, "cScnUpd", {8, 402, 200, 28}, "Scan && Update Warnings", &regF)),
      cMod(form.add(Kind::FlatButton, "cMod", {216, 402, 324, 28}, "Check for modifications/deletions on reboot",
                    &regF)),
      Label18(hidden(form.add(Kind::Label, "Label18", {8, 438, 532, 40}, kPlacesRecorded, &regF))),
      List2(hidden(form.add(Kind::ListBox, "List2", kHidden, {}, &regF))),
      List3(hidden(form.add(Kind::ListBox, "List3", kHidden, {}, &regF))) {}

}  // namespace tv::ui
