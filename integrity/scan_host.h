// What a scan needs from the rest of the program: the main window, the end of
// the process, and the actions that belong to other screens.
#pragma once

#include <string>

namespace tv {

class ScanHost {
public:
    virtual ~ScanHost() = default;
    virtual void setMainCaption(const std::string& caption) = 0;
    virtual void showMainWindow(bool visible) = 0;
    // Makes the scan window visible and plans its scan (LoadUp).
    virtual void startScanWindow() = 0;
    virtual void endProgram() = 0;
    // The result action (Label12 of the scan window).
    virtual void pressResultAction() = 0;
    // The shut-down sequence's step after its scan.
    virtual void afterShutDownScan() = 0;
    // Starts the first scan of a custom folder whose blank data file was just
    // written, on the scan window, from the main window.
    virtual void startFirstCustomScan(const std::string& folder, const std::string& datFile) = 0;
};

}  // namespace tv
