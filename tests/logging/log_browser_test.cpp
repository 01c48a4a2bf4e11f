#include <gtest/gtest.h>

#include "logging/log_browser.h"
#include "tests/core/fakes.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"

namespace tv {
namespace {

using Texts = std::vector<std::string>;
constexpr const char* kLog = "C:\\T\\Data\\Log\\";

class LogBrowserTest : public ::testing::Test {
protected:
    LogBrowserTest() {
        ctx.appPath = "C:\\T\\";
        ctx.settFile = "C:\\T\\Data\\Tarvelon.dat";
        os.files.folders = {"C:\\T", "C:\\T\\DATA", "C:\\T\\DATA\\LOG"};
    }
    void report(const std::string& name, std::string content = "Heading,C:\\A.DLL\r\n") {
        os.files.put(kLog + name, std::move(content));
    }
    bool there(const std::string& name) const { return os.files.content(kLog + name) != nullptr; }
    Texts tree() const {
        Texts paths;
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node) paths.push_back(tree_.fullPath(node));
        return paths;
    }
    void select(const std::string& fullPath) {
        for (std::size_t node = 0; node < tree_.nodes().size(); ++node)
            if (tree_.fullPath(node) == fullPath) return tree_.userSelectNode(node);
        FAIL() << "no node " << fullPath;
    }
    void load() { window.logBrowser.cReports.userClick(); }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::MainWindow window;
    ui::Control& tree_ = window.logBrowser.TreeView2;
    ui::Control& viewLog = window.logBrowser.cViewReport;
    ui::Control& list = window.report.List4;
    LogBrowser browser{ctx, window.logBrowser, window.report, window.setFq, [this] { window.norms2(); }};
};

// Same clock time on two dates: a daily scan at log-on writes such pairs.
TEST_F(LogBrowserTest, LoadShowsDatesWithTheirTimesInTheFoldersOrder) {
    report("03-05-2006(3_04_07PM).log");
    report("03-06-2006(3_04_07PM).log");
    report("3-5-2006(9_00_00AM).log");  // padded, it joins its date
    report("notes.log");                // no "(": no date
    report("readme.txt");
    os.files.folders.insert("C:\\T\\DATA\\LOG\\OLD(1_00_00AM).LOG");  // a folder named like a report
    load();
    const Texts expected{"OLD",        "OLD\\1:00:00 AM", "03-05-2006", "03-05-2006\\3:04:07 PM",
                         "03-06-2006", "03-06-2006\\3:04:07 PM", "03-05-2006\\9:00:00 AM"};
    EXPECT_EQ(tree(), expected);
    EXPECT_EQ(os.loop.pumps, 10);  // before and after each name taken for a report
    load();
    EXPECT_EQ(tree(), expected);

    os.files.folders.erase("C:\\T\\DATA\\LOG");  // no folder: an empty tree
    load();
    EXPECT_TRUE(tree().empty());
}

TEST_F(LogBrowserTest, ViewLogIsOfferedOnATimeOnlyUntilANodeOpensOrCloses) {
    report("03-05-2006(3_04_07PM).log");
    report("2006.03.06(13_04_07).log");
    ui::MainActions actions{ctx, window, [] {}};
    window.Image11.userClick();
    EXPECT_FALSE(viewLog.enabled());
    load();
    select("03-05-2006\\3:04:07 PM");
    EXPECT_TRUE(viewLog.enabled());
    select("03-05-2006");
    EXPECT_FALSE(viewLog.enabled());
    select("2006.03.06");  // the decision rests on the "-" alone
    EXPECT_TRUE(viewLog.enabled());
    tree_.userExpandNode(0, true);
    EXPECT_FALSE(viewLog.enabled());
    select("2006.03.06\\13:04:07");
    tree_.userExpandNode(0, false);
    EXPECT_FALSE(viewLog.enabled());
}

TEST_F(LogBrowserTest, OpenShowsTheReportAndCloseGoesBackToOptions) {
    report("03-05-2006(3_04_07PM).log", "Integrity Checker - Heading, C:\\A.DLL,C:\\Program,Files\\B.DLL\r\n");
    report("03-06-2006(3_04_07PM).log", ",,,");
    load();
    select("03-05-2006\\3:04:07 PM");
    window.report.List4.addItem("left over");
    viewLog.userClick();
    EXPECT_EQ(list.items(), (Texts{"Integrity Checker - Heading", "C:\\A.DLL", "C:\\Program", "Files\\B.DLL"}));
    EXPECT_TRUE(window.repF.visible());
    EXPECT_FALSE(window.setFq.visible());
    EXPECT_FALSE(window.logBrowser.Label26.visible());
    window.report.cX.userClick();
    EXPECT_TRUE(window.setFq.visible());
    EXPECT_FALSE(window.repF.visible());

    select("03-06-2006\\3:04:07 PM");
    tree_.userDoubleClick();  // a double click on a time opens it too; only commas: no entry
    EXPECT_TRUE(list.items().empty());
    EXPECT_TRUE(window.repF.visible());

    window.report.cX.userClick();
    select("03-06-2006");
    tree_.userDoubleClick();  // not on a date
    EXPECT_TRUE(window.setFq.visible());
}

TEST_F(LogBrowserTest, MissingReportSaysSoAndLeavesTheNoticeUp) {
    report("03-05-2006(3_04_07PM).log");
    report("2006.03.06(13_04_07).log");
    load();
    select("03-05-2006\\3:04:07 PM");
    os.files.files.clear();  // deleted since the tree was made
    os.boxes.answers = {box::Ok, box::Ok};
    viewLog.userClick();
    ASSERT_EQ(os.boxes.shown.size(), 1u);
    EXPECT_EQ(os.boxes.shown[0].prompt, "Error - This report does not exist and could not be opened.");
    EXPECT_EQ(os.boxes.shown[0].style, box::OkOnly);
    EXPECT_TRUE(window.logBrowser.Label26.visible());
    EXPECT_FALSE(window.repF.visible());
    select("2006.03.06");  // a date is no report
    viewLog.userClick();
    EXPECT_EQ(os.boxes.shown.size(), 2u);
}

class ScanAgain : public LogBrowserTest {
protected:
    ScanAgain() {
        ctx.passCount = 2;
        ctx.quoteChar = "\"";
        os.files.put(ctx.settFile, "[Tarvelon]\r\nantivirus=C:\\AV\\scan.exe|/all \r\nav2=C:\\AV\\two.exe| \r\n");
    }
    void open(const std::string& content) {
        report("03-05-2006(3_04_07PM).log", content);
        load();
        select("03-05-2006\\3:04:07 PM");
        viewLog.userClick();
    }
    std::vector<std::string> started() const {
        std::vector<std::string> lines;
        for (const auto& [line, style] : os.processes.started) lines.push_back(line);
        return lines;
    }
};

TEST_F(ScanAgain, FilesButNotTheHeadingGoToBothScannersInBatches) {
    open("Heading,C:\\A.DLL,C:\\B.DLL,C:\\C.DLL\r\n");
    os.boxes.answers = {box::Ok};
    window.report.cScnLog.userClick();
    const std::string first = "\"C:\\A.DLL\" \"C:\\B.DLL\" ", second = "\"C:\\C.DLL\" ";
    EXPECT_EQ(started(), (Texts{"C:\\AV\\scan.exe /all " + first, "C:\\AV\\two.exe  " + first,
                                "C:\\AV\\scan.exe /all " + second, "C:\\AV\\two.exe  " + second}));
    EXPECT_EQ(os.boxes.shown.at(0).prompt, "Anti-Virus program executed successfully!");
}

TEST_F(ScanAgain, HeadingAloneStartsNothingAndStillSaysItSucceeded) {
    open("Heading\r\n");
    os.boxes.answers = {box::Ok};
    window.report.cScnLog.userClick();
    EXPECT_TRUE(started().empty());
    EXPECT_EQ(os.boxes.shown.at(0).prompt, "Anti-Virus program executed successfully!");
}

TEST_F(ScanAgain, ScannerThatDoesNotStartEndsTheScanWithItsPath) {
    open("Heading,C:\\A.DLL,C:\\B.DLL,C:\\C.DLL\r\n");
    os.processes.refuse = true;
    os.boxes.answers = {box::Ok};
    window.report.cScnLog.userClick();
    EXPECT_EQ(os.boxes.shown.at(0).prompt,
              "Your Anti-Virus program could not be executed!!!\rPlease verify the path of the software:\rC:\\AV\\scan.exe");
    EXPECT_EQ(os.boxes.shown.size(), 1u);

    // No scanner named: the files are never started as programs themselves.
    os.processes.refuse = false;
    os.files.put(ctx.settFile, "[Tarvelon]\r\nantivirus=\r\n");
    os.boxes.answers = {box::Ok};
    window.report.cScnLog.userClick();
    EXPECT_TRUE(started().empty());
    EXPECT_EQ(os.boxes.shown.at(1).prompt.rfind("Your Anti-Virus program could not be executed!!!", 0), 0u);
}

TEST_F(LogBrowserTest, DeleteThisReportAfterAYes) {
    report("03-05-2006(3_04_07PM).log");
    report("03-06-2006(3_04_07PM).log");
    load();
    select("03-06-2006\\3:04:07 PM");
    viewLog.userClick();
    os.boxes.answers = {box::No, box::Yes};
    window.report.cDelLog.userClick();
    EXPECT_TRUE(there("03-06-2006(3_04_07PM).log"));
    EXPECT_TRUE(window.repF.visible());
    window.report.cDelLog.userClick();
    EXPECT_EQ(os.boxes.shown[1].prompt, "Are you sure you want to delete this Report?");
    EXPECT_FALSE(there("03-06-2006(3_04_07PM).log"));
    EXPECT_TRUE(there("03-05-2006(3_04_07PM).log"));
    EXPECT_TRUE(window.setFq.visible());
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\3:04:07 PM"}));  // the date went with its last report
}

TEST_F(LogBrowserTest, DeleteKeyOnATimeOrADateAndAnyOtherKeyLoadsAgain) {
    report("03-05-2006(3_04_07PM).log");
    report("03-05-2006(9_00_00AM).log");
    report("03-06-2006(3_04_07PM).log");
    load();
    select("03-05-2006\\3:04:07 PM");
    report("03-07-2006(1_00_00AM).log");  // not in the tree yet
    os.boxes.answers = {box::No};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(os.boxes.shown.back().prompt, "Delete Log Entry?");
    EXPECT_EQ(tree().size(), 5u);  // No leaves the tree alone
    os.boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_FALSE(there("03-05-2006(3_04_07PM).log"));
    EXPECT_EQ(tree().size(), 6u);

    select("03-05-2006");
    tree_.userKeyDown('A');  // any key loads the tree again
    EXPECT_TRUE(tree_.selectedNode() == ui::kNoNode);
    select("03-05-2006");
    os.boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(os.boxes.shown.back().prompt, "Delete All Logs on this (03-05-2006) Date?");
    EXPECT_FALSE(there("03-05-2006(9_00_00AM).log"));
    EXPECT_EQ(tree(), (Texts{"03-06-2006", "03-06-2006\\3:04:07 PM", "03-07-2006", "03-07-2006\\1:00:00 AM"}));
}

// Some file systems list the reports of two dates mixed: the date's own
// reports go, and no other date's.
TEST_F(LogBrowserTest, DeleteKeyOnADateWhoseTimesAreNotTogether) {
    for (const char* name : {"03-05-2006(1_00_00AM).log", "03-06-2006(2_00_00AM).log", "03-05-2006(3_00_00AM).log",
                             "03-05-2006(4_00_00AM).log"})
        report(name);
    tree_.addNode({}, "a", "03-05-2006");
    tree_.addNode("a", "b", "1:00:00 AM");
    tree_.addNode({}, "c", "03-06-2006");
    tree_.addNode("c", "d", "2:00:00 AM");
    tree_.addNode("a", "e", "3:00:00 AM");
    tree_.addNode("a", "f", "4:00:00 AM");
    select("03-05-2006");
    os.boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(tree(), (Texts{"03-06-2006", "03-06-2006\\2:00:00 AM"}));
}

TEST_F(LogBrowserTest, NodeWithoutTextTakesNoKeys) {
    report("03-05-2006(.log");  // no ")": a time without text
    load();
    select("03-05-2006\\");
    tree_.userKeyDown(ui::key::Delete);  // no question
    EXPECT_TRUE(there("03-05-2006(.log"));
    viewLog.userClick();  // nothing to open
    EXPECT_FALSE(window.repF.visible());
    EXPECT_FALSE(window.logBrowser.Label26.visible());
}

TEST_F(LogBrowserTest, DeleteAllLogsTakesEveryReportAndEmptiesTheTree) {
    report("03-05-2006(3_04_07PM).log");
    report("notes.LOG");
    report("readme.txt");
    load();
    os.boxes.answers = {box::No, box::Yes};
    window.logBrowser.cButton3.userClick();
    EXPECT_EQ(os.boxes.shown[0].prompt, "Are you sure you want to delete all the logs?");
    EXPECT_TRUE(there("notes.LOG"));
    EXPECT_EQ(tree().size(), 2u);
    window.logBrowser.cButton3.userClick();
    EXPECT_FALSE(there("03-05-2006(3_04_07PM).log"));
    EXPECT_FALSE(there("notes.LOG"));
    EXPECT_TRUE(there("readme.txt"));
    EXPECT_TRUE(tree().empty());
}

}  // namespace
}  // namespace tv
