#include "integrity/check_int_file.h"

#include "core/file_utils.h"
#include "core/text.h"
#include "core/write_failures.h"
#include "integrity/baseline_build.h"
#include "integrity/data_file.h"
#include "logging/unattended_boxes.h"

namespace tv {
namespace {

constexpr const char* kRestoreQuestion =
    "Your Integrity.dat file cannot be found! But the backup file was located!\r\n"
    "Would you like to restore the backup?";
constexpr const char* kFirstRunQuestion =
    "This is your first time using Tarvelon.  Tarvelon is required to do a system file Integrity scan before "
    "proceeding.\r\nIf you are sure there are no viruses on your computer, it is safe to scan now. Otherwise, "
    "please do a full scan at a later time. The full scan should take no more than five minutes to "
    "complete.\r\n\r\nPerform scan now?";
constexpr const char* kFirstRunRefused =
    "You have chosen not to do a full scan at this time.  You need to run the full scan before using the "
    "Integrity Checker.";

void buildPrimaryBaseline(AppContext& ctx, ScanHost& host) {
    ctx.primaryBuild = true;
    if (!ctx.os.files.writeAll(ctx.intFile, "")) {
        // Data\ may not be written: the scan could never be saved.
        showUnwritableData(ctx);
        return host.endProgram();
    }
    host.setMainCaption("Building Integrity File...");
    ctx.os.loop.pump();
    const SectionNameLists lists = walkFolder(ctx, trimBlanks(getSysDir(ctx)));
    host.setMainCaption("Saving...");
    ctx.os.loop.pump();
    ctx.os.files.writeAll(ctx.intFile, blankDataFileText(lists));
    host.showMainWindow(false);
    ctx.primaryScan = true;
    host.startScanWindow();
}

}  // namespace

void restartWithoutBackup(AppContext& ctx, ScanHost& host, const std::string& backup) {
    ctx.os.boxes.show("Tarvelon needs to be re-started", kAppTitle, box::OkOnly);
    ctx.os.files.remove(backup);
    ctx.os.processes.start("\"" + ctx.appPath + "TarvelonLow.exe\"", show::MinimizedFocus);
    host.endProgram();
}

void checkIntFile(AppContext& ctx, ScanHost& host) {
    // The entries of a first scan that never ended go into their data file.
    if (!ctx.primaryScanFile) foldPrimaryScanJournal(ctx.os.files, ctx.intFile);
    if (!fileThere(ctx, ctx.intFile)) {
        const std::string backup = backupName(ctx.intFile);
        if (fileThere(ctx, backup)) {
            // Unattended, the backup is restored: the other answer deletes it.
            if (showOrLog(ctx, kRestoreQuestion, "Missing Integrity.dat file", box::YesNo, box::Yes) == box::Yes) {
                ctx.os.files.copy(backup, ctx.intFile);
            } else {
                restartWithoutBackup(ctx, host, backup);
            }
            return;
        }
        // Only the user can tell that the system is clean enough to be the baseline.
        if (showOrLog(ctx, kFirstRunQuestion, kAppTitle, box::YesNo, box::No) != box::Yes) {
            showOrLog(ctx, kFirstRunRefused, kAppTitle, box::OkOnly);
            return;
        }
        buildPrimaryBaseline(ctx, host);
    }
    host.setMainCaption("Welcome to Tarvelon");
}

}  // namespace tv
