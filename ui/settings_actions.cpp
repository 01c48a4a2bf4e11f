#include "ui/settings_actions.h"

#include "core/file_utils.h"
#include "core/settings_store.h"
#include "ui/main_window.h"
#include "ui/settings_boxes.h"
#include "ui/shortcut_maker.h"
#include "ui/startup_folder.h"

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
// itself, so a save starts from none and makes it again when the box is
// ticked; a shortcut that cannot be removed or made is passed over in silence.
void SettingsActions::save() {
    const SettingsPage& page = window_.settings;
    checkSettFile(ctx_);
    const std::string link = autoLoadShortcutPath(ctx_);
    if (fileThere(ctx_, link)) ctx_.os.files.remove(link);
    if (page.Check1.value() == 1) createAutoLoad(ctx_, link);
    writeEntry(ctx_, ctx_.settFile, "settings", joinValues(page.logOnBoxes()), "Tarvelon");
    writeEntry(ctx_, ctx_.settFile, "settings2", joinValues(page.shutDownBoxes()), "Tarvelon");
    ctx_.autoScanFailed = page.Check8.value() == 1;
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
