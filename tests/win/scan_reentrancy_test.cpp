// Clicks that reach a running scan through the pumps of its passes, scripted
// at chosen moments: the way Pause, Cancel, the close box and a new scan meet
// the scan in the program.
#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "tests/win/scan_fixture.h"

namespace tv::test {
namespace {

class ScanReentrancyTest : public ScanDriverTest {
protected:
    ScanReentrancyTest() { loop.queueAnswer = queue::InputOrPaint; }  // every pump finds input waiting

    // A page scan of the system's DLL files against a baseline they all pass.
    void startDllPageScan(const std::vector<std::string>& names) {
        std::string baseline = "[DLL]\r\n";
        for (const auto& name : names) {
            systemFile(name, name);
            baseline += name + "=" + crcOf(name) + "*E\r\n";
        }
        systemBaseline(baseline + "NULL*E\r\n");
        ctx.scan.pageScan = ctx.scan.noAutoAction = true;
        ctx.scan.wanted = {true, false, false, false, false, false};
        driver.loadUp();
    }
    bool scanningAFile() const { return !window.fileLabels[kPassDll]->caption().empty(); }
};

TEST_F(ScanReentrancyTest, PauseHoldsThePassAndCancelEndsItAtTheNextTest) {
    startDllPageScan({"a.dll", "b.dll", "c.dll"});
    std::string doneWhilePaused;
    bool resumeShown = false, cancelled = false;
    loop.onPump = [&] {
        if (scanningAFile() && !ctx.scan.scanPaused && loop.waits == 0) window.Image9.userClick();
        if (loop.waits == 1) doneWhilePaused = window.Label6.caption();
        if (loop.waits == 3 && !cancelled) {
            cancelled = true;
            resumeShown = window.Label11.visible();
            EXPECT_EQ(window.Label6.caption(), doneWhilePaused);  // nothing moved while paused
            window.Image11.userClick();
        }
    };
    runTimer();
    EXPECT_EQ(loop.waits, 3);
    EXPECT_TRUE(resumeShown);
    EXPECT_EQ(doneWhilePaused, "1");
    EXPECT_FALSE(ctx.scan.scanPaused);
    EXPECT_TRUE(ctx.scan.scanCancelled);
    EXPECT_EQ(window.Label6.caption(), "1");  // the next file was hashed, then left uncounted
    EXPECT_EQ(window.pbm.caption(), "0");     // a cancelled pass adds nothing
    EXPECT_TRUE(window.Frame1.visible());
    EXPECT_FALSE(window.Frame2.visible());
    EXPECT_FALSE(window.visible());
    EXPECT_EQ(host.actions, 0);
}

TEST_F(ScanReentrancyTest, ResumeGoesOnWithTheNextFile) {
    startDllPageScan({"a.dll", "b.dll"});
    loop.onPump = [&] {
        if (scanningAFile() && !ctx.scan.scanPaused && loop.waits == 0) window.Image9.userClick();
        if (loop.waits == 2) window.Label11.userClick();  // Resume
    };
    runTimer();
    EXPECT_EQ(loop.waits, 2);
    EXPECT_EQ(window.Label6.caption(), "2");
    EXPECT_EQ(window.Label13.caption(), "Results");
    EXPECT_TRUE(window.Label14.visible());
    EXPECT_EQ(window.Label2.caption(), "Close Integrity Check Window");
}

class PrimaryScanLeftMidway : public ScanReentrancyTest {
protected:
    PrimaryScanLeftMidway() {
        for (const char* name : {"a.dll", "b.dll", "c.exe"}) systemFile(name, name);
        host.endUnwinds = true;
    }
};

TEST_F(PrimaryScanLeftMidway, CancelAnsweredNoScansOnToTheEnd) {
    boxes.answers = {box::Yes, box::No};  // first run; then keep scanning
    checkIntFile(ctx, host);
    bool clicked = false;
    loop.onPump = [&] {
        if (!clicked && scanningAFile()) {
            clicked = true;
            window.Image11.userClick();
        }
    };
    runTimer();
    EXPECT_EQ(boxes.shown[1].prompt,
              "If you stop the scan now, you will need to re-start it later\r\n"
              "Are you sure you want to abandon the full system scan?");
    EXPECT_FALSE(host.ended);
    EXPECT_TRUE(host.mainShown);
    for (const char* name : {"a.dll", "b.dll"}) EXPECT_EQ(readIni(ctx, ctx.intFile, name, "DLL"), crcOf(name) + "*E");
    EXPECT_EQ(readIni(ctx, ctx.intFile, "c.exe", "EXE"), crcOf("c.exe") + "*E");
}

TEST_F(PrimaryScanLeftMidway, CloseBoxAnsweredYesDeletesTheBaselineAndEnds) {
    boxes.answers = {box::Yes, box::Yes};
    checkIntFile(ctx, host);
    loop.onPump = [&] {
        if (scanningAFile()) window.userClose();
    };
    EXPECT_THROW(runTimer(), RecordingHost::ProgramEnded);
    EXPECT_FALSE(files.canRead(ctx.intFile));
    EXPECT_FALSE(files.canRead(path("Data\\integrity.bak")));
}

TEST_F(ScanReentrancyTest, ANewScanStartedMidPassRunsInsideTheOldOne) {
    startDllPageScan({"a.dll", "b.dll"});
    files.makeFolder(path("tools"));
    writeFile("tools\\t.dll", "t");
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "2");
    host.startFirstCustom = [this](const std::string& folder, const std::string& datFile) {
        driver.firstCustomScan(folder, datFile, {path("tools\\"), 2});
    };
    boxes.answers = {box::Yes};
    int innerScans = 0;
    bool chosen = false;
    loop.onPump = [&] {
        if (!chosen && scanningAFile()) {
            chosen = true;
            loadCustomDat(ctx, host, hash::getCustomDat(ctx, 2));  // the folder chosen on the main window
        } else if (innerScans == 0 && window.Timer1.enabled()) {
            ++innerScans;
            window.Timer1.userTick();  // its tick comes through the same pump
        }
    };
    runTimer();
    EXPECT_EQ(innerScans, 1);
    // The first scan of the folder ran to its end and pressed its action; the
    // old handler then saw the cancel cleared and finished over the same folder.
    EXPECT_EQ(window.List1.items(), std::vector<std::string>{path("tools\\t.dll *NEW*")});
    EXPECT_EQ(ctx.scan.newCount, 1);
    EXPECT_EQ(window.Label6.caption(), "1");
    EXPECT_GE(host.actions, 1);
    EXPECT_FALSE(ctx.scan.scanCancelled);
    EXPECT_TRUE(window.Frame2.visible());
    EXPECT_EQ(window.Label13.caption(), "Results");
}

}  // namespace
}  // namespace tv::test
