#include "logging/log_browser_page.h"

namespace tv::ui {

LogBrowserPage::LogBrowserPage(Form& form, Control& setFq)
    : TreeView2(form.add(Kind::TreeView, "TreeView2", {8, 240, 340, 176}, {}, &setFq)),
      cReports(form.add(Kind::FlatButton, "cReports", {356, 240, 184, 28}, "Load Logs", &setFq)),
      cViewReport(form.add(Kind::FlatButton, "cViewReport", {356, 274, 184, 28}, "View Log", &setFq)),
      cButton3(form.add(Kind::FlatButton, "cButton3", {356, 308, 184, 28}, "Delete All Logs", &setFq)),
      Label26(hidden(form.add(Kind::Label, "Label26", {356, 344, 184, 48},
                              "L o a d i n g  R e p o r t  . . .  P l e a s e  W a i t", &setFq))),
      Label27(form.add(Kind::Label, "Label27", {8, 420, 532, 30},
                       "Tip: Use the Delete key to delete log entries, or log groupings directly from the list",
                       &setFq)) {}

ReportPage::ReportPage(Form& form, Control& frame)
    : repF(frame),
      Label25(form.add(Kind::Label, "Label25", {8, 8, 532, 34},
                       "The following files either failed an Integrity Check, or were New/Modified Registry Entries:",
                       &repF)),
      List4(form.add(Kind::ListBox, "List4", {8, 46, 532, 338}, {}, &repF)),
      cScnLog(form.add(Kind::FlatButton, "cScnLog", {8, 396, 190, 28}, "Scan Files For Viruses", &repF)),
      cDelLog(form.add(Kind::FlatButton, "cDelLog", {206, 396, 170, 28}, "Delete this Report", &repF)),
      cX(form.add(Kind::FlatButton, "cX", {440, 396, 100, 28}, "Close", &repF)) {}

}  // namespace tv::ui
