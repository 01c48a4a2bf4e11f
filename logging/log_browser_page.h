// The reports as the user meets them: on the Options page the tree of dates
// and times with its buttons, and repF, the page that shows one report.
#pragma once

#include "platform/form.h"

namespace tv::ui {

// The reports' part of the Options page (setFq).
class LogBrowserPage {
public:
    LogBrowserPage(Form& form, Control& setFq);

    Control& TreeView2;    // dates, with the times of their reports
    Control& cReports;     // Load Logs
    Control& cViewReport;  // View Log
    Control& cButton3;     // Delete All Logs
    Control& Label26;      // shown while a report is read
    Control& Label27;      // the tip on the Delete key
};

// repF: one report, its heading first and then its files.
class ReportPage {
public:
    ReportPage(Form& form, Control& repF);

    Control& repF;
    Control& Label25;
    Control& List4;
    Control& cScnLog;  // Scan Files For Viruses
    Control& cDelLog;  // Delete this Report
    Control& cX;       // back to the Options page
};

}  // namespace tv::ui
