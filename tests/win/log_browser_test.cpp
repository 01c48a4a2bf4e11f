// The log browser over a real Data\Log\ folder: names that are no reports, a
// folder named like one, a read-only report, a 50 MiB report, and the report's
// files handed to the fake scanner, which records its command lines.
#include <algorithm>

#include "logging/log_browser.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

using Texts = std::vector<std::string>;

class LogFolder : public WinTest {
protected:
    LogFolder() {
        files.makeFolder(path("Data"));
        files.makeFolder(path("Data\\Log"));
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
    }
    void report(const std::string& name, const std::string& content = "Heading,C:\\A.DLL\r\n") {
        writeFile("Data\\Log\\" + name, content);
    }
    Texts tree() const {
        Texts paths;
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node) paths.push_back(tree_.fullPath(node));
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    void open(const std::string& fullPath) {
        mainWindow.logBrowser.cReports.userClick();
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node)
            if (tree_.fullPath(node) == fullPath) tree_.userSelectNode(node);
        ASSERT_EQ(tree_.fullPath(tree_.selectedNode()), fullPath);
        mainWindow.logBrowser.cViewReport.userClick();
    }

    win32::Win32Processes real;
    AppContext ctx{{files, profiles, shell, boxes, real, loop, renderer, registry, clock, windows, power, shortcuts}};
    ui::MainWindow mainWindow;
    ui::Control& tree_ = mainWindow.logBrowser.TreeView2;
    const std::vector<std::string>& list = mainWindow.report.List4.items();
    LogBrowser browser{ctx, mainWindow.logBrowser, mainWindow.report, mainWindow.setFq,
                       [this] { mainWindow.norms2(); }};
};

TEST_F(LogFolder, OddNamesAFolderAndAReadOnlyReport) {
    report("03-05-2006(3_04_07PM).log");
    report("03-06-2006(3_04_07PM).log");
    report("03-06-2006(9_15_00AM).LOG");
    report("notes.log");  // no "(": not shown
    report("x(.log");     // no ")": a time without text
    report("readme.txt");
    files.makeFolder(path("Data\\Log\\03-07-2006(1_00_00AM).log"));
    mainWindow.logBrowser.cReports.userClick();
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\3:04:07 PM", "03-06-2006", "03-06-2006\\3:04:07 PM",
                             "03-06-2006\\9:15:00 AM", "03-07-2006", "03-07-2006\\1:00:00 AM", "x", "x\\"}));
    for (const ui::TreeNode& node : tree_.nodes()) {  // every date before its times
        if (node.parent != ui::kNoNode) {
            EXPECT_LT(node.parent, tree_.nodeIndex(node.key));
        }
    }

    boxes.answers = {box::Ok};
    open("03-07-2006\\1:00:00 AM");  // a folder is no report
    EXPECT_EQ(boxes.shown.at(0).prompt, "Error - This report does not exist and could not be opened.");
    open("03-06-2006\\9:15:00 AM");  // the name is made again with ".log"
    EXPECT_EQ(list, (Texts{"Heading", "C:\\A.DLL"}));

    ::SetFileAttributesA(path("Data\\Log\\03-05-2006(3_04_07PM).log").c_str(), FILE_ATTRIBUTE_READONLY);
    boxes.answers = {box::Yes};
    mainWindow.logBrowser.cButton3.userClick();
    EXPECT_TRUE(tree_.nodes().empty());
    mainWindow.logBrowser.cReports.userClick();
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\3:04:07 PM", "03-07-2006", "03-07-2006\\1:00:00 AM"}));
    EXPECT_EQ(readFile("Data\\Log\\readme.txt"), "Heading,C:\\A.DLL\r\n");
    ::SetFileAttributesA(path("Data\\Log\\03-05-2006(3_04_07PM).log").c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(LogFolder, MissingFolderGivesAnEmptyTree) {
    ::RemoveDirectoryA(path("Data\\Log").c_str());
    mainWindow.logBrowser.cReports.userClick();
    EXPECT_TRUE(tree_.nodes().empty());
}

TEST_F(LogFolder, LargeReportsAndReportsOfNothing) {
    std::string big = "Integrity Checker - Heading";
    while (big.size() < 50u << 20) big += ",C:\\WINDOWS\\system32\\file" + std::to_string(big.size()) + ".dll";
    report("03-05-2006(3_04_07PM).log", big + "\r\n");
    report("03-05-2006(3_04_08PM).log", std::string(1 << 20, '\0'));
    report("03-05-2006(3_04_09PM).log", std::string(1 << 20, ','));
    open("03-05-2006\\3:04:07 PM");
    EXPECT_EQ(static_cast<std::size_t>(std::count(big.begin(), big.end(), ',')) + 1, list.size());
    EXPECT_EQ(big.substr(big.rfind(',') + 1), list.back());
    open("03-05-2006\\3:04:08 PM");
    EXPECT_EQ(list, Texts{std::string(1 << 20, '\0')});
    open("03-05-2006\\3:04:09 PM");
    EXPECT_TRUE(list.empty());
    EXPECT_TRUE(mainWindow.repF.visible());
}

TEST_F(LogFolder, ScanGivesTheFilesToTheFakeScannerInBatches) {
    const std::string scanner = fakeScanner();
    ASSERT_TRUE(files.canRead(scanner)) << scanner;
    writeFile("Data\\Tarvelon.dat", "[Tarvelon]\r\nantivirus=" + scanner + "|/first\r\nav2=" + scanner + "| /second \r\n");
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    ctx.passCount = 2;
    ctx.quoteChar = "\"";
    report("03-05-2006(3_04_07PM).log", "Heading,C:\\a&b.dll,C:\\x%PATH%.exe,C:\\c.dll\r\n");
    open("03-05-2006\\3:04:07 PM");
    boxes.answers = {box::Ok};
    mainWindow.report.cScnLog.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Anti-Virus program executed successfully!");

    // The scanners run side by side: their lines come in any order.
    const DWORD start = ::GetTickCount();
    auto lines = [this] {
        Texts found;
        const std::string log = readFile("scans.log");
        for (std::size_t from = 0, end; (end = log.find("\r\n", from)) != std::string::npos; from = end + 2)
            found.push_back(log.substr(from, end - from));
        std::sort(found.begin(), found.end());
        return found;
    };
    while (lines().size() < 4 && ::GetTickCount() - start < 20000) ::Sleep(20);
    const std::string first = "\"C:\\a&b.dll\" \"C:\\x%PATH%.exe\" ", second = "\"C:\\c.dll\" ";
    Texts expected{scanner + " /first " + first, scanner + " /first " + second, scanner + " /second " + first,
                   scanner + " /second " + second};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(lines(), expected);
}

}  // namespace
}  // namespace tv::test
