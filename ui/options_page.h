// setFq, the main window's Options page: the ways to the settings pages, the
// wizard and the shut-down shortcut, the update check and About. The reports'
// tree lies on this page too (LogBrowserPage).
#pragma once

#include "platform/form.h"

namespace tv::ui {

class OptionsPage {
public:
    OptionsPage(Form& form, Control& setFq);

    Control& setFq;
    Control& cSetW;      // Settings Wizard
    Control& Label15;
    Control& cSettings;  // Edit Settings
    Control& cButton2;   // Advanced Settings
    Control& Label16;
    Control& cCreateSS;  // Shutdown/Scan Shortcut
    Control& Label23;
    Control& cUpdates;
    Control& cAbout;
    Control& Label6;
};

}  // namespace tv::ui
