// The log browser over a real Data\Log\ folder: the tree, View Log and the
// keys, names that are no reports, a folder named like one, a read-only
// report, reports of 50 MiB and of nothing, and the report's files handed to
// the fake scanner, which records its command lines.
#include <algorithm>

#include "logging/log_browser.h"
#include "tests/win/win_fixture.h"
#include "ui/main_actions.h"
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
    bool there(const std::string& name) const { return files.canRead(path("Data\\Log\\" + name)); }
    Texts tree() const {
        Texts paths;
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node) paths.push_back(tree_.fullPath(node));
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    void load() { page.cReports.userClick(); }
    void select(const std::string& fullPath) {
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node)
            if (tree_.fullPath(node) == fullPath) return tree_.userSelectNode(node);
        FAIL() << "no node " << fullPath;
    }
    void open(const std::string& fullPath) {
        load();
        select(fullPath);
        page.cViewReport.userClick();
    }

    win32::Win32Processes real;
    AppContext ctx{{files, profiles, shell, boxes, real, loop, renderer, registry, clock, windows, power, shortcuts}};
    ui::MainWindow mainWindow;
    ui::LogBrowserPage& page = mainWindow.logBrowser;
    ui::Control& tree_ = page.TreeView2;
    const std::vector<std::string>& list = mainWindow.report.List4.items();
    LogBrowser browser{ctx, page, mainWindow.report, mainWindow.setFq, [this] { mainWindow.norms2(); }};
};

// Two reports of one clock time on two dates, as a daily check at log-on writes them.
TEST_F(LogFolder, OddNamesAFolderAndAReadOnlyReport) {
    report("03-05-2006(3_04_07PM).log");
    report("03-06-2006(3_04_07PM).log");
    report("3-6-2006(9_15_00AM).LOG");  // padded, it joins its date
    report("notes.log");                // no "(": not shown
    report("x(.log");                   // no ")": a time without text
    report("readme.txt");
    files.makeFolder(path("Data\\Log\\03-07-2006(1_00_00AM).log"));
    load();
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\3:04:07 PM", "03-06-2006", "03-06-2006\\3:04:07 PM",
                             "03-06-2006\\9:15:00 AM", "03-07-2006", "03-07-2006\\1:00:00 AM", "x", "x\\"}));
    for (const ui::TreeNode& node : tree_.nodes()) {  // every date before its times
        if (node.parent != ui::kNoNode) {
            EXPECT_LT(node.parent, tree_.nodeIndex(node.key));
        }
    }

    boxes.answers = {box::Ok, box::Ok};
    open("03-07-2006\\1:00:00 AM");  // a folder is no report
    open("03-06-2006\\9:15:00 AM");  // made again as "03-06-2006(9_15_00AM).log", which is not there
    EXPECT_EQ(boxes.shown.at(1).prompt, "Error - This report does not exist and could not be opened.");
    EXPECT_TRUE(page.Label26.visible());
    open("03-06-2006\\3:04:07 PM");
    EXPECT_EQ(list, (Texts{"Heading", "C:\\A.DLL"}));
    EXPECT_FALSE(page.Label26.visible());

    ::SetFileAttributesA(path("Data\\Log\\03-05-2006(3_04_07PM).log").c_str(), FILE_ATTRIBUTE_READONLY);
    boxes.answers = {box::No, box::Yes};
    page.cButton3.userClick();
    EXPECT_EQ(boxes.shown.back().prompt, "Are you sure you want to delete all the logs?");
    EXPECT_TRUE(there("notes.log"));
    page.cButton3.userClick();
    EXPECT_TRUE(tree_.nodes().empty());
    load();
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\3:04:07 PM", "03-07-2006", "03-07-2006\\1:00:00 AM"}));
    EXPECT_TRUE(there("readme.txt"));
    ::SetFileAttributesA(path("Data\\Log\\03-05-2006(3_04_07PM).log").c_str(), FILE_ATTRIBUTE_NORMAL);

    ::RemoveDirectoryA(path("Data\\Log\\03-07-2006(1_00_00AM).log").c_str());
    ::DeleteFileA(path("Data\\Log\\03-05-2006(3_04_07PM).log").c_str());
    ::RemoveDirectoryA(path("Data\\Log").c_str());
    load();  // no folder: no tree
    EXPECT_TRUE(tree_.nodes().empty());
}

TEST_F(LogFolder, ViewLogIsOfferedOnATimeOnlyUntilANodeOpensOrCloses) {
    report("03-05-2006(3_04_07PM).log");
    report("2006.03.06(13_04_07).log");
    ui::MainActions actions{ctx, mainWindow, [] {}};
    load();
    select("03-05-2006\\3:04:07 PM");
    mainWindow.Image11.userClick();  // coming back to Options
    EXPECT_FALSE(page.cViewReport.enabled());
    select("03-05-2006\\3:04:07 PM");
    EXPECT_TRUE(page.cViewReport.enabled());
    select("03-05-2006");
    EXPECT_FALSE(page.cViewReport.enabled());
    select("2006.03.06");  // the decision rests on the "-" alone; a date is no report all the same
    EXPECT_TRUE(page.cViewReport.enabled());
    boxes.answers = {box::Ok};
    page.cViewReport.userClick();
    EXPECT_EQ(boxes.shown.size(), 1u);
    tree_.userExpandNode(0, true);
    EXPECT_FALSE(page.cViewReport.enabled());

    select("2006.03.06\\13:04:07");
    tree_.userDoubleClick();  // a double click on a time opens it
    EXPECT_TRUE(mainWindow.repF.visible());
    mainWindow.report.cX.userClick();
    EXPECT_TRUE(mainWindow.setFq.visible());
    EXPECT_FALSE(mainWindow.repF.visible());
}

TEST_F(LogFolder, DeleteThisReportAndTheKeysOfTheTree) {
    for (const char* name : {"03-05-2006(1_00_00AM).log", "03-05-2006(3_00_00AM).log", "03-06-2006(2_00_00AM).log",
                             "03-08-2006(.log"})
        report(name);
    open("03-05-2006\\1:00:00 AM");
    boxes.answers = {box::No, box::Yes};
    mainWindow.report.cDelLog.userClick();
    EXPECT_TRUE(mainWindow.repF.visible());
    mainWindow.report.cDelLog.userClick();
    EXPECT_EQ(boxes.shown.back().prompt, "Are you sure you want to delete this Report?");
    EXPECT_FALSE(there("03-05-2006(1_00_00AM).log"));
    EXPECT_TRUE(mainWindow.setFq.visible());
    EXPECT_EQ(tree_.nodes().size(), 6u);  // loaded again

    select("03-06-2006\\2:00:00 AM");
    report("03-07-2006(1_00_00AM).log");  // not in the tree yet
    boxes.answers = {box::No};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(boxes.shown.back().prompt, "Delete Log Entry?");
    EXPECT_EQ(tree_.nodes().size(), 6u);  // No leaves the tree alone
    tree_.userKeyDown('A');               // any other key loads it again
    EXPECT_EQ(tree_.nodes().size(), 8u);
    select("03-07-2006\\1:00:00 AM");
    boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);  // Yes: that report goes, and its date with it
    EXPECT_FALSE(there("03-07-2006(1_00_00AM).log"));
    EXPECT_EQ(tree_.nodes().size(), 6u);
    select("03-08-2006\\");
    tree_.userKeyDown(ui::key::Delete);  // a node without text takes no keys: no question
    EXPECT_TRUE(there("03-08-2006(.log"));

    // A folder listed with two dates' reports mixed: a date's own times go, no other's.
    tree_.clearNodes();
    tree_.addNode({}, "a", "03-05-2006");
    tree_.addNode("a", "b", "3:00:00 AM");
    tree_.addNode({}, "c", "03-06-2006");
    tree_.addNode("c", "d", "2:00:00 AM");
    tree_.addNode("a", "e", "5:00:00 AM");
    tree_.addNode("a", "f", "6:00:00 AM");
    select("03-05-2006");
    boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(boxes.shown.back().prompt, "Delete All Logs on this (03-05-2006) Date?");
    EXPECT_FALSE(there("03-05-2006(3_00_00AM).log"));
    EXPECT_TRUE(there("03-06-2006(2_00_00AM).log"));
    EXPECT_EQ(tree(), (Texts{"03-06-2006", "03-06-2006\\2:00:00 AM", "03-08-2006", "03-08-2006\\"}));
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
    const std::string scanner = fakeScannerPath();
    ASSERT_TRUE(files.canRead(scanner)) << scanner;
    const auto scanners = [&](const std::string& first) {
        writeFile("Data\\Tarvelon.dat", "[Tarvelon]\r\nantivirus=" + first + "\r\nav2=" + scanner + "| /second \r\n");
    };
    scanners(scanner + "|/first");
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    ctx.passCount = 2;
    ctx.quoteChar = "\"";
    report("03-05-2006(3_04_07PM).log", "Heading,C:\\a&b.dll,C:\\x%PATH%.exe,C:\\c.dll\r\n");
    report("03-05-2006(3_04_08PM).log", "Heading\r\n");
    open("03-05-2006\\3:04:07 PM");
    boxes.answers = {box::Ok};
    mainWindow.report.cScnLog.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Anti-Virus program executed successfully!");

    // The scanners run side by side: their lines come in any order.
    const auto lines = [this] {
        Texts found;
        const std::string log = readFile("scans.log");
        for (std::size_t from = 0, end; (end = log.find("\r\n", from)) != std::string::npos; from = end + 2)
            found.push_back(log.substr(from, end - from));
        std::sort(found.begin(), found.end());
        return found;
    };
    for (const DWORD start = ::GetTickCount(); lines().size() < 4 && ::GetTickCount() - start < 20000;) ::Sleep(20);
    const std::string first = "\"C:\\a&b.dll\" \"C:\\x%PATH%.exe\" ", second = "\"C:\\c.dll\" ";
    Texts expected{scanner + " /first " + first, scanner + " /first " + second, scanner + " /second " + first,
                   scanner + " /second " + second};
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(lines(), expected);

    // A scanner that cannot start ends the scan with its path; none named is no
    // scanner either, and the report's files are never started themselves.
    const std::string failure = "Your Anti-Virus program could not be executed!!!\rPlease verify the path of the software:\r";
    for (const std::string& first : {path("missing.exe") + "|/first", std::string()}) {
        scanners(first);
        boxes.answers = {box::Ok};
        mainWindow.report.cScnLog.userClick();
        EXPECT_EQ(boxes.shown.back().prompt, failure + first.substr(0, first.find('|')));
    }
    open("03-05-2006\\3:04:08 PM");  // the heading alone: nothing starts, success all the same
    boxes.answers = {box::Ok};
    mainWindow.report.cScnLog.userClick();
    EXPECT_EQ(boxes.shown.back().prompt, "Anti-Virus program executed successfully!");
    EXPECT_EQ(lines().size(), 4u);
}

}  // namespace
}  // namespace tv::test
