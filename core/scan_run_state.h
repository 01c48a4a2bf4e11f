// What the starters of a scan, the scan driver, the comparison engine and the
// result action share while a scan runs.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace tv {

// The six passes of a scan, in their order.
enum Pass { kPassDll, kPassDrv, kPassSys, kPassOcx, kPassExe, kPassExe2, kPassCount };

struct ScanRunState {
    bool pageScan = false;         // started from the main window, which it returns to
    bool noAutoAction = false;     // the result action is not pressed by itself
    bool customFirstScan = false;  // a custom folder's first scan: its result becomes its baseline
    // scanDLL, scanDRV, scanSYS, scanOCX, scanEXE, scanEXE2: set or cleared as a block.
    std::array<bool, kPassCount> wanted{};
    std::int16_t passType = 0;     // 1 to 6, the pass running
    std::int16_t customIndex = 0;  // the custom folder's slot
    std::string customQueue;       // slots still to scan, each with a comma behind: "3,7,"
    bool scanPaused = false;
    bool scanCancelled = false;
    std::int32_t passDone = 0;
    std::int32_t failCount = 0;
    std::int32_t newCount = 0;
    std::string failList;        // "<folder><name> <checksum>," per finding
    std::string customFailList;  // "<folder><name>(<slot>) <checksum>," per finding
    // The pass in hand, as the driver hands it to the engine.
    std::string ext1, ext2, dataFile;
};

}  // namespace tv
