// The start-up over in-memory files: the paths, the run mode of the command line with its refusals, the settings
// applied to the windows and the run.
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
constexpr const char* kBaseline = "C:\\Tarvelon\\Data\\Integrity.dat";

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
    // No data file: the first-run question on the plain name and again on the chosen algorithm's, both refused.
    void refuseFirstRunTwice() { os.boxes.answers.insert(os.boxes.answers.end(), {box::No, box::Ok, box::No, box::Ok}); }
    bool reload() { return ui::loadSettings(ctx, app.mainForm(), app.scannerChoice()); }

    test::FakePlatform os;
    ui::Application app{os.set()};
    AppContext& ctx = app.context();
    ui::MainWindow& main = app.mainForm();
};

// Switches are compared whole and case-sensitively after trimming; without a data file a switched run asks for the
// primary scan twice, refuses and ends. A scheduled run, which nobody watches, puts its boxes into a report instead.
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
        {"C:\\Tarvelon\\TarvelonLow.exe /a", false, "", "none"},
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
        const bool unwatched = std::string(c.line).ends_with("/a");
        if (c.baseline) {
            run.settings(newSettingsFileText());
            run.os.files.put(kBaseline, "");
        } else if (!unwatched) {
            run.refuseFirstRunTwice();
            if (*c.refusal) run.os.boxes.answers.push_back(box::Ok);
        }
        run.app.load();
        EXPECT_EQ(run.os.boxes.shown.size(), c.baseline || unwatched ? 0u : *c.refusal ? 5u : 4u);
        if (*c.refusal) EXPECT_EQ(run.os.boxes.shown.back().prompt + "|" + run.os.boxes.shown.back().title,
                                  c.refusal + std::string("|TarvelonLow"));
        EXPECT_EQ(std::string(run.os.loop.quitCalled ? "none" : "") + (run.main.visible() ? "main" : "") +
                      (run.app.secureShutDown().frmLogoff.visible() ? "dialog" : ""), c.shown);
        if (!unwatched) continue;
        const std::string report = *run.os.files.content(run.ctx.unseenReport);
        EXPECT_TRUE(report.starts_with("Unattended Run - Tarvelon did not wait for an answer to these messages,"
                                       "This is your first time using Tarvelon.")) << report;
        EXPECT_TRUE(report.find(",Perform scan now?,Tarvelon answered: No,You have chosen not") != std::string::npos &&
                    report.ends_with(",Cannot run Scheduled Scan.  Primary Full Scan has not yet been completed.,Closing.\r\n"));
        EXPECT_FALSE(run.os.files.content(kBaseline));  // no baseline made unasked
    }
}

TEST(StartUp, FreshFolderGivesThePathsAndTheNewFilesValues) {
    Start run;
    run.refuseFirstRunTwice();
    run.app.load();
    EXPECT_EQ(run.ctx.appPath + "|" + run.ctx.intFile + "|" + run.ctx.regFile,
              std::string("C:\\Tarvelon\\|") + kBaseline + "|C:\\Tarvelon\\Data\\Registry.dat");
    EXPECT_EQ(std::make_tuple(run.ctx.readBuffer, run.ctx.passCount, run.ctx.algoName, run.ctx.quoteChar),
              std::make_tuple(65536, 500, std::string("crc32"), std::string("\"")));
    EXPECT_TRUE(run.main.Frame2.shown());
    EXPECT_TRUE(run.os.files.content(kSettings)->starts_with("[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,0\r\n"));
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
                                w.Check7.value(), w.Check15.value(), w.Check14.value(), w.Check17.value(),
                                run.main.advanced.avfocus.value()}),
              std::vector<int>({1, 1, 0, 1, 1, 1, 0, 1, 1, 1}));
    EXPECT_EQ(std::make_tuple(run.ctx.readBuffer, run.ctx.passCount, run.ctx.useWsh, run.ctx.autoScanFailed,
                              run.ctx.quoteChar, run.ctx.shortPaths, run.ctx.algoName),
              std::make_tuple(131072, 99999, std::int16_t{1}, true, std::string(), true, std::string("SHA1")));
    auto& s = run.app.scannerChoice();
    const auto scanners = [&] { return s.Text5.caption() + "|" + s.Text6.caption() + "," + s.Text1.caption() + "|" +
                                       s.Text2.caption(); };
    EXPECT_EQ(scanners(), "C:\\AV\\scan.exe|/all /quiet,C:\\Two\\two.exe|");

    // A value that is no number ends the load there.
    run.ctx.autoScanFailed = false;
    run.settings("settings=1,1,1,1,1,1,1,1\r\nadvanced=big,50,0\r\nalgo=md5\r\n");
    EXPECT_FALSE(run.reload());
    EXPECT_TRUE(w.Check3.value() == 1 && !run.ctx.autoScanFailed && run.ctx.algoName == "SHA1");

    // Auto-Load is ticked while its shortcut is there; with no Startup folder of its own, below Programs.
    run.settings(newSettingsFileText());
    run.os.shell.special = {{2, "C:\\Programs"}};
    run.reload();
    EXPECT_EQ(w.Check1.value(), 0);
    run.os.files.put("C:\\Programs\\StartUp\\Tarvelon.lnk", "link");
    run.reload();
    EXPECT_EQ(w.Check1.value(), 1);
}

}  // namespace
}  // namespace tv
