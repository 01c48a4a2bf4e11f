// What the advanced page does: it is shown with the saved read buffer, files
// per scanner run, scanner options, algorithm and shortcut way; its Save
// writes them, and saved or cancelled, the saved settings are in force at
// once; the warning follows the two scanner options; Compare Speeds times the
// checksum of the program's own file.
#pragma once

#include <functional>

#include "core/app_context.h"

namespace tv::ui {

class MainWindow;

class AdvancedActions {
public:
    // `reloadSettings` puts the saved settings on the pages (loadSettings).
    AdvancedActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings);

    void show();    // cButton2
    void save();    // cSave2
    void cancel();  // cButton1

private:
    // A click on one of the two scanner options (Check10, Check11): the warning
    // shows while both are clear and goes as soon as `clicked` is ticked.
    void scannerOptionClicked(const Control& clicked, const Control& other);

    AppContext& ctx_;
    MainWindow& window_;
    std::function<void()> reloadSettings_;
};

}  // namespace tv::ui
