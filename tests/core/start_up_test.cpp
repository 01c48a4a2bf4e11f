// The start-up over in-memory files: the paths, the run mode of the command
// line with its refusals, and the settings applied to the windows and the run.
#include <gtest/gtest.h>

#include "avshell/scanner_choice_form.h"
#include "core/settings_text.h"
#include "shutdown/secure_shut_down.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"

namespace tv {
namespace {

constexpr const char* kSettings = "C:\\Tarvelon\\Data\\Tarvelon.dat";

struct Start {
    Start() {
        os.files.folders = {"C:\\TARVELON"};
        os.shell.special[24] = "C:\\Startup";
        app.context().settFile = kSettings;
    }
    void settings(std::string text) {
        os.files.folders.insert("C:\\TARVELON\\DATA");
        os.files.put(kSettings, std::move(text));
    }
    // No data file: the first-run question comes on the plain name and again on
    // the chosen algorithm's; both are refused.
    void refuseFirstRunTwice() { os.boxes.answers.insert(os.boxes.answers.end(), {box::No, box::Ok, box::No, box::Ok}); }
    bool reload() { return ui::loadSettings(ctx, app.mainForm(), app.scannerChoice()); }

    test::FakePlatform os;
    ui::Application app{os.set()};
    AppContext& ctx = app.context();
    ui::MainWindow& main = app.mainForm();
};

// Switches are compared whole and case-sensitively after trimming; without a
// data file a switched run asks for the primary scan twice, refuses and ends.
TEST(StartUp, CommandLineChoosesTheRunModeAndRefusesSwitchesWithoutABaseline) {
    struct Case {
        const char* line;
        bool baseline;
        const char* refusal;  // empty: no refusal
        const char* shown;
    };
    const Case cases[] = {
        {"\"C:\\Program Files\\Tarvelon\\TarvelonLow.exe\" /r", false,
         "Cannot start Auto-Load.  Primary Full Scan has not yet been completed.\r\nClosing", "none"},
        {"\"C:\\Tarvelon\\TarvelonLow.exe\"  /s ", false,
         "Cannot start Secure Shut Down.  Primary Full Scan has not yet been completed.\r\nClosing.", "none"},
        {"C:\\Tarvelon\\TarvelonLow.exe /a", false,
         "Cannot run Scheduled Scan.  Primary Full Scan has not yet been completed.\r\nClosing.", "none"},
        {"C:\\Tarvelon\\TarvelonLow.exe", false, "", "main"},
        {"TarvelonLow.exe /R", false, "", "main"},
        {"TarvelonLow.exe /r /s", false, "", "main"},
        {"TarvelonLow.exe \"/r\"", false, "", "main"},
        {"TarvelonLow.exe /s", true, "", "dialog"},  // an empty data file passes the baseline test
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.line);
        Start run;
        run.os.processes.line = c.line;
        if (c.baseline) {
            run.settings(newSettingsFileText());
            run.os.files.put("C:\\Tarvelon\\Data\\Integrity.dat", "");
        } else {
            run.refuseFirstRunTwice();
            if (*c.refusal) run.os.boxes.answers.push_back(box::Ok);
        }
        run.app.load();
        const bool unwatched = std::string(c.line).ends_with("/a");  // its boxes go into a report
        EXPECT_EQ(run.os.boxes.shown.size(), c.baseline || unwatched ? 0u : *c.refusal ? 5u : 4u);
        if (unwatched) {
            const std::string said = std::string(c.refusal).substr(0, std::string(c.refusal).find('\r'));
            EXPECT_NE(run.os.files.content(run.ctx.unseenReport)->find(said), std::string::npos);
        } else if (*c.refusal) {
            EXPECT_EQ(run.os.boxes.shown.back().prompt, c.refusal);
            EXPECT_EQ(run.os.boxes.shown.back().title, "TarvelonLow");
        }
        EXPECT_EQ(run.os.loop.quitCalled, std::string(c.shown) == "none");
        EXPECT_EQ(run.main.visible(), std::string(c.shown) == "main");
        EXPECT_EQ(run.app.secureShutDown().frmLogoff.visible(), std::string(c.shown) == "dialog");
    }
}

TEST(StartUp, FreshFolderGivesThePathsAndTheNewFilesValuesAndAnUnreadableOneKeepsThem) {
    Start run;
    run.refuseFirstRunTwice();
    run.app.load();
    EXPECT_EQ(run.ctx.appPath, "C:\\Tarvelon\\");
    EXPECT_EQ(run.ctx.intFile, "C:\\Tarvelon\\Data\\Integrity.dat");
    EXPECT_EQ(run.ctx.regFile, "C:\\Tarvelon\\Data\\Registry.dat");
    EXPECT_EQ(std::make_tuple(run.ctx.readBuffer, run.ctx.passCount, run.ctx.algoName, run.ctx.quoteChar),
              std::make_tuple(65536, 500, std::string("crc32"), std::string("\"")));
    EXPECT_TRUE(run.main.Frame2.shown());
    EXPECT_TRUE(run.os.files.content(kSettings)->starts_with("[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,0\r\n"));

    Start locked;  // an unreadable settings file: the settings keep their former state
    locked.settings("[Tarvelon]\r\nalgo=md5\r\n");
    locked.os.files.locked.insert("C:\\TARVELON\\DATA\\TARVELON.DAT");
    locked.refuseFirstRunTwice();
    locked.app.load();
    EXPECT_EQ(locked.ctx.algoName, "");
    EXPECT_TRUE(locked.main.visible());
}

TEST(StartUp, BaselineOfTheChosenAlgorithmIsLoadedAndNoOtherCounts) {
    Start run;
    run.settings("[Tarvelon]\r\nalgo=md5\r\n");
    run.os.files.put("C:\\Tarvelon\\Data\\Integrity.dat", "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    run.os.boxes.answers = {box::No, box::Ok};  // the first-run question, for the chosen algorithm's file only
    run.app.load();
    EXPECT_EQ(run.os.boxes.shown.size(), 2u);
    Start both;
    both.settings("[Tarvelon]\r\nalgo=md5\r\n");
    both.os.files.put("C:\\Tarvelon\\Data\\Integrity.dat", "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    both.os.files.put("C:\\Tarvelon\\Data\\Integrity-md5.dat", "[DLL]\r\nA.DLL=2*E\r\nNULL*E\r\n");
    both.app.load();
    EXPECT_EQ(both.ctx.intFile, "C:\\Tarvelon\\Data\\Integrity-md5.dat");
    EXPECT_EQ(both.ctx.section.text[0].entry("A.DLL"), "2");
}

TEST(LoadSettings, SettingsReachControlsAndValuesInTheirOrder) {
    Start run;
    run.settings("[Tarvelon]\r\nsettings=1,0,1,0,1,0,1,1\r\nsettings2=0,1,0,1,0,1\r\n"
                 "advanced=131072,99999,1\r\nantivirus=C:\\AV\\scan.exe| /all /quiet \r\n"
                 "av2=C:\\Two\\two.exe|\r\nantivirus2=0,1,1\r\nalgo=SHA1\r\n");
    run.os.files.put("C:\\Startup\\Tarvelon.lnk", "link");
    ASSERT_TRUE(run.reload());
    auto& w = run.main.settings;
    EXPECT_EQ(std::vector<int>({w.Check1.value(), w.Check2.value(), w.Check3.value(), w.Check4.value(), w.Check8.value(),
                                w.Check7.value(), w.Check15.value(), w.Check14.value(), w.Check17.value()}),
              std::vector<int>({1, 1, 0, 1, 1, 1, 0, 1, 1}));
    EXPECT_EQ(std::make_tuple(run.ctx.readBuffer, run.ctx.passCount, run.ctx.useWsh, run.ctx.autoScanFailed),
              std::make_tuple(131072, 99999, std::int16_t{1}, true));
    auto& s = run.app.scannerChoice();
    EXPECT_EQ(s.Text5.caption() + "|" + s.Text6.caption(), "C:\\AV\\scan.exe|/all /quiet");
    EXPECT_EQ(s.Text1.caption() + "|" + s.Text2.caption(), "C:\\Two\\two.exe|");
    EXPECT_EQ(run.ctx.quoteChar, "");
    EXPECT_TRUE(run.ctx.shortPaths);
    EXPECT_EQ(run.main.advanced.avfocus.value(), 1);
    EXPECT_EQ(run.ctx.algoName, "SHA1");

    // Shorter lists leave the rest as it was; a scanner without "|" keeps the
    // program and takes the whole text as its arguments.
    run.settings("settings=0,1\r\nsettings2=0\r\nadvanced=262144\r\nantivirus=  plain.exe  \r\nalgo=md4\r\n");
    ASSERT_TRUE(run.reload());
    EXPECT_EQ(std::make_tuple(w.Check2.value(), w.Check3.value(), w.Check7.value(), w.Check17.value()),
              std::make_tuple(0, 1, 1, 1));
    EXPECT_EQ(std::make_tuple(run.ctx.readBuffer, run.ctx.passCount), std::make_tuple(262144, 99999));
    EXPECT_EQ(s.Text5.caption() + "|" + s.Text6.caption(), "C:\\AV\\scan.exe|plain.exe");

    // A value that is no number ends the load there.
    run.ctx.autoScanFailed = false;
    run.settings("settings=1,1,1,1,1,1,1,1\r\nadvanced=big,50,0\r\nalgo=md5\r\n");
    EXPECT_FALSE(run.reload());
    EXPECT_EQ(w.Check2.value(), 1);
    EXPECT_FALSE(run.ctx.autoScanFailed);  // never reached
    EXPECT_EQ(run.ctx.algoName, "md4");
}

TEST(LoadSettings, AutoLoadIsTickedWhileItsShortcutIsThere) {
    Start run;
    run.main.settings.Check1.setValue(1);
    run.settings(newSettingsFileText());
    run.os.shell.special = {{2, "C:\\Programs"}};  // no Startup folder of its own: the one below Programs
    run.os.files.put("C:\\Startup\\Tarvelon.lnk", "link");
    run.reload();
    EXPECT_EQ(run.main.settings.Check1.value(), 0);
    run.os.files.put("C:\\Programs\\StartUp\\Tarvelon.lnk", "link");
    run.reload();
    EXPECT_EQ(run.main.settings.Check1.value(), 1);
}

}  // namespace
}  // namespace tv
