// A run that nobody watches never waits on a message box: what the box would
// have said goes into a report of its own, and the run goes on to its end
// (the scheduled run refused at the start is the start-up test's).
#include <gtest/gtest.h>

#include "integrity/findings_action.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

TEST(UnattendedRun, NoScannerInAScheduledRunIsReportedAndTheRunEnds) {
    test::FakePlatform os;
    AppContext ctx{os.set()};
    test::prepareProgramFolder(os, ctx, {});
    os.files.folders.insert("C:\\TARVELON\\DATA\\LOG");
    ctx.unattended = ctx.autoScanFailed = true;
    ctx.cmdLine = "/a";
    ctx.passCount = 500;
    ui::ScanWindow window;
    test::RecordingHost host;
    ScanDriver driver{ctx, window, host};
    window.List1.addItem("C:\\WINDOWS\\SYSTEM32\\A.DLL");
    ctx.scan.failList = "C:\\WINDOWS\\SYSTEM32\\A.DLL 1234,";
    FindingsAction(ctx, window, host, driver).label12Click();
    EXPECT_TRUE(host.ended);
    EXPECT_EQ(*os.files.content("C:\\Tarvelon\\Data\\Log\\03-05-2006 unattended(3_04_07PM).log"),
              "Unattended Run - Tarvelon did not wait for an answer to these messages,You do not have any Anti-Virus program setup with Tarvelon.  For your conveniance, these "
              "files will be added to the log, and will be updated in your Integrity File (so that you can scan "
              "them for viruses later).\r\n");
    EXPECT_EQ(*os.files.content("C:\\Tarvelon\\Data\\Log\\03-05-2006(3_04_07PM).log"),
              "Integrity Checker - These files were logged because you didn't setup an Anti-Virus Scanner,"
              "C:\\WINDOWS\\SYSTEM32\\A.DLL\r\n");
}

}  // namespace
}  // namespace tv
