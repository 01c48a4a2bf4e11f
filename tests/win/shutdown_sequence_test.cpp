// The Secure Shut Down sequence over the real platform: a real wininit.ini and
// pending rename value in the prefix, the scanners' command lines recorded
// (not started), the power action recorded, and the count-down's timer
// ticked by the test.
#include <algorithm>

#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "regwatch/registry_text.h"
#include "shutdown/logoff_form.h"
#include "shutdown/shutdown_progress_form.h"
#include "shutdown/shutdown_sequence.h"
#include "tests/win/pending_sources.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

using Lines = std::vector<std::string>;

struct RecordingShutdownHost final : ShutdownHost {
    std::vector<std::string> warnings;  // what the registry pass leaves in List5 behind its heading
    ui::Control* list = nullptr;
    int scans = 0, passes = 0, updates = 0;
    bool ended = false;
    void startIntegrityScan() override { ++scans; }
    void runRegistryPass() override {
        ++passes;
        list->clearItems();
        list->addItem("New and Modified Registry Entry Warnings");
        for (const auto& row : warnings) list->addItem(row);
    }
    void scanAndUpdateWarnings() override { ++updates; }
    void endProgram() override { ended = true; }
};

class ShutdownSequenceTest : public WinTest {
protected:
    ShutdownSequenceTest() {
        files.makeFolder(path("Data"));
        files.makeFolder(path("Data\\Log"));
        ctx.appPath = path("");
        ctx.quoteChar = "\"";
        ctx.passCount = 500;
        ctx.autoLogging = &logging;
        logging.setValue(1);
        scanners.Text5.setCaption("C:\\av\\scan.exe");
        scanners.Text6.setCaption("/x");
        scanners.Text1.setCaption("");
        host.list = &List5;
        host.warnings = {kNoWarnings};
    }
    std::string quoted(const std::string& relative) { return "\"" + path(relative) + "\" "; }
    Lines started() const {
        Lines lines;
        for (const auto& [line, style] : processes.started) lines.push_back(line);
        return lines;
    }
    Lines reports() {
        Lines found;
        for (auto name = files.firstName(path("Data\\Log\\")); !name.empty(); name = files.nextName())
            if (name != "." && name != "..") found.push_back(readFile("Data\\Log\\" + name));
        return found;
    }
    // The choice made in the dialog, then the hidden scan's end.
    void runTo(std::int16_t action) {
        ctx.shutAction = action;
        sequence.preShut0();
        ASSERT_EQ(host.scans, 1);
        sequence.preShut2();
    }

    AppContext ctx{set()};
    PendingSources sources{getWinDir(ctx)};
    ui::Control logging{ui::Kind::FlatCheck, "Check7", nullptr, {}, "Auto-Logging"};
    ui::Control List5{ui::Kind::ListBox, "List5", nullptr, {}, ""};
    ui::LogoffForm logoff;
    ui::ShutdownProgressForm progress;
    ui::ScannerChoiceForm scanners;
    RecordingShutdownHost host;
    ShutdownSequence sequence{ctx, logoff, progress, scanners, List5, host};
};

TEST_F(ShutdownSequenceTest, NothingPendingAndNothingFoundSwitchesOffAtOnceWithoutAReport) {
    ASSERT_FALSE(files.canRead(sources.wininit())) << "a wininit.ini is left in the prefix";
    runTo(8);
    EXPECT_TRUE(ctx.autoLoadRun);
    EXPECT_EQ(host.passes, 1);
    EXPECT_EQ(host.updates, 0);
    EXPECT_EQ(progress.Label2.caption(), "Status: All scans completed.  No suspicious files found!");
    EXPECT_EQ(power.calls, (Lines{"privilege", "exit 25 4294967295"}));
    EXPECT_EQ(progress.ProgressBar1.value(), 0);  // no source: the bar does not move
    EXPECT_FALSE(progress.Command1.visible());
    EXPECT_TRUE(started().empty());
    EXPECT_TRUE(reports().empty());
}

TEST_F(ShutdownSequenceTest, APendingFileIsScannedAndReportedAndTheCountDownEndsInThePowerAction) {
    writeFile("old.dll", "o");
    ASSERT_TRUE(files.writeAll(sources.wininit(), "[Rename]\r\nNUL=" + path("old.dll") + "\r\n" + path("new.dll") +
                                                      "=" + path("gone.dll") + "\r\n"));
    scanners.Text1.setCaption("C:\\av\\two.exe");
    scanners.Text2.setCaption("-y");
    ctx.shutAction = 2;
    sequence.checkWinInit();
    // Files that are gone are left out.
    EXPECT_EQ(started(), (Lines{"C:\\av\\scan.exe /x " + quoted("old.dll"), "C:\\av\\two.exe -y " + quoted("old.dll")}));
    EXPECT_EQ(reports(), (Lines{"The following Files were scanned as a precaution (being renamed or deleted from "
                                "Wininit)," + path("old.dll") + "\r\n"}));
    EXPECT_EQ(ctx.scanLogged, 1);
    EXPECT_EQ(progress.ProgressBar1.value(), 50);
    EXPECT_EQ(progress.Label2.caption(), "Status: Scanning Files...");

    host.warnings = {"HKEY_CURRENT_USER|Loaded in \\Tv (C:\\tv.exe) New Entry!"};
    sequence.preShut2();
    EXPECT_EQ(host.updates, 1);  // every warning scanned and accepted, without a question
    EXPECT_EQ(progress.ProgressBar1.maximum(), 120);
    for (int tick = 1; tick < 120; ++tick) logoff.Timer1.userTick();
    EXPECT_TRUE(power.calls.empty());
    EXPECT_EQ(progress.ProgressBar1.value(), 119);
    logoff.Timer1.userTick();
    EXPECT_EQ(power.calls, (Lines{"privilege", "exit 19 4294967295"}));
    EXPECT_FALSE(logoff.Timer1.enabled());  // the count-down ends with the action
}

TEST_F(ShutdownSequenceTest, PendingRenamesGoOutInRunsOfPassCountFilesAndIntoOneReport) {
    for (const char* name : {"a.tmp", "b.tmp", "c.tmp"}) writeFile(name, name);
    const auto item = [this](const char* name) { return "\\??\\" + path(name) + std::string(1, '\0'); };
    // a.tmp to replace b.tmp, c.tmp to be deleted.
    sources.pendingValue(item("a.tmp") + "!" + item("b.tmp") + item("c.tmp") + std::string(2, '\0'));
    ctx.passCount = 2;
    scanners.Text1.setCaption("C:\\av\\two.exe");
    sequence.checkWinInit();
    const std::string first = quoted("a.tmp") + quoted("b.tmp"), second = quoted("c.tmp");
    EXPECT_EQ(started(), (Lines{"C:\\av\\scan.exe /x " + first, "C:\\av\\two.exe  " + first,
                               "C:\\av\\scan.exe /x " + second, "C:\\av\\two.exe  " + second}));
    EXPECT_EQ(reports(), (Lines{"The following Files were scanned as a precaution (being renamed or deleted from the "
                                "Registry)," + path("a.tmp") + "," + path("b.tmp") + "," + path("c.tmp") + "\r\n"}));
    EXPECT_EQ(progress.ProgressBar1.value(), 100);

    // A file named twice goes once into the run being built.
    processes.started.clear();
    ctx.passCount = 500;
    scanners.Text1.setCaption("");
    sources.pendingValue(item("a.tmp") + "!" + item("b.tmp") + item("a.tmp") + '\0' + item("c.tmp") + '\0');
    sequence.checkWinInit();
    EXPECT_EQ(started(), (Lines{"C:\\av\\scan.exe /x " + first + second}));
}

TEST_F(ShutdownSequenceTest, TheSecondScannerStartsWithoutFilesWhileTheFirstWaitsForSome) {
    ASSERT_TRUE(files.writeAll(sources.wininit(), "NUL=" + path("gone.tmp") + "\r\n"));
    scanners.Text1.setCaption("C:\\av\\two.exe");
    scanners.Text2.setCaption("-y");
    runTo(1);
    EXPECT_EQ(started(), (Lines{"C:\\av\\two.exe -y "}));
    EXPECT_TRUE(reports().empty());
    EXPECT_EQ(power.calls, (Lines{"privilege", "state 1 1"}));  // nothing was logged: standby at once
}

TEST_F(ShutdownSequenceTest, OddNamesGoOutAsTheyAreAndFoldersAndThousandsOfMissingFilesAreLeftOut) {
    writeFile("a & b^c%PATH%.tmp", "x");
    files.makeFolder(path("folder.tmp"));
    std::string wininit = "NUL=" + path("a & b^c%PATH%.tmp") + "\r\nNUL=" + path("folder.tmp") + "\r\n";
    for (int n = 0; n < 5000; ++n) wininit += "NUL=" + path("gone" + std::to_string(n) + ".tmp") + "\r\n";
    ASSERT_TRUE(files.writeAll(sources.wininit(), wininit));
    sequence.checkWinInit();
    EXPECT_EQ(started(), (Lines{"C:\\av\\scan.exe /x " + quoted("a & b^c%PATH%.tmp")}));
}

TEST_F(ShutdownSequenceTest, ShutDownNowActsAtOnceAndTheCloseBoxAsksFirst) {
    writeFile("old.dll", "o");
    ASSERT_TRUE(files.writeAll(sources.wininit(), "NUL=" + path("old.dll") + "\r\n"));
    runTo(8);
    ASSERT_TRUE(logoff.Timer1.enabled());
    boxes.answers = {box::No};
    progress.userClose();
    EXPECT_EQ(boxes.shown.size(), 1u);
    EXPECT_FALSE(host.ended);
    EXPECT_TRUE(power.calls.empty());
    progress.Command1.userClick();
    EXPECT_EQ(power.calls, (Lines{"privilege", "exit 25 4294967295"}));
    boxes.answers = {box::Yes};
    progress.userClose();
    EXPECT_TRUE(host.ended);
    EXPECT_EQ(power.calls.size(), 2u);
}

}  // namespace
}  // namespace tv::test
