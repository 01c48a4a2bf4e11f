#include "integrity/custom_baseline.h"

#include "core/text.h"
#include "integrity/baseline_build.h"

namespace tv {
namespace {

std::string firstScanQuestion(const std::string& folder) {
    return "This Custom Folder " + folder +
           " has not been fully scanned yet. The scan is required by the Integrity Checker.\r\n\r\n"
           "Perform scan now?";
}

constexpr const char* kFirstScanRefused =
    "You have chosen not to scan this Custom Folder.  You need to run the scan before using this Custom Folder "
    "Integrity Checker.";

}  // namespace

bool buildCustomDat(AppContext& ctx, ScanHost& host, const std::string& folder, const std::string& datFile,
                    const std::string&) {
    if (!ctx.autoLoadRun &&
        ctx.os.boxes.show(firstScanQuestion(folder), kAppTitle, box::YesNo) != box::Yes) {
        ctx.os.boxes.show(kFirstScanRefused, kAppTitle, box::OkOnly);
        return false;
    }
    ctx.os.files.writeAll(datFile, "");
    ctx.os.files.writeAll(datFile, blankDataFileText(walkFolder(ctx, withTrailingBackslash(folder))));
    // A run that cannot ask goes on with the blank file: every file shows as new.
    if (!ctx.autoLoadRun) host.startFirstCustomScan(folder, datFile);
    return true;
}

}  // namespace tv
