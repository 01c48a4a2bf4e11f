// The reports in Data\Log\ over files in memory: the name and line writeLog makes, and the log browser's tree, report
// page, scan and deletions. A real report folder listed, a report opened, handed to the fake scanners and deleted are
// the end-to-end scenario's.
#include "logging/log_browser_page.h"
#include "logging/write_log.h"
#include "tests/ui/app_fixture.h"

namespace tv {
namespace {

using test::Texts;

class Reports : public test::AppTest {
protected:
    Reports() : AppTest({{"antivirus=", "antivirus=C:\\AV\\a.exe|/x"}}) {
        os.files.makeFolder("C:\\Tarvelon\\Data\\Log");
        window.settings.Check7.setValue(1);  // Auto-Logging
    }
    void report(const std::string& name, std::string text = "Heading,C:\\A.DLL\r\n") { os.files.put(folder + name, text); }
    bool there(const std::string& name) const { return os.files.content(folder + name) != nullptr; }
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
    void open(const std::string& fullPath) {
        page.cReports.userClick();
        select(fullPath);
        page.cViewReport.userClick();
    }

    const std::string folder = "C:\\Tarvelon\\Data\\Log\\";
    ui::LogBrowserPage& page = window.logBrowser;
    ui::Control& tree_ = page.TreeView2;
    const Texts& list = window.report.List4.items();
};

// The regional date with "/" made "-" and each part but the last padded, the time without blanks and with "_" for
// ":". A file with a blank stays whole in quotes; a second report of the second gets a name of its own.
TEST_F(Reports, WrittenUnderTheRegionalDateAndTimeBehindTheirGate) {
    for (const auto& [date, time, name] : {std::tuple{"3/5/2006", "3:04:07 PM", "03-05-2006(3_04_07PM)"},
                                           {"3//5", "a b:c", "03--5(ab_c)"}}) {
        os.clock.now = {date, time};
        ASSERT_EQ(logFileName(ctx), folder + name + ".log");
    }
    const Texts blanks{"\"C:\\A B.DLL\" ", "C:\\C.DLL "};
    ASSERT_EQ(writeLog(ctx, "Heading,", blanks), LogOutcome::Written);
    EXPECT_EQ(*os.files.content(logFileName(ctx)), "Heading,\"C:\\A B.DLL\",C:\\C.DLL\r\n");
    EXPECT_EQ(writeLog(ctx, "Heading,", {"no files here"}), LogOutcome::Skipped);  // no "." in it: no file either
    window.settings.Check7.setValue(0);
    EXPECT_EQ(writeLog(ctx, "Heading,", blanks), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 0);
    ctx.shutAction = 1;  // a secure shut-down learns of the files even with logging off
    EXPECT_EQ(writeLog(ctx, "Heading,", blanks), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 1);
    EXPECT_EQ(writeLog(ctx, "H,", {}, true), LogOutcome::Written);  // forced: the heading alone
    EXPECT_EQ(*os.files.content(folder + "03--5(ab_c) (2).log"), "H,\r\n");
    os.files.folders.erase("C:\\TARVELON\\DATA\\LOG");
    os.boxes.answers = {box::Ok};
    EXPECT_EQ(writeLog(ctx, "H,", {}, true), LogOutcome::Failed);  // and the user is told, once
    EXPECT_TRUE(os.boxes.shown.back().prompt.starts_with("Tarvelon could not write\r\n" + folder));
}

// A date is padded as in the report's name; a time gets its colons and its blank before AM or PM. The nodes come as
// the folder lists the names: here its folders first, then its files by name. Two reports of one second keep a file
// and a node each; a path with a blank or a comma stays whole in the report, and goes to the scanner as one item also
// with quoting off; a report of the former kind opens as it always did. A folder is no report, nor is a padded name that is not there.
TEST_F(Reports, TreeOfDatesAndTimesInTheFoldersOrder) {
    os.clock.now = {"3/5/2006", "3:04:07 PM"};
    ASSERT_EQ(writeLog(ctx, "First,", {"\"C:\\P F\\x.dll\" ", " \"C:\\a,b.dll\"", "C:\\c.dll "}), LogOutcome::Written);
    ASSERT_EQ(writeLog(ctx, "Second,", {"C:\\second.dll "}), LogOutcome::Written);
    os.files.makeFolder(folder + "03-07-2006(1_00_00AM).log");  // listed like a report
    report("03-04-2006(1_00_00AM).log", "Former,C:\\Program,Files\\y.dll\r\n");
    for (const char* name : {"3-6-2006(9_15_00AM).LOG", "2006.03.08(13_04_07).log", "a(b)c(d).log", "notes.log",
                             "readme.txt", "x(.log", "y(3_04_07pm).log"})
        report(name);  // no "(": no date; no ")": no time; "am" and "pm" are no marks
    page.cReports.userClick();
    EXPECT_EQ(tree(), (Texts{"03-07-2006", "03-07-2006\\1:00:00 AM", "03-04-2006", "03-04-2006\\1:00:00 AM", "03-05-2006",
                             "03-05-2006\\3:04:07 PM", "03-05-2006\\3:04:07 PM", "2006.03.08", "2006.03.08\\13:04:07",
                             "03-06-2006", "03-06-2006\\9:15:00 AM", "a", "a\\b", "x", "x\\", "y", "y\\3:04:07pm"}));
    os.boxes.answers = {box::Ok, box::Ok};
    open("03-07-2006\\1:00:00 AM");
    open("03-06-2006\\9:15:00 AM");  // made again as "03-06-2006(9_15_00AM).log"
    EXPECT_EQ(lastBox() + std::to_string(os.boxes.shown.size()), "Error - This report does not exist and could not be opened.2");
    EXPECT_TRUE(page.Label26.visible() && !window.repF.visible());
    Texts opened;
    for (const std::size_t node : {3, 5, 6}) {
        tree_.userSelectNode(node);
        page.cViewReport.userClick();
        opened.insert(opened.end(), list.begin(), list.end());
    }
    EXPECT_EQ(opened, (Texts{"Former", "C:\\Program", "Files\\y.dll", "Second", "C:\\second.dll", "First",
                             "C:\\P F\\x.dll", "C:\\a,b.dll", "C:\\c.dll"}));
    ctx.quoteChar.clear();
    ctx.passCount = 3;
    click(window.report.cScnLog, {box::Ok});
    EXPECT_EQ(os.processes.started.at(0).first, "C:\\AV\\a.exe /x \"C:\\P F\\x.dll\" C:\\a,b.dll C:\\c.dll ");
}

// The first empty field ends the list, a CR LF is a comma, a report of any size is read whole; one of its heading
// alone starts no scanner, and a scanner that will not start is named.
TEST_F(Reports, ReportPageListsTheHeadingAndTheFilesForTheScanners) {
    std::string big = "Heading";
    while (big.size() < 4u << 20) big += ",C:\\WINDOWS\\system32\\file" + std::to_string(big.size()) + ".dll";
    for (const auto& [content, fields] : {std::pair<std::string, Texts>{" H , A \r\nB,,C", {"H", "A", "B"}},
                                          {"H,A\nB\r\r\nC", {"H", "A\nB\r", "C"}}, {std::string(9, ','), {}},
                                          {std::string(64, '\0'), {std::string(64, '\0')}}, {big + "\r\n", {}}}) {
        report("03-05-2006(3_04_07PM).log", content);
        open("03-05-2006\\3:04:07 PM");
        if (content.size() < 100) { EXPECT_EQ(list, fields); }
    }
    EXPECT_TRUE(list.size() - 1 == static_cast<std::size_t>(std::count(big.begin(), big.end(), ',')) && list.back() == big.substr(big.rfind(',') + 1));
    EXPECT_TRUE(window.repF.visible() && !page.Label26.visible() && !window.setFq.visible());
    report("03-05-2006(3_04_08PM).log", "Heading\r\n");
    page.cReports.userClick();
    select("03-05-2006\\3:04:08 PM");
    tree_.userDoubleClick();  // a double click on a time opens it too
    click(window.report.cScnLog, {box::Ok});
    EXPECT_EQ(lastBox() + std::to_string(os.processes.started.size()), "Anti-Virus program executed successfully!0");
    report("03-05-2006(3_04_07PM).log");
    open("03-05-2006\\3:04:07 PM");
    os.processes.refuse = true;  // the scan ends with the first scanner's path
    click(window.report.cScnLog, {box::Ok});
    EXPECT_EQ(lastBox(), "Your Anti-Virus program could not be executed!!!\rPlease verify the path of the software:\r"
                         "C:\\AV\\a.exe");
}

// Deleting goes on the user's word, and the tree is loaded again. The Delete key: No leaves the tree alone; any
// other key loads it again. A date goes with its times. Delete All Logs takes every report the system lets go, and nothing else.
TEST_F(Reports, GoOnTheUsersWordAndTheTreeIsLoadedAgain) {
    for (const char* name : {"03-05-2006(1_00_00AM).log", "03-05-2006(3_00_00AM).log", "03-06-2006(2_00_00AM).log",
                             "03-06-2006(4_00_00AM).log", "03-08-2006(.log"})
        report(name);
    open("03-05-2006\\1:00:00 AM");
    click(window.report.cDelLog, {box::No});
    EXPECT_TRUE(window.repF.visible() && there("03-05-2006(1_00_00AM).log"));
    report("03-07-2006(1_00_00AM).log");
    select("03-06-2006\\2:00:00 AM");
    os.boxes.answers = {box::No, box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(lastBox() + std::to_string(tree_.nodes().size()), "Delete Log Entry?8");
    tree_.userKeyDown('A');
    EXPECT_EQ(tree_.nodes().size(), 10u);
    select("03-07-2006\\1:00:00 AM");
    tree_.userKeyDown(ui::key::Delete);  // Yes: that report goes, and its date with it
    EXPECT_EQ(tree_.nodes().size(), 8u);
    select("03-06-2006");
    os.boxes.answers = {box::Yes};
    tree_.userKeyDown(ui::key::Delete);
    EXPECT_EQ(lastBox(), "Delete All Logs on this (03-06-2006) Date?");
    EXPECT_EQ(tree(), (Texts{"03-05-2006", "03-05-2006\\1:00:00 AM", "03-05-2006\\3:00:00 AM", "03-08-2006",
                             "03-08-2006\\"}));
    report("readme.txt");
    os.files.locked.insert("C:\\TARVELON\\DATA\\LOG\\03-05-2006(3_00_00AM).LOG");
    click(page.cButton3, {box::No});
    EXPECT_EQ(tree_.nodes().size(), 5u);
    click(page.cButton3, {box::Yes});
    EXPECT_EQ(lastBox(), "Are you sure you want to delete all the logs?");
    EXPECT_TRUE(tree_.nodes().empty() && there("readme.txt") && there("03-05-2006(3_00_00AM).log") &&
                !there("03-08-2006(.log"));
}

}  // namespace
}  // namespace tv
