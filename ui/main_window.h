// mForm1, the program's main window: a navigation column beside a stack of
// page frames of which at most one is visible, each page's controls added by
// the page's own class. It stays loaded for the whole run, shown or not,
// because its settings controls hold the user's choices.
#pragma once

#include "appwatch/appwatch_page.h"
#include "integrity/folder_scan_page.h"
#include "logging/log_browser_page.h"
#include "platform/form.h"
#include "regwatch/regwatch_page.h"
#include "ui/about_page.h"
#include "ui/advanced_page.h"
#include "ui/options_page.h"
#include "ui/settings_page.h"

namespace tv::ui {

class MainWindow : public Form {
public:
    MainWindow();

    // Navigation column.
    Control& Image5;    // Integrity Scan
    Control& Image7;    // RegWatch
    Control& Image9;    // AppWatch
    Control& Image11;   // Options
    Control& cButton6;  // Help
    Control& cButton7;  // About
    Control& cButton9;  // Exit

    // The page frames; settF holds the settings page and the advanced page.
    Control& intF;
    Control& regF;
    Control& appF;
    Control& setFq;
    Control& settF;
    Control& qSett;
    Control& advF;
    Control& repF;
    Control& Frame2;

    // The pages.
    FolderScanPage folderScan;
    RegWatchPage regWatch;
    AppWatchPage appWatch;
    OptionsPage options;
    LogBrowserPage logBrowser;
    ReportPage report;
    SettingsPage settings;
    AdvancedPage advanced;
    AboutPage about;

    // Hides every page.
    void norms2();
    // Resets the hover look of every flat control.
    void norms();
};

}  // namespace tv::ui
