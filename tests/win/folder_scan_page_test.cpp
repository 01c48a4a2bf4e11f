#include "core/settings_store.h"
#include "tests/win/scan_fixture.h"
#include "integrity/folder_scan_actions.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

class FolderScanPageTest : public ScanDriverTest {
protected:
    FolderScanPageTest() {
        files.makeFolder(path("tools"));
        files.makeFolder(path("more"));
        // The first scan itself is the scan driver's; here only its start counts.
        host.startFirstCustom = [this](const std::string&, const std::string&) { ++firstScans; };
    }
    void slot(int number, const std::string& folder, const std::string& args) {
        writeEntry(ctx, ctx.settFile, "path", folder, std::to_string(number));
        writeEntry(ctx, ctx.settFile, "args", args, std::to_string(number));
    }
    std::array<int, 6> boxes6() const {
        std::array<int, 6> values{};
        for (int group = 0; group < 6; ++group) values[group] = page.check[group]->value();
        return values;
    }
    std::vector<std::string> shownPages() const {
        std::vector<std::string> shown;
        for (const ui::Control* frame : {&main.intF, &main.regF, &main.appF, &main.setFq, &main.settF, &main.repF,
                                         &main.Frame2})
            if (frame->visible()) shown.push_back(frame->name());
        return shown;
    }

    int firstScans = 0;
    ui::MainWindow main;
    ui::FolderScanPage& page = main.folderScan;
    FolderScanActions actions{ctx, page, host, [this]() -> ScanDriver& { return driver; }, [this] { main.norms2(); }};
};

TEST_F(FolderScanPageTest, FolderListKeepsNoGapsSoAnEarlierEmptySlotShiftsTheIndex) {
    slot(2, "  " + path("tools\\") + " ", "1,0,0,0,0,0,0");
    slot(5, path("more\\"), "0,0,0,0,1,0,0");
    systemBaseline("");
    actions.enter();
    EXPECT_EQ(shownPages(), std::vector<std::string>{"intF"});
    EXPECT_EQ(page.Combo1.items(), (std::vector<std::string>{path("sys\\"), path("tools\\"), path("more\\")}));
    EXPECT_EQ(page.Combo1.value(), 0);
    // "tools" stands as item 1, so slot 1's data file and settings are the ones read.
    writeFile("Data\\1.dat", "");
    slot(1, "NULL", "0,0,1,0,0,1,0");
    page.Combo1.userSetValue(1);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(boxes6(), (std::array<int, 6>{0, 0, 1, 0, 0, 1}));
    page.Combo1.userSetValue(0);  // the system directory leaves the boxes alone
    EXPECT_EQ(boxes6(), (std::array<int, 6>{0, 0, 1, 0, 0, 1}));
}

TEST_F(FolderScanPageTest, MissingBaselineRestartsTheProgramOnYesOnly) {
    writeFile("Data\\Integrity.bak", "old");
    boxes.answers = {box::No};
    actions.enter();
    EXPECT_TRUE(shownPages().empty());  // the bare frame
    EXPECT_EQ(boxes.shown[0].title, "Missing File");
    EXPECT_TRUE(processes.started.empty());
    boxes.answers = {box::Yes, box::Ok};
    actions.enter();
    EXPECT_EQ(boxes.shown[2].prompt, "Tarvelon needs to be re-started");
    EXPECT_FALSE(files.canRead(path("Data\\Integrity.bak")));
    ASSERT_EQ(processes.started.size(), 1u);
    EXPECT_EQ(processes.started[0], std::make_pair("\"" + path("TarvelonLow.exe") + "\"", show::MinimizedFocus));
    EXPECT_TRUE(host.ended);
}

TEST_F(FolderScanPageTest, ToggleButtonsSelectAllAndClear) {
    writeFile("Data\\Integrity.dat", "");
    boxes.answers = {box::Ok};
    page.bSCAN.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Please select the files to scan.");
    EXPECT_FALSE(window.visible());
    page.groupButtons[1]->userClick();
    page.groupButtons[5]->userClick();
    EXPECT_EQ(boxes6(), (std::array<int, 6>{0, 1, 0, 0, 0, 1}));
    page.groupButtons[1]->userClick();
    EXPECT_EQ(boxes6(), (std::array<int, 6>{0, 0, 0, 0, 0, 1}));
    page.bFULL.userClick();
    EXPECT_EQ(boxes6(), (std::array<int, 6>{1, 1, 1, 1, 1, 1}));
    page.bCLEAR.userClick();
    EXPECT_EQ(boxes6(), (std::array<int, 6>{}));
}

TEST_F(FolderScanPageTest, ScanOfACustomFolderRunsOnlyThatFolder) {
    writeFile("tools\\t.dll", "t");
    systemFile("a.dll", "a");
    slot(1, path("tools\\"), "1,1,1,1,1,1,1");
    systemBaseline("");
    writeFile("Data\\1.dat", "[DLL]\r\nt.dll=" + hash::getChecksum(ctx, path("tools\\t.dll")) + "*E\r\nNULL*E\r\n");
    actions.loadf();
    page.Combo1.userSetValue(1);
    EXPECT_EQ(boxes6(), (std::array<int, 6>{1, 1, 1, 1, 1, 1}));
    page.bSCAN.userClick();
    EXPECT_EQ(ctx.customFolder, path("tools\\"));
    EXPECT_EQ(ctx.scan.customIndex, 1);
    EXPECT_EQ(ctx.scan.customQueue, "");
    runTimer();
    EXPECT_EQ(ctx.scan.newCount, 0);  // a.dll of the system directory is not looked at
    EXPECT_EQ(ctx.scan.failCount, 0);
    EXPECT_EQ(window.Label6.caption(), "1");
}

TEST_F(FolderScanPageTest, RefusedFirstScanGoesBackToTheSystemDirectory) {
    slot(1, path("tools\\"), "1,0,0,0,0,0,0");
    systemBaseline("");
    actions.loadf();
    boxes.answers = {box::No, box::Ok};
    page.Combo1.userSetValue(1);
    EXPECT_EQ(page.Combo1.value(), 0);
    EXPECT_FALSE(files.canRead(path("Data\\1.dat")));
    EXPECT_EQ(firstScans, 0);
}

TEST_F(FolderScanPageTest, VanishedFolderGetsABaselineOfHeadingsAndShortArgsTickWhatTheyName) {
    slot(1, path("gone\\"), "0,1");
    systemBaseline("");
    actions.loadf();
    page.bFULL.userClick();
    boxes.answers = {box::Yes};
    page.Combo1.userSetValue(1);
    const std::string baseline = readFile("Data\\1.dat");
    EXPECT_EQ(baseline.find("=NULL*E"), std::string::npos);  // no file entries at all
    EXPECT_NE(baseline.find("[DLL]\r\nNULL*E\r\n"), std::string::npos);
    EXPECT_EQ(firstScans, 1);
    EXPECT_EQ(boxes6(), (std::array<int, 6>{0, 1, 0, 0, 0, 0}));
}

}  // namespace
}  // namespace tv::test
