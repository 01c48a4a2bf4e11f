#include "core/settings_store.h"
#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "tests/win/scan_fixture.h"

namespace tv::test {
namespace {

// What the primary scan writes is checked against the real system directory
// by the integrity scenario; here that it is taken back into memory at once.
TEST_F(ScanDriverTest, FirstRunYesFillsTheBaselineAndLoadsIt) {
    systemFile("kernel32.dll", "kernel");
    boxes.answers = {box::Yes};
    checkIntFile(ctx, host);
    EXPECT_FALSE(host.mainShown);
    runTimer();
    EXPECT_TRUE(host.mainShown);
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(getEntry(ctx, ctx.intFile, "KERNEL32.DLL", "DLL"), crcOf("kernel32.dll"));
}

TEST_F(ScanDriverTest, RefusedBackupIsDeletedAndTheProgramStartsAnew) {
    writeFile("Data\\Integrity.bak", "[DLL]\r\nNULL*E\r\n");
    boxes.answers = {box::No, box::Ok};
    checkIntFile(ctx, host);
    EXPECT_EQ(boxes.shown[0].title, "Missing Integrity.dat file");
    EXPECT_FALSE(files.canRead(path("Data\\Integrity.bak")));
    EXPECT_TRUE(host.ended);
    ASSERT_EQ(processes.started.size(), 1u);
    EXPECT_EQ(processes.started[0], std::make_pair("\"" + path("TarvelonLow.exe") + "\"", show::MinimizedFocus));
    boxes.answers = {box::Yes};
    writeFile("Data\\Integrity.bak", "kept");
    checkIntFile(ctx, host);
    EXPECT_EQ(readFile("Data\\Integrity.dat"), "kept");
}

TEST_F(ScanDriverTest, LogOnRunPlansCustomFoldersWithTheirOwnGroups) {
    systemFile("a.dll", "a");
    systemFile("b.exe", "b");
    files.makeFolder(path("tools"));
    writeFile("tools\\t.exe", "t");
    writeFile("tools\\u.dll", "u");
    writeEntry(ctx, ctx.settFile, "settings", "1,0,0,0,0,0,0,0", "Tarvelon");
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "3");
    writeEntry(ctx, ctx.settFile, "args", "0,0,0,0,1,0,1", "3");
    systemBaseline("");
    planLogOnRun();
    for (const ui::Control* percent : window.percentLabels) EXPECT_EQ(percent->caption(), "0%");
    EXPECT_EQ(window.l_scust.caption(), "0%");  // the custom folder's row as well
    EXPECT_EQ(ctx.scan.customQueue, "3,");
    EXPECT_EQ(window.pb2max.caption(), "2");  // a.dll of the system, t.exe of the folder
    EXPECT_EQ(ctx.scan.wanted, (std::array<bool, 6>{true, false, false, false, false, false}));
    runTimer();
    EXPECT_EQ(window.l_cust2.caption(), "Custom Folder 1/1");
    EXPECT_EQ(window.l_scust.caption(), "0%");  // the folder's passes show on the system rows
    EXPECT_EQ(ctx.scan.newCount, 2);
    EXPECT_EQ(window.Label13.caption(), "Results");
    EXPECT_TRUE(window.Frame2.visible());
    EXPECT_FALSE(host.ended);  // findings: the results stay
    EXPECT_EQ(window.titles[1]->caption(), "Driver Scan --- Not Scanning");
    // A run that cannot ask wrote the folder's missing baseline blank.
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "u.dll", "DLL"), "NULL*E");
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "t.exe", "EXE"), "NULL*E");
}

TEST_F(ScanDriverTest, FilesComingAndGoingAfterThePlanMoveOnlyThePercentages) {
    systemFile("a.dll", "a");
    systemFile("b.dll", "b");
    systemBaseline("");
    ctx.scan.pageScan = ctx.scan.noAutoAction = true;
    ctx.scan.wanted = {true, false, false, false, false, false};
    driver.loadUp();
    EXPECT_EQ(window.pb2max.caption(), "2");
    files.remove(path("sys\\b.dll"));
    systemFile("c.dll", "c");
    systemFile("d.dll", "d");
    runTimer();
    EXPECT_EQ(window.Label6.caption(), "3");
    EXPECT_EQ(window.caption(), "150% AutoCheck");  // more files than planned
    EXPECT_EQ(window.percentLabels[kPassDll]->caption(), "100%");
    EXPECT_EQ(window.List1.items().size(), 3u);
}

TEST_F(ScanDriverTest, MissingCustomFolderJoinsWithAnEmptyTurn) {
    systemFile("a.dll", "a");
    writeEntry(ctx, ctx.settFile, "settings", "1,0,0,0,0,0,0,0", "Tarvelon");
    writeEntry(ctx, ctx.settFile, "path", path("gone\\"), "1");
    writeEntry(ctx, ctx.settFile, "args", "1,1,1,1,1,1,1", "1");
    systemBaseline("[DLL]\r\nA.DLL=" + crcOf("a.dll") + "*E\r\nNULL*E\r\n");
    logOnRun();
    EXPECT_EQ(window.l_cust2.caption(), "Custom Folder 1/1");
    EXPECT_EQ(window.Label6.caption(), "1");
    EXPECT_TRUE(host.ended);  // nothing found in the folder that is not there
}

TEST_F(ScanDriverTest, ScheduledRunCountsEveryTypeButScansTheSavedOnes) {
    systemFile("a.dll", "a");
    systemFile("b.exe", "b");
    writeEntry(ctx, ctx.settFile, "settings", "1,0,0,0,0,0,0,0", "Tarvelon");
    systemBaseline("[DLL]\r\nA.DLL=" + crcOf("a.dll") + "*E\r\nNULL*E\r\n");
    ctx.cmdLine = "/a";
    ctx.schedRun = ctx.autoLoadRun = true;
    driver.loadUp();
    EXPECT_EQ(window.pb2max.caption(), "2");
    EXPECT_EQ(ctx.scan.wanted, (std::array<bool, 6>{true, false, false, false, false, false}));
    EXPECT_TRUE(ctx.autoScanFailed);  // from the fixed list of the counting
    runTimer();
    EXPECT_EQ(window.Label6.caption(), "1");
    EXPECT_EQ(host.actions, 1);
    EXPECT_TRUE(host.ended);  // clean: b.exe was counted but not scanned
}

TEST_F(ScanDriverTest, CustomFolderWithoutBaselineAsksBeforeItsFirstScan) {
    files.makeFolder(path("tools"));
    writeFile("tools\\t.exe", "t");
    writeFile("tools\\u.DLL", "u");
    writeEntry(ctx, ctx.settFile, "path", path("tools"), "4");
    writeFile("Data\\Integrity.dat", "");
    host.startFirstCustom = [this](const std::string& folder, const std::string& datFile) {
        driver.firstCustomScan(folder, datFile, {path("tools"), 4});
    };
    const std::string datFile = path("Data\\4.dat");

    boxes.answers = {box::No, box::Ok};
    loadCustomDat(ctx, host, datFile);
    EXPECT_EQ(boxes.shown[1].prompt,
              "You have chosen not to scan this Custom Folder.  You need to run the scan before using this "
              "Custom Folder Integrity Checker.");
    EXPECT_EQ(readFile("Data\\4.dat"), "");  // the load made it, empty
    EXPECT_FALSE(window.Timer1.enabled());

    files.remove(datFile);
    boxes.answers = {box::Yes};
    loadCustomDat(ctx, host, datFile);
    EXPECT_EQ(readIni(ctx, datFile, "u.DLL", "DLL"), "NULL*E");
    EXPECT_TRUE(ctx.scan.customFirstScan && ctx.scan.pageScan && ctx.scan.noAutoAction);
    EXPECT_EQ(ctx.customFolder, path("tools"));
    EXPECT_EQ(ctx.scan.customIndex, 4);
    EXPECT_TRUE(window.visible());
    runTimer();
    EXPECT_EQ(ctx.scan.newCount, 2);  // every listed file is new
    EXPECT_EQ(window.List1.items(), (std::vector<std::string>{path("tools\\u.DLL *NEW*"),
                                                              path("tools\\t.exe *NEW*")}));
    EXPECT_EQ(host.actions, 1);  // the findings become the baseline at once
}

}  // namespace
}  // namespace tv::test
