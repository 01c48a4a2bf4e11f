#include "appwatch/appwatch_page.h"

namespace tv::ui {

AppWatchPage::AppWatchPage(Form& form, Control& frame)
    : appF(frame),
      lstOpenWindows(form.add(Kind::ListBox, "lstOpenWindows", {8, 8, 532, 274}, {}, &appF)),
      lblCount(form.add(Kind::Label, "lblCount", {8, 288, 532, 18}, "Please Click On Refresh", &appF)),
      txtTitle(form.add(Kind::TextBox, "txtTitle", {8, 312, 532, 22}, "No Window Selected", &appF)),
      lblClassName(form.add(Kind::Label, "lblClassName", {8, 342, 532, 18},
                            "Click on an Entry in the list to retrieve additional Information", &appF)),
      lblProcessID(form.add(Kind::Label, "lblProcessID", {8, 364, 532, 18},
                            "Process ID: Please select an Entry first", &appF)),
      act(form.add(Kind::FlatButton, "act", {8, 396, 150, 28}, "Activate Window", &appF)),
      cl(form.add(Kind::FlatButton, "cl", {166, 396, 150, 28}, "Close Window", &appF)),
      ref(form.add(Kind::FlatButton, "ref", {324, 396, 150, 28}, "Refresh", &appF)) {}

}  // namespace tv::ui
