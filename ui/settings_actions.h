// What the settings page does: it is shown with the saved settings, and its
// Save writes the file groups of the log-on check and of the secure shut-down,
// Auto-Scan and Auto-Logging, and makes or removes the Auto-Load shortcut.
// Saved or cancelled, the saved settings are in force at once.
#pragma once

#include <functional>

#include "core/app_context.h"

namespace tv::ui {

class MainWindow;

class SettingsActions {
public:
    // `reloadSettings` puts the saved settings on the pages (loadSettings);
    // `showScanners` shows the scanner selection.
    SettingsActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings,
                    std::function<void()> showScanners);

    void show();    // cSettings
    void save();    // cSave
    void cancel();  // cCancelSett

private:
    AppContext& ctx_;
    MainWindow& window_;
    std::function<void()> reloadSettings_;
};

}  // namespace tv::ui
