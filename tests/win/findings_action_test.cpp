// The action on a scan's findings over the real platform: the command lines the
// scanners get (recorded, not started), the report in Data\Log and the new
// baselines with their backups.
#include "integrity/data_file.h"
#include "integrity/findings_action.h"
#include "tests/win/scan_fixture.h"

namespace tv::test {
namespace {

class FindingsActionTest : public ScanDriverTest {
protected:
    FindingsActionTest() {
        files.makeFolder(path("Data\\Log"));
        files.makeFolder(path("av"));
        files.makeFolder(path("tools"));
        writeFile("av\\scan.exe", "MZ");
        ctx.autoLogging = &autoLogging;
        autoLogging.setValue(1);
        ctx.quoteChar = "\"";
        ctx.passCount = 2;
        host.action = [this] { action.label12Click(); };
    }

    // A log-on run that finds a.dll changed, b.exe and c.dll new in the system
    // directory, t.dll new and u.exe changed in custom folder 3.
    void logOnRunWithFiveFindings() {
        for (const char* name : {"a.dll", "b.exe", "c.dll"}) systemFile(name, name);
        writeFile("tools\\t.dll", "t");
        writeFile("tools\\u.exe", "u");
        writeEntry(ctx, ctx.settFile, "settings", "1,1,1,1,1,1,1,0", "Tarvelon");
        writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "3");
        writeEntry(ctx, ctx.settFile, "args", "1,0,0,0,1,0,1", "3");
        oldSystem = "[DLL]\r\na.dll=0*E\r\nNULL*E\r\n[EXE]\r\nNULL*E\r\n";
        oldCustom = "[DLL]\r\nNULL*E\r\n[EXE]\r\nu.exe=0*E\r\nNULL*E\r\n";
        writeFile("Data\\Integrity.dat", oldSystem);
        writeFile("Data\\3.dat", oldCustom);
        loadIntFile(ctx, ctx.intFile);
        logOnRun();
    }
    std::vector<std::string> logs() {
        std::vector<std::string> names;
        for (auto name = files.firstName(path("Data\\Log\\")); !name.empty(); name = files.nextName())
            if (name != "." && name != "..") names.push_back(name);
        return names;
    }
    std::string quoted(const std::string& relative) { return "\"" + path(relative) + "\" "; }

    ui::Control autoLogging{ui::Kind::FlatCheck, "Check7", nullptr, {}, "Auto-Logging"};
    FindingsAction action{ctx, window, host, driver};
    std::string oldSystem, oldCustom;
};

TEST_F(FindingsActionTest, LogOnRunPassesBatchesToBothScannersAndTakesTheNewValues) {
    writeEntry(ctx, ctx.settFile, "antivirus", path("av\\scan.exe") + "| ", "Tarvelon");
    window.textav1.setCaption(path("av\\two.exe"));  // the second scanner as the window's load read it
    window.textav2.setCaption("-x");
    logOnRunWithFiveFindings();

    const std::vector<std::string> batches{quoted("sys\\a.dll") + quoted("sys\\c.dll"),
                                           quoted("sys\\b.exe") + quoted("tools\\t.dll"),
                                           quoted("tools\\u.exe")};
    ASSERT_EQ(processes.started.size(), 6u);
    for (std::size_t n = 0; n < batches.size(); ++n) {
        EXPECT_EQ(processes.started[2 * n].first, path("av\\scan.exe") + "  " + batches[n]);  // args trim to nothing
        EXPECT_EQ(processes.started[2 * n + 1].first, path("av\\two.exe") + " -x " + batches[n]);
        EXPECT_EQ(processes.started[2 * n].second, show::MinimizedFocus);
    }
    // The report, the backups and the new values are the findings scenario's;
    // but the custom files behind a system file also reach the system
    // baseline, with its value.
    EXPECT_EQ(readIni(ctx, ctx.intFile, "u.exe", "EXE"), crcOf("b.exe") + "*E");
    EXPECT_TRUE(host.ended);
}

TEST_F(FindingsActionTest, WithoutAScannerTheFirstBatchIsLoggedAndEverythingUpdated) {
    autoLogging.setValue(0);  // the report is forced: written whatever Auto-Logging says
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings();
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(processes.started.empty());
    const auto names = logs();
    ASSERT_EQ(names.size(), 1u);
    EXPECT_EQ(readFile("Data\\Log\\" + names[0]),
              "Integrity Checker - These files were logged because you didn't setup an Anti-Virus Scanner," +
                  path("sys\\a.dll") + "," + path("sys\\c.dll") + "\r\n");
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "t.dll", "DLL"), hash::getChecksum(ctx, path("tools\\t.dll")) + "*E");
    EXPECT_EQ(readIni(ctx, ctx.intFile, "a.dll", "DLL"), crcOf("a.dll") + "*E");
}

TEST_F(FindingsActionTest, ScannerThatCannotStartLeavesReportAndBaselinesAlone) {
    writeEntry(ctx, ctx.settFile, "antivirus", path("av\\scan.exe") + "|", "Tarvelon");
    processes.refuse = true;
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings();
    EXPECT_EQ(boxes.shown[0].prompt, "Your Anti-Virus program could not be executed!!!\rPlease verify the path of "
                                     "the software:\r" + path("av\\scan.exe"));
    EXPECT_TRUE(logs().empty());
    EXPECT_EQ(readFile("Data\\Integrity.dat"), oldSystem);
    EXPECT_EQ(readFile("Data\\3.dat"), oldCustom);
    EXPECT_EQ(window.List1.items().size(), 5u);
    EXPECT_FALSE(host.ended);
}

TEST_F(FindingsActionTest, LockedDataFileKeepsItsBaselineAndTheBackupStaysUsable) {
    // Another program reads the data file and shares it for reading only: the copy to the backup
    // still works, the rewrite fails and is told of, and the custom folder's file is updated as usual.
    writeEntry(ctx, ctx.settFile, "antivirus", path("av\\scan.exe") + "|", "Tarvelon");
    HANDLE reader = INVALID_HANDLE_VALUE;
    host.action = [this, &reader] {
        reader = ::CreateFileA(ctx.intFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                               FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(reader, INVALID_HANDLE_VALUE);
        action.label12Click();
    };
    boxes.answers = {box::Ok};
    logOnRunWithFiveFindings();
    ::CloseHandle(reader);
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_TRUE(boxes.shown[0].prompt.starts_with("Tarvelon could not write\r\n" + ctx.intFile + "\r\n"));
    EXPECT_EQ(readFile("Data\\Integrity.dat"), oldSystem);
    EXPECT_EQ(readFile("Data\\integrity.bak"), oldSystem);
    EXPECT_EQ(readIni(ctx, path("Data\\3.dat"), "t.dll", "DLL"), hash::getChecksum(ctx, path("tools\\t.dll")) + "*E");
}

TEST_F(FindingsActionTest, FirstScanOfACustomFolderBecomesItsBaselineWithoutScannerOrReport) {
    writeFile("tools\\t.dll", "t");
    writeFile("tools\\v w.exe", "v");  // a blank in the name
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "5");
    systemBaseline("");
    host.startFirstCustom = [this](const std::string& folder, const std::string& datFile) {
        driver.firstCustomScan(folder, datFile, {path("tools\\"), 5});
    };
    boxes.answers = {box::Yes, box::Ok};
    loadCustomDat(ctx, host, path("Data\\5.dat"));
    runTimer();
    EXPECT_FALSE(ctx.scan.customFirstScan);
    EXPECT_TRUE(processes.started.empty());
    EXPECT_TRUE(logs().empty());
    EXPECT_EQ(readIni(ctx, path("Data\\5.dat"), "v w.exe", "EXE"),
              hash::getChecksum(ctx, path("tools\\v w.exe")) + "*E");
}

}  // namespace
}  // namespace tv::test
