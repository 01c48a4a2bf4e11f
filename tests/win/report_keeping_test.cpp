// Reports keep every file: two of one second each keep their own file, listed
// under the same date and time; a path with blanks or a comma stays whole in
// the report, on the report page and on the scanner's command line; a report
// of the former kind opens as it always did.
#include <algorithm>

#include "logging/log_browser.h"
#include "logging/write_log.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

using Texts = std::vector<std::string>;

class ReportKeeping : public WinTest {
protected:
    ReportKeeping() {
        files.makeFolder(path("Data"));
        files.makeFolder(path("Data\\Log"));
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.passCount = 500;
        ctx.autoLogging = &window.settings.Check7;
        window.settings.Check7.setValue(1);
        writeFile("Data\\Tarvelon.dat", "[Tarvelon]\r\nantivirus=" + fakeScannerPath() + "|/x\r\n");
        ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    }
    // Each report of the tree opened in turn, up to the one with `heading`:
    // its node's path, then the report page's entries.
    std::vector<Texts> openEach(const std::string& heading = {}) {
        std::vector<Texts> reports;
        browser.loadLogs();
        ui::Control& tree = window.logBrowser.TreeView2;
        for (std::size_t node = 0; node < tree.nodes().size(); ++node) {
            if (tree.nodes()[node].parent == ui::kNoNode) continue;
            tree.userSelectNode(node);
            browser.openReport();
            reports.push_back({tree.fullPath(node)});
            for (const std::string& entry : window.report.List4.items()) reports.back().push_back(entry);
            if (reports.back()[1] == heading) break;
        }
        std::sort(reports.begin(), reports.end());
        return reports;
    }

    FixedClock sameSecond;  // 3/5/2006 3:04:07 PM for every report
    win32::Win32Processes real;
    AppContext ctx{{files, profiles, shell, boxes, real, loop, renderer, registry, sameSecond, windows, power,
                    shortcuts}};
    ui::MainWindow window;
    LogBrowser browser{ctx, window.logBrowser, window.report, window.setFq, [this] { window.norms2(); }};
};

TEST_F(ReportKeeping, ReportsOfOneSecondAndPathsWithBlanksStayWhole) {
    ASSERT_EQ(writeLog(ctx, "First,", {"\"C:\\Program Files\\X\\x.dll\" ", " \"C:\\a,b.dll\"", "C:\\plain.dll "}),
              LogOutcome::Written);
    ASSERT_EQ(writeLog(ctx, "Second,", {"C:\\second.dll "}), LogOutcome::Written);
    EXPECT_EQ(readFile("Data\\Log\\03-05-2006(3_04_07PM).log"),
              "First,\"C:\\Program Files\\X\\x.dll\",\"C:\\a,b.dll\",C:\\plain.dll\r\n");
    EXPECT_EQ(readFile("Data\\Log\\03-05-2006(3_04_07PM) (2).log"), "Second,C:\\second.dll\r\n");
    writeFile("Data\\Log\\03-04-2006(1_00_00AM).log", "Former,C:\\Program,Files\\Y\\y.dll\r\n");
    EXPECT_EQ(openEach(), (std::vector<Texts>{
                              {"03-04-2006\\1:00:00 AM", "Former", "C:\\Program", "Files\\Y\\y.dll"},
                              {"03-05-2006\\3:04:07 PM", "First", "C:\\Program Files\\X\\x.dll", "C:\\a,b.dll",
                               "C:\\plain.dll"},
                              {"03-05-2006\\3:04:07 PM", "Second", "C:\\second.dll"}}));

    // Rescanned with quoting off, the path with blanks is still one file.
    openEach("First");
    boxes.answers = {box::Ok};
    window.report.cScnLog.userClick();
    const DWORD start = ::GetTickCount();
    while (!files.length(path("scans.log")).value_or(0) && ::GetTickCount() - start < 20000) ::Sleep(20);
    EXPECT_EQ(readFile("scans.log"),
              fakeScannerPath() + " /x \"C:\\Program Files\\X\\x.dll\" C:\\a,b.dll C:\\plain.dll \r\n");
}

}  // namespace
}  // namespace tv::test
