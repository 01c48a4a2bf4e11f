// The scan on the intCheck screen: LoadUp plans which folders and file groups
// are scanned and counts their files; the tick of the one-shot Timer1 runs the
// passes over the system directory and then over each queued custom folder,
// and ends the run as the way it was started asks. Leaving, pausing and the
// close box reach a running scan only through the pumps of its passes.
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "core/app_context.h"
#include "integrity/scan_host.h"

namespace tv::ui {
class ScanWindow;
}

namespace tv {

class ScanDriver {
public:
    ScanDriver(AppContext& ctx, ui::ScanWindow& window, ScanHost& host);

    // The folder and slot chosen on the main window's folder list (Combo1).
    struct FolderChoice {
        std::string text;
        int index = 0;
    };

    void loadUp();
    // A custom folder's first scan, over its freshly written blank data file.
    void firstCustomScan(const std::string& folder, const std::string& datFile, const FolderChoice& choice);
    void timerTick();       // Timer1
    void command1Click();   // leaving the scan
    bool queryUnload();     // the close box; true keeps the window
    void togglePause();     // Image9 and Label11
    void label2Click();

private:
    void resetCaptions();
    void chooseGroupsFromSettings(bool clearFirst, bool fixedList);
    void countFiles(const std::string& extList);
    bool nextJoiningFolder(int& slot);
    bool confirmLeavingWithFindings();
    void abandonPrimaryScan();
    void splitScannerSetting(const char* request, ui::Control& program, ui::Control& arguments);

    AppContext& ctx_;
    ui::ScanWindow& window_;
    ScanHost& host_;
    // Files planned per pass (cntDLL, cntDRV, cntSYS, cntOCX, cntEXE, cntPIF).
    std::array<std::int32_t, 6> counts_{};
    std::int64_t grandTotal_ = 0;
};

}  // namespace tv
