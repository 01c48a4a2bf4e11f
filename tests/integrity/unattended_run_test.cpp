// A run that nobody watches never waits on a message box: what the box would
// have said goes into a report of its own, and the run goes on to its end.
#include <gtest/gtest.h>

#include "integrity/findings_action.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "tests/core/fakes.h"
#include "ui/application.h"

namespace tv {
namespace {

const std::string kUnseen = "C:\\Tarvelon\\Data\\Log\\03-05-2006 unattended(3_04_07PM).log";
const std::string kHeading = "Unattended Run - Tarvelon did not wait for an answer to these messages,";

TEST(UnattendedRun, AScheduledRunWithoutBaselineEndsWithItsQuestionsInTheReport) {
    test::FakePlatform os;
    os.files.folders = {"C:\\TARVELON"};
    os.processes.line = "TarvelonLow.exe /a";
    ui::Application app{os.set()};
    app.load();
    EXPECT_TRUE(os.loop.quitCalled);
    const std::string report = *os.files.content(kUnseen);
    EXPECT_TRUE(report.starts_with(kHeading + "This is your first time using Tarvelon."));
    EXPECT_NE(report.find(",Perform scan now?,Tarvelon answered: No,You have chosen not"), std::string::npos);
    EXPECT_TRUE(report.ends_with(",Cannot run Scheduled Scan.  Primary Full Scan has not yet been completed.,Closing.\r\n"));
    EXPECT_FALSE(os.files.content("C:\\Tarvelon\\Data\\Integrity.dat"));  // no baseline made unasked
}

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
    EXPECT_EQ(*os.files.content(kUnseen),
              kHeading + "You do not have any Anti-Virus program setup with Tarvelon.  For your conveniance, these "
              "files will be added to the log, and will be updated in your Integrity File (so that you can scan "
              "them for viruses later).\r\n");
    EXPECT_EQ(*os.files.content("C:\\Tarvelon\\Data\\Log\\03-05-2006(3_04_07PM).log"),
              "Integrity Checker - These files were logged because you didn't setup an Anti-Virus Scanner,"
              "C:\\WINDOWS\\SYSTEM32\\A.DLL\r\n");
}

}  // namespace
}  // namespace tv
