// The main window's frame: choosing a page in the navigation column, and the
// small actions that have no page of their own (About, Help, the maker's web
// page and mail address).
#pragma once

#include <functional>
#include <string>

#include "core/app_context.h"

namespace tv::ui {

class MainWindow;

// The maker's addresses.
inline constexpr const char* kMakerWebPage = "https://www.quillfen.com/";
inline constexpr const char* kSupportMail = "support@quillfen.com";
inline constexpr const char* kUpdateUtilityPage = "https://www.quillfen.com/orbexa/";

class MainActions {
public:
    // `reloadSettings` puts the saved settings on the settings pages (loadSettings).
    MainActions(AppContext& ctx, MainWindow& window, std::function<void()> reloadSettings);

    void showRegWatch();  // Image7
    void showAppWatch();  // Image9
    void showOptions();   // Image11
    void showAbout();     // cAbout, cButton7
    void openHelp();      // cButton4, cButton6, chlp
    void visitWebPage();  // cButton5
    void mailMaker();     // Label37
    // cUpdates: starts the maker's update utility, or offers its download.
    void checkForUpdates();

private:
    bool openWebPage(const char* page);  // false when the system could not open it
    void visitPage(const char* page);     // asks first; says so when it cannot be opened

    AppContext& ctx_;
    MainWindow& window_;
    std::function<void()> reloadSettings_;
};

}  // namespace tv::ui
