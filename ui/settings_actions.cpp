#include "ui/settings_actions.h"

#include "core/settings_store.h"
#include "core/write_failures.h"
#include "ui/main_window.h"
#include "ui/settings_boxes.h"
#include "ui/shortcut_maker.h"

namespace tv::ui {

SettingsActions::SettingsActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings,
                                 std::function<void()> showScanners)
    : ctx_(ctx), window_(window), reloadSettings_(std::move(reloadSettings)) {
    window_.options.cSettings.onClick = [this] { show(); };
    window_.settings.cSave.onClick = [this] { save(); };
    window_.settings.cCancelSett.onClick = [this] { cancel(); };
    window_.settings.cButton10.onClick = std::move(showScanners);
}

void SettingsActions::show() {
    reloadSettings_();
    window_.settF.setVisible(true);
    window_.qSett.setVisible(true);
    window_.setFq.setVisible(false);
    window_.advF.setVisible(false);
}

// The page stays open after a save. The shortcut is the Auto-Load setting
// itself, so a save makes it anew when the box is ticked. The save says it
// succeeded only when the shortcut and the settings were all written.
void SettingsActions::save() {
    const SettingsPage& page = window_.settings;
    const WriteCheck written(ctx_);
    checkSettFile(ctx_);
    const bool autoLoadSaved = saveAutoLoad(ctx_, page.Check1.value() == 1, true);
    writeEntry(ctx_, ctx_.settFile, "settings", joinValues(page.logOnBoxes()), "Tarvelon");
    writeEntry(ctx_, ctx_.settFile, "settings2", joinValues(page.shutDownBoxes()), "Tarvelon");
    ctx_.autoScanFailed = page.Check8.value() == 1;
    if (autoLoadSaved && written.allWritten())
        ctx_.os.boxes.show("Settings Saved Successfully", kAppTitle, box::OkOnly);
}

// The saved settings come back at once: ticks that were read while the page
// was open (Auto-Logging) must not outlive their Cancel.
void SettingsActions::cancel() {
    reloadSettings_();
    window_.settF.setVisible(false);
    window_.setFq.setVisible(true);
}

}  // namespace tv::ui
