// What the folder scan page does: the user picks the system directory or a
// custom folder, ticks file groups and starts a scan of them by hand. The page
// keeps nothing; its choice becomes the scan's flags.
#pragma once

#include <functional>

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv::ui {
class FolderScanPage;
}

namespace tv {

class ScanDriver;

class FolderScanActions {
public:
    // `driver` gives the scan window's driver, creating it on first use;
    // `resetPages` hides every page of the main window (norms2).
    FolderScanActions(AppContext& ctx, ui::FolderScanPage& page, ScanHost& host, std::function<ScanDriver&()> driver,
                      std::function<void()> resetPages);

    // Image5, the page's entry in the navigation column. Without a baseline of
    // the system directory the program restarts to build one, on the user's word.
    void enter();
    // Fills Combo1: the system directory, then every used slot's folder.
    void loadf();
    // A folder chosen in Combo1: its boxes follow its settings, after its first
    // scan when it has no baseline yet.
    void combo1Click();
    void toggleGroup(int group);
    void setAllGroups(bool ticked);  // bFULL and bCLEAR
    void bScanClick();

private:
    AppContext& ctx_;
    ui::FolderScanPage& page_;
    ScanHost& host_;
    std::function<ScanDriver&()> driver_;
    std::function<void()> resetPages_;
};

}  // namespace tv
