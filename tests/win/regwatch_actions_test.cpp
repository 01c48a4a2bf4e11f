// The RegWatch page's buttons and choices over the test prefix's registry;
// scanners are recorded, or the fake scanner where its command line counts.
#include <algorithm>

#include "core/file_utils.h"
#include "regwatch/pending_boot.h"
#include "tests/win/pending_sources.h"
#include "tests/win/regwatch_fixture.h"
#include "ui/main_actions.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

constexpr const char* kPifCommand = "Software\\Classes\\piffile\\shell\\open\\command";

class RegWatchActionsTest : public RegWatchTest {
protected:
    RegWatchActionsTest() { pass.checkRegFile(); }
    void choose(std::size_t row) { page.List5.userSetValue(static_cast<int>(row)); }
    void chooseNode(const std::string& key) { page.TreeView1.userSelectNode(page.TreeView1.nodeIndex(key)); }
    bool entryButtonsEnabled() const {
        EXPECT_EQ(page.Command3.enabled(), page.Command11.enabled());
        return page.Command3.enabled();
    }
};

TEST_F(RegWatchActionsTest, EnteringThePageDisablesItsActionsAndRefreshesNothing) {
    ui::MainActions frame(ctx, main, [] {});
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\foo.exe");
    main.Image7.userClick();
    EXPECT_TRUE(main.regF.visible());
    EXPECT_FALSE(main.Frame2.visible());
    EXPECT_FALSE(page.cScnUpd.enabled() || page.Command3.enabled() || page.Command11.enabled());
    EXPECT_EQ(warnings().size(), 2u);  // still the start-up pass's "no warnings"
    page.Command1.userClick();
    EXPECT_EQ(warnings()[1], "HKEY_CURRENT_USER|Loaded in \\TvFoo (C:\\foo.exe) New Entry!");
    EXPECT_TRUE(page.cScnUpd.enabled());
}

TEST_F(RegWatchActionsTest, AChosenWarningGetsItsEndOnceAndNamesItsEntry) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\foo.exe");
    page.Command1.userClick();
    choose(1);
    const std::string row = "HKEY_CURRENT_USER|Loaded in \\TvFoo (C:\\foo.exe) New Entry!) ";
    EXPECT_EQ(warnings()[1], row);
    EXPECT_EQ(actions.selEntry(), "HKEY_CURRENT_USER|Loaded in ");
    EXPECT_EQ(page.Text4.caption(), "TvFoo (C:\\foo.exe)");
    EXPECT_EQ(page.Label19.caption(), "TvFoo (C:\\foo.exe)");
    EXPECT_EQ(page.List5.toolTip(), row);
    EXPECT_TRUE(entryButtonsEnabled());
    choose(0);
    EXPECT_FALSE(entryButtonsEnabled());
    choose(1);
    EXPECT_EQ(warnings()[1], row);

    // A value cut at its NUL: the ") " gives its text an end.
    put(HKEY_CURRENT_USER, kRunKey, "TvFoo", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    page.Command1.userClick();
    choose(1);
    EXPECT_EQ(warnings()[1], "HKEY_CURRENT_USER|Loaded in \\TvFoo (%windir%\\x.exe New Entry!) ");
    EXPECT_EQ(page.Text4.caption(), "TvFoo (%windir%\\x.exe New Entry!)");

    remove(HKEY_CURRENT_USER, kRunKey, "TvFoo");
    page.Command1.userClick();
    choose(1);  // "*No new or modified Registry Entries*"
    EXPECT_FALSE(entryButtonsEnabled());
}

TEST_F(RegWatchActionsTest, OnlyValueNodesAreEntriesAndOpeningANodeDisablesTheActions) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\foo.exe");
    page.Command1.userClick();
    for (const char* key : {"LOCAL", "!ULIR", "!RSWP"}) {
        chooseNode("#1 (C:\\foo.exe)");
        chooseNode(key);
        EXPECT_FALSE(entryButtonsEnabled()) << key;
    }
    chooseNode("#1 (C:\\foo.exe)");
    EXPECT_TRUE(entryButtonsEnabled());
    EXPECT_EQ(page.Label19.caption(), "TvFoo (C:\\foo.exe)");
    EXPECT_EQ(page.Text4.caption(), "TvFoo (C:\\foo.exe)");
    EXPECT_EQ(actions.selEntry(), "HKEY_CURRENT_USER|Loaded in Run");
    page.TreeView1.userExpandNode(page.TreeView1.nodeIndex("USER"), false);
    EXPECT_FALSE(entryButtonsEnabled());
}

TEST_F(RegWatchActionsTest, DeleteKeyAsksThenRemovesTheValueAndShowsWhatIsLeft) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvDel", "C:\\del.exe");
    page.Command1.userClick();
    chooseNode("#1 (C:\\del.exe)");
    boxes.answers = {box::No};
    page.Command3.userClick();
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].prompt,
              "WARNING!\r\nYou are about to Delete the key: TvDel\r\nFrom: "
              "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\r\n"
              "Doing this may have unpredictable results!\r\n\r\nContinue?");
    EXPECT_EQ(boxes.shown[0].title, kAppTitle);
    EXPECT_EQ(boxes.shown[0].style, box::YesNo);
    EXPECT_TRUE(valueThere(HKEY_CURRENT_USER, kRunKey, "TvDel"));

    // The user's warning row, whatever key tail it shows, deletes its own value.
    choose(1);
    boxes.answers = {box::Yes};
    page.Command3.userClick();
    EXPECT_EQ(boxes.shown[1].prompt, boxes.shown[0].prompt);
    EXPECT_FALSE(valueThere(HKEY_CURRENT_USER, kRunKey, "TvDel"));
    EXPECT_EQ(page.Text4.caption(), "");
    EXPECT_FALSE(page.Command3.enabled());
    EXPECT_EQ(page.TreeView1.nodeIndex("#1 (C:\\del.exe)"), ui::kNoNode);

    // The machine's warning rows carry their own tail.
    putText(HKEY_LOCAL_MACHINE, kRunOnceKey, "TvOnce", "C:\\once.exe");
    page.Command1.userClick();
    choose(1);
    boxes.answers = {box::Yes};
    page.Command3.userClick();
    EXPECT_FALSE(valueThere(HKEY_LOCAL_MACHINE, kRunOnceKey, "TvOnce"));
    EXPECT_TRUE(processes.started.empty());
}

TEST_F(RegWatchActionsTest, ShellCommandsAreNeverDeletedButTheRegistryEditorIsOffered) {
    put(HKEY_LOCAL_MACHINE, kPifCommand, "", REG_SZ, "x.exe \"%1\" %*\0"s);
    page.Command1.userClick();
    for (const char* key : {"#10 (x.exe \"%1\" %*)", "#5 (x.exe \"%1\" %*)"}) {
        chooseNode(key);
        boxes.answers = {box::No};
        page.Command3.userClick();
        EXPECT_EQ(boxes.shown.back().prompt,
                  "This key will not be deleted.\r\nYou must change the value manually. Would you like to open the "
                  "Registry for Editing now?");
        EXPECT_EQ(boxes.shown.back().title, "Caution");
        EXPECT_TRUE(processes.started.empty());
    }
    boxes.answers = {box::Yes};
    page.Command3.userClick();
    EXPECT_EQ(processes.started, (std::vector<std::pair<std::string, int>>{{"regedit.exe", show::MinimizedFocus}}));
    EXPECT_TRUE(valueThere(HKEY_LOCAL_MACHINE, kPifCommand, ""));
}

// The fake scanner stands in for both scanners; what it is given is exact.
class RegWatchScanTest : public RegWatchTest {
protected:
    RegWatchScanTest() : RegWatchTest(true) {
        useFakeScanners();
        ctx.quoteChar = "\"";
        pass.checkRegFile();
        fake = fakeScannerPath();
    }
    std::string fake;
};

TEST_F(RegWatchScanTest, ScanFileHandsTheChosenValuesFileToBothScanners) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvScan", path("tool.exe") + " /run");
    page.Command1.userClick();
    page.List5.userSetValue(1);
    page.Command11.userClick();
    // A bare name found nowhere is the user's to scan.
    page.Label19.setCaption("x (tv-nowhere-at-all.exe)");
    boxes.answers = {box::Ok};
    page.Command11.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Cannot find file, please scan manually");
    // Shell metacharacters reach the scanner as they are: no command interpreter.
    page.Label19.setCaption("x (C:\\a&b|c^d%PATH%.exe -z)");
    page.Command11.userClick();
    // A quoted path goes in as it stands, unshortened.
    ctx.shortPaths = true;
    page.Label19.setCaption("x (\"C:\\a b\\x.exe\" \"%1\")");
    page.Command11.userClick();
    auto lines = scannedLines(6);
    std::sort(lines.begin(), lines.end());
    const std::string tool = " \"" + path("tool.exe") + "\"";
    EXPECT_EQ(lines, (std::vector<std::string>{fake + " /x \"C:\\a b\\x.exe\"", fake + " /x \"C:\\a&b|c^d%PATH%.exe\"",
                                               fake + " /x" + tool, fake + " /y \"C:\\a b\\x.exe\"",
                                               fake + " /y \"C:\\a&b|c^d%PATH%.exe\"", fake + " /y" + tool}));
}

TEST_F(RegWatchScanTest, ScanAndUpdateHandsEveryWarningInOneRunThenAcceptsAndReports) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvA", path("a.exe") + " -s");
    putText(HKEY_CURRENT_USER, kRunKey, "TvB", "tv-missing-bare.exe");
    page.Command1.userClick();
    ASSERT_EQ(warnings().size(), 3u);
    std::string files;
    for (std::size_t row = 1; row < 3; ++row)
        files += warnings()[row].find("TvA") != std::string::npos ? " \"" + path("a.exe") + "\"" : " ";
    boxes.answers = {box::Ok};
    page.cScnUpd.userClick();
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].prompt, "Unable to find the file: tv-missing-bare.exe\r\nPlease scan manually.");
    auto lines = scannedLines(2);
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, (std::vector<std::string>{fake + " /x " + files, fake + " /y " + files}));
    EXPECT_EQ(warnings(), (std::vector<std::string>{kWarningsHeading, kNoWarnings}));
    EXPECT_FALSE(ctx.regNew);
    EXPECT_EQ(profiles.get("CU/R", "TvB", 250, ctx.regFile), "(tv-missing-bare.exe)");
    EXPECT_EQ(reports(),
              std::vector<std::string>{"Registry Action - Scan and Update Multiple Entries," + path("a.exe") + "\r\n"});
    page.Command1.userClick();
    EXPECT_EQ(warnings()[1], kNoWarnings);

    // A list of its heading alone: nothing is started and nothing accepted.
    const std::string recorded = snapshot();
    putText(HKEY_CURRENT_USER, kRunKey, "TvC", "C:\\c.exe");
    page.List5.clearItems();
    page.List5.addItem(kWarningsHeading);
    actions.scanAndUpdateWarnings();
    EXPECT_EQ(snapshot(), recorded);
    remove(HKEY_CURRENT_USER, kRunKey, "TvC");

    // In a shut-down nothing is asked.
    ctx.shutAction = 8;
    putText(HKEY_CURRENT_USER, kRunKey, "TvB", "tv-still-missing.exe");
    page.Command1.userClick();
    actions.scanAndUpdateWarnings();
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(scannedLines(4).size(), 4u);
}

// A wininit.ini and a pending rename value, both pointing into the test's folder.
class PendingViewTest : public RegWatchScanTest {
protected:
    PendingViewTest() : sources(getWinDir(ctx)), wininit(sources.wininit()) {}
    void pendingValue(const std::string& bytes) { sources.pendingValue(bytes); }

    PendingSources sources;
    const std::string& wininit;
};

TEST_F(PendingViewTest, WininitAndTheRenameValueAreListedAndScannedAsAPrecaution) {
    ASSERT_FALSE(files.canRead(wininit)) << "a wininit.ini is left in the prefix";
    ASSERT_TRUE(files.writeAll(wininit, "[Rename]\r\nNUL=" + path("gone.tmp") + "\r\n" + path("new.dll") + "=" +
                                            path("old.dll") + "\r\n"));
    pendingValue("\\??\\" + path("p.tmp") + "\0\0"s);
    page.cMod.userClick();
    EXPECT_EQ(page.List6.items(),
              (std::vector<std::string>{kPendingHeading, path("gone.tmp") + " {To be Deleted}",
                                        path("old.dll") + " {To be Overwritten}", path("p.tmp")}));
    EXPECT_FALSE(page.TreeView1.visible());
    EXPECT_TRUE(page.List6.visible());
    EXPECT_EQ(page.Command11.caption(), "Scan all Files for Viruses");
    EXPECT_TRUE(page.Command11.enabled());
    EXPECT_FALSE(page.Command3.enabled() || page.cScnUpd.enabled());
    page.List6.userSetValue(1);
    EXPECT_EQ(page.Text4.caption(), path("gone.tmp") + " {To be Deleted}");
    EXPECT_TRUE(boxes.shown.empty());

    page.Command11.userClick();
    const std::string list = " \"" + path("gone.tmp") + "\" \"" + path("old.dll") + "\" \"" + path("p.tmp") + "\"";
    auto lines = scannedLines(2);
    std::sort(lines.begin(), lines.end());
    EXPECT_EQ(lines, (std::vector<std::string>{fake + " /x " + list, fake + " /y " + list}));
    EXPECT_EQ(page.List6.items()[1], path("gone.tmp"));  // the suffixes are gone from the screen
    EXPECT_EQ(reports(), std::vector<std::string>{
                             "Precautionary Scan - These files were to be renamed/deleted/overwritten at startup," +
                             path("gone.tmp") + "," + path("old.dll") + "," + path("p.tmp") + "\r\n"});

    page.Command1.userClick();
    EXPECT_TRUE(page.TreeView1.visible());
    EXPECT_FALSE(page.List6.visible());
    EXPECT_EQ(page.Command11.caption(), "Scan File for Viruses");
}

TEST_F(PendingViewTest, NothingPendingIsSaidSoAndTheListKeepsItsHeading) {
    ASSERT_FALSE(files.canRead(wininit)) << "a wininit.ini is left in the prefix";
    pendingValue(std::string(300, ' ') + "\0\0"s);  // long, and naming no file
    boxes.answers = {box::Ok};
    page.cMod.userClick();
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].prompt, "No files will be modified or deleted on Restart!");
    EXPECT_EQ(page.List6.items(), std::vector<std::string>{kPendingHeading});
    EXPECT_FALSE(page.Command11.enabled());
}

}  // namespace
}  // namespace tv::test
