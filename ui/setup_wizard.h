// What vDct does: nine pages on one form walk a new user through the
// scanner, Auto-Load, the file types, Auto-Scan, logging and the Secure Shut
// Down shortcut. The pages work on a copy of the settings; only Save writes
// them ("settings", "antivirus" and the Auto-Load shortcut), which are in
// force at once.
#pragma once

#include <cstdint>
#include <functional>

#include "core/app_context.h"

namespace tv::ui {

class Control;
class ScannerChoiceForm;
class SetupWizardForm;

class SetupWizard {
public:
    struct Links {
        std::function<void()> showCatalogue;         // for the first scanner
        std::function<NativeWindow()> fileBoxOwner;  // the catalogue's window
        std::function<void()> reloadSettings;        // the saved settings into force (loadSettings)
    };
    SetupWizard(AppContext& ctx, SetupWizardForm& form, ScannerChoiceForm& choice, Links links);

    // Shows the form with the saved settings on page 0.
    void LoadUp();
    // Shows the page whose number stands in page().
    void NextFrame();
    // Hides every page's own controls and shows Next and Back.
    void norms();

    void next();    // Label1, on release of the mouse
    void back();    // Label2, on release of the mouse
    void cancel();  // Label3, on click
    void locate();  // the file box
    void save();    // Command2

    std::int16_t page() const { return page_; }
    // Which of the three labels is lit: 3 Next, 1 Back, 2 Cancel, 0 none,
    // 6 after a label was released.
    std::int16_t hoverNumber() const { return hover_; }

private:
    void hoverOver(std::int16_t label);
    void press(Control& label);
    void release(Control& label);
    void plainLabels();
    std::string lastPageText() const;

    AppContext& ctx_;
    SetupWizardForm& form_;
    ScannerChoiceForm& choice_;
    Links links_;
    std::int16_t page_ = 0;
    std::int16_t hover_ = 0;
    std::int32_t startTime_ = 0;  // whole seconds since midnight, taken on page 0
};

}  // namespace tv::ui
