// Secure Shut Down over the platform's stand-ins: the dialog's choices, the power actions and the sequence between
// them, with the count-down's timer ticked by the test. The end-to-end journey walks the windows themselves.
#include <gtest/gtest.h>

#include "avshell/scanner_choice_form.h"
#include "logging/write_log.h"
#include "regwatch/registry_text.h"
#include "shutdown/power_off.h"
#include "shutdown/secure_shut_down.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using namespace std::string_literals;
using Lines = std::vector<std::string>;

// The session manager's key, whose pending renames (REG_MULTI_SZ) every query finds.
struct PendingRenames final : test::NoRegistry {
    std::string value;
    long openKey(std::uint32_t, const RegText&, RegView, RegAccess, Key& key) override { return key = 1, 0; }
    long queryValue(Key, const RegText&, RegValue& read) override { return read.type = 7, read.bytes = value, 0; }
};

// The rest of the program, each call recorded with the status line it found.
struct RecordingShutdownHost final : ShutdownHost {
    const ui::Control* status = nullptr;
    Lines calls;
    void record(const char* what) { calls.push_back(what + (": " + status->caption())); }
    void startIntegrityScan() override { record("scan"); }
    void runRegistryPass() override { record("pass"); }
    void scanAndUpdateWarnings() override { record("update"); }
    void endProgram() override { record("end"); }
    bool ended() const { return !calls.empty() && calls.back().starts_with("end"); }
};

class SecureShutDownTest : public ::testing::Test {
protected:
    SecureShutDownTest() {
        os.files.folders.insert({"C:\\WINDOWS", "C:\\P", "C:\\TARVELON\\DATA\\LOG"});
        ctx.appPath = "C:\\Tarvelon\\";
        ctx.quoteChar = "\"";
        ctx.autoLogging = &logging;
        logging.setValue(1);
        scanners.Text5.setCaption("one.exe");
        scanners.Text6.setCaption("/x");
        List5.setItems({kWarningsHeading, kNoWarnings});
        host.status = &sd.sProg.Label2;
    }

    test::FakePlatform os;
    PendingRenames registry;
    AppContext ctx{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, registry, os.clock,
                    os.windows, os.power, os.shortcuts}};
    ui::Control logging{ui::Kind::FlatCheck, "Check7", nullptr, {}, "Auto-Logging"};
    ui::Control List5{ui::Kind::ListBox, "List5", nullptr, {}, ""};
    ui::ScannerChoiceForm scanners;
    RecordingShutdownHost host;
    SecureShutDown sd{ctx, scanners, List5, host};
    ui::LogoffForm& dialog = sd.frmLogoff;
    ui::ShutdownProgressForm& progress = sd.sProg;
};

// The keyboard presses the plain pictures, the mouse the lit ones over them; SHIFT turns Standby into Hibernate until
// any key comes up. With nothing pending, found or logged the sequence ends at once, back from standby.
TEST_F(SecureShutDownTest, EachChoiceStartsTheSequenceWhichEndsAtOnceWhenNothingWasFound) {
    const std::pair<ui::Control*, int> choices[] = {{&dialog.Image2, 1}, {&dialog.Image4, 8}, {&dialog.Image6, 2},
                                                    {&dialog.Image1, 1}, {&dialog.Image3, 8}, {&dialog.Image5, 2},
                                                    {&dialog.Label2, 0}};  // Log Off... asks what Hibernate asks
    for (const auto& [target, action] : choices) {
        host.calls.clear(), target->userClick();
        EXPECT_EQ(std::to_string(ctx.shutAction) + host.calls.at(0), std::to_string(action) + "scan: Status: Scanning Files...");
    }
    EXPECT_TRUE(ctx.autoLoadRun && !dialog.visible() && progress.visible());
    dialog.userKeyDown(ui::key::Shift);
    dialog.userKeyDown('A');  // another key going down changes nothing
    dialog.Image2.userClick();
    EXPECT_EQ(ctx.shutAction, 0);  // Hibernate
    dialog.userKeyUp('A');
    EXPECT_EQ(dialog.Label4.caption(), "Standby");
    host.calls.clear();
    sd.sequence.preShut2();
    const std::string done = "end: Status: All scans completed.  No suspicious files found!";
    EXPECT_EQ(host.calls, (Lines{"pass: Status: Scanning Registry...", done}));
    EXPECT_EQ(os.power.calls, (Lines{"privilege", "state 0 1"}));
    EXPECT_TRUE(progress.ProgressBar1.value() == 0  // no source: the bar does not move
                && !progress.Command1.visible() && os.processes.started.empty() && !os.files.content(logFileName(ctx)));
    dialog.Label1.userClick();  // Cancel
    EXPECT_EQ(host.calls.back(), done);
}

// The exit calls force hung programs from Windows 2000 on and all before; on an older system Log Off ends the desktop.
TEST_F(SecureShutDownTest, PowerActionsForceHungProgramsFromWindows2000OnAndAllBefore) {
    const struct { Power::Version version; std::int16_t action; const char* calls; } cases[] = {
        {{2, 5}, 1, "state 1 1"}, {{2, 5}, 0, "state 0 1"}, {{2, 5}, 2, "exit 19"}, {{2, 4}, 2, "exit 7"},
        {{2, 5}, 8, "exit 25"}, {{1, 4}, 8, "exit 13"}, {{2, 5}, 4, "exit 20"}, {{2, 4}, 4, "exit 8"},
        {{1, 4}, 4, "kill desktop,exit 8"}, {{2, 5}, 3, "exit 16"},  // 3: no one chooses it, nothing but the force
    };
    for (const auto& c : cases) {
        os.power.calls.clear();
        os.power.answer = c.version;
        shutDown(ctx, c.action);
        std::string calls;
        for (const std::string& call : os.power.calls) calls += "," + call.substr(0, call.find(" 4294967295"));
        EXPECT_EQ(calls, ",privilege,"s + c.calls) << c.action << " on " << c.version.platformId << "." << c.version.major;
    }
}

// Files that are gone and folders are left out; the second scanner runs whenever it is set up, the first only with
// files. The pending renames go in runs of passCount files: a file already in the run being built is not taken again,
// one that is gone counts all the same. Both reports of the same second keep their own file.
TEST_F(SecureShutDownTest, AScannedFileStartsATwoMinuteCountDownThatTheCloseBoxCanStop) {
    for (const char* name : {"old.dll", "a.x", "b.x", "c.x"}) os.files.put("C:\\P\\"s + name, name);
    ctx.quoteChar.clear();
    os.files.folders.insert("C:\\P\\FOLDER.TMP");
    os.files.put("C:\\WINDOWS\\wininit.ini", "NUL=C:\\P\\old.dll\r\nx=C:\\P\\gone.dll\r\nNUL=C:\\P\\folder.tmp");
    scanners.Text1.setCaption("two.exe");
    scanners.Text2.setCaption("-y");
    registry.value = "\\??\\C:\\P\\a.x\0\\??\\C:\\P\\a.x\0\\??\\C:\\P\\gone.x\0\\??\\C:\\P\\b.x\0\\??\\C:\\P\\c.x\0\0"s;
    ctx.passCount = 2;
    List5.setItems({kWarningsHeading, "HKEY_CURRENT_USER|Loaded in \\Tv (C:\\tv.exe) New Entry!"});
    dialog.Image6.userClick();  // Restart
    std::string started;
    for (const auto& [line, style] : os.processes.started) started += line + "|";
    EXPECT_EQ(started, "one.exe /x C:\\P\\old.dll |two.exe -y C:\\P\\old.dll |one.exe /x C:\\P\\a.x |two.exe -y C:\\P\\a.x |"
                       "one.exe /x C:\\P\\b.x C:\\P\\c.x |two.exe -y C:\\P\\b.x C:\\P\\c.x |");
    EXPECT_EQ(*os.files.content(logFileName(ctx)) + *os.files.content(logFileName(ctx, {}, 2)),
              "The following Files were scanned as a precaution (being renamed or deleted from Wininit),C:\\P\\old.dll"
              "\r\nThe following Files were scanned as a precaution (being renamed or deleted from the Registry),"
              "C:\\P\\a.x,C:\\P\\b.x,C:\\P\\c.x\r\n");
    EXPECT_EQ(progress.ProgressBar1.value(), 100);

    // The count-down: "Cancel Shutdown?" with No goes on; ShutDown Now after the action sends no second one.
    sd.sequence.preShut2();
    EXPECT_TRUE(progress.Command1.visible() && progress.ProgressBar1.maximum() == 120);
    os.boxes.answers = {box::No};
    progress.userClose();
    EXPECT_EQ(os.boxes.shown.at(0).style, box::YesNo);
    EXPECT_EQ(host.calls.back(), "update: Status: Found Modified Registry Entries...");  // scanned without a question
    for (int tick = 1; tick < 120; ++tick) dialog.Timer1.userTick();
    EXPECT_TRUE(os.power.calls.empty() && progress.ProgressBar1.value() == 119);
    dialog.Timer1.userTick();
    progress.Command1.userClick();
    EXPECT_EQ(os.power.calls, (Lines{"privilege", "exit 19 4294967295"}));
    EXPECT_FALSE(dialog.Timer1.enabled());  // the count-down ends with the action
    os.boxes.answers = {box::Yes};
    progress.userClose();
    EXPECT_EQ(host.calls.back(), "end: Status: Some files were scanned...Shutting Down in 2 minutes");
}

// A refused action is named and gives the choice back: chosen again, it comes at once without scanning again, and No
// ends the program; with nobody there the question goes to the report and the dialog waits.
TEST_F(SecureShutDownTest, ARefusedActionIsNamedAndTheChoiceComesBack) {
    os.power.refuses = true;
    ctx.scanLogged = 1;
    dialog.Label2.userClick();  // Log Off... asks to hibernate
    sd.sequence.preShut2();
    os.boxes.answers = {box::Yes, box::No};
    progress.Command1.userClick();
    const std::string why = "The power options may not allow it, or you may not have the right to shut the computer "
                            "down.", again = "Do you want to choose again? Click No to close Tarvelon.";
    EXPECT_EQ(os.boxes.shown.at(0).prompt, "Windows refused to hibernate the computer.\r\n\r\n" + why + "\r\n\r\n" + again);
    EXPECT_EQ(os.boxes.shown[0].style, box::YesNo | box::Exclamation);
    EXPECT_TRUE(progress.Label2.caption() == "Status: Windows refused to hibernate the computer." && dialog.visible());
    dialog.Image6.userClick();  // Restart
    EXPECT_EQ(os.power.calls, (Lines{"privilege", "state 0 1", "privilege", "exit 19 4294967295"}));
    EXPECT_EQ(os.boxes.shown.at(1).prompt.substr(0, 40), "Windows refused to restart the computer.");
    EXPECT_TRUE(std::count_if(host.calls.begin(), host.calls.end(), [](auto& c) { return c.starts_with("scan"); }) == 1 &&
                host.ended());

    SecureShutDown unseen{ctx, scanners, List5, host};
    host.calls.clear();
    ctx.scanLogged = 0;
    unseen.frmLogoff.Image6.userClick();
    unseen.sequence.preShut2();
    const std::string* report = os.files.content("C:\\Tarvelon\\Data\\Log\\03-05-2006 unattended(3_04_07PM).log");
    EXPECT_TRUE(unseen.frmLogoff.visible() && report &&
                report->ends_with(",Windows refused to restart the computer.," + why + "," + again + ",Tarvelon answered: Yes\r\n"));
    unseen.frmLogoff.userClose();  // the dialog's close box is its Cancel
    EXPECT_TRUE(host.ended());
}

}  // namespace
}  // namespace tv
