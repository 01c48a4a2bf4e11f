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

class StartUp : public ::testing::Test {
protected:
    StartUp() {
        os.files.folders = {"C:\\TARVELON"};
        os.shell.special[24] = "C:\\Startup";
        ctx.settFile = kSettings;
    }
    void settings(std::string text) {
        os.files.folders.insert("C:\\TARVELON\\DATA");
        os.files.put(kSettings, std::move(text));
    }
    // No data file: the first-run question comes on the plain name and again on
    // the chosen algorithm's; both are refused.
    void refuseFirstRunTwice() { os.boxes.answers.insert(os.boxes.answers.end(), {box::No, box::Ok, box::No, box::Ok}); }
    bool reload() {
        return ui::loadSettings(app.context(), app.mainForm(), app.scannerChoice());
    }

    test::FakePlatform os;
    ui::Application app{os.set()};
    AppContext& ctx = app.context();
};

// The folders, the new settings file and the questions are the fresh-start
// scenario's; here the run state the program takes from them.
TEST_F(StartUp, FreshFolderGivesThePathsAndTheNewFilesValues) {
    refuseFirstRunTwice();
    app.load();
    EXPECT_EQ(ctx.appPath, "C:\\Tarvelon\\");
    EXPECT_EQ(ctx.intFile, "C:\\Tarvelon\\Data\\Integrity.dat");
    EXPECT_EQ(ctx.regFile, "C:\\Tarvelon\\Data\\Registry.dat");
    EXPECT_EQ(ctx.readBuffer, 65536);
    EXPECT_EQ(ctx.passCount, 500);
    EXPECT_EQ(ctx.algoName, "crc32");
    EXPECT_EQ(ctx.quoteChar, "\"");
    EXPECT_TRUE(app.mainForm().Frame2.shown());
}

TEST_F(StartUp, ExistingSettingsFileIsKeptAndLocked) {
    settings("[Tarvelon]\r\nalgo=md5\r\n");
    os.files.locked.insert("C:\\TARVELON\\DATA\\TARVELON.DAT");
    refuseFirstRunTwice();
    app.load();
    os.files.locked.clear();
    EXPECT_EQ(*os.files.content(kSettings), "[Tarvelon]\r\nalgo=md5\r\n");
    EXPECT_EQ(ctx.algoName, "");  // unreadable: the settings keep their former state
    EXPECT_TRUE(app.mainForm().visible());
}

TEST_F(StartUp, EmptyDataFilePassesTheBaselineTest) {
    os.processes.line = "TarvelonLow.exe /s";
    settings(newSettingsFileText());
    os.files.put("C:\\Tarvelon\\Data\\Integrity.dat", "");
    app.load();
    EXPECT_TRUE(os.boxes.shown.empty());
    EXPECT_TRUE(app.secureShutDown().frmLogoff.visible());
    EXPECT_FALSE(app.mainForm().visible());
    EXPECT_FALSE(os.loop.quitCalled);
}

TEST_F(StartUp, BaselineOfTheChosenAlgorithmIsLoaded) {
    settings("[Tarvelon]\r\nalgo=md5\r\n");
    os.files.put("C:\\Tarvelon\\Data\\Integrity.dat", "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    os.files.put("C:\\Tarvelon\\Data\\Integrity-md5.dat", "[DLL]\r\nA.DLL=2*E\r\nNULL*E\r\n");
    app.load();
    EXPECT_EQ(ctx.intFile, "C:\\Tarvelon\\Data\\Integrity-md5.dat");
    EXPECT_EQ(ctx.section.text[0].entry("A.DLL"), "2");
}

TEST_F(StartUp, SettingsReachControlsAndValues) {
    settings("[Tarvelon]\r\nsettings=1,0,1,0,1,0,1,1\r\nsettings2=0,1,0,1,0,1\r\n"
             "advanced=131072,99999,1\r\nantivirus=C:\\AV\\scan.exe| /all /quiet \r\n"
             "av2=C:\\Two\\two.exe|\r\nantivirus2=0,1,1\r\nalgo=SHA1\r\n");
    os.files.put("C:\\Startup\\Tarvelon.lnk", "link");
    ASSERT_TRUE(reload());
    auto& w = app.mainForm().settings;
    EXPECT_EQ(std::vector<int>({w.Check1.value(), w.Check2.value(), w.Check3.value(), w.Check4.value(), w.Check8.value(),
                                w.Check7.value(), w.Check15.value(), w.Check14.value(), w.Check17.value()}),
              std::vector<int>({1, 1, 0, 1, 1, 1, 0, 1, 1}));
    EXPECT_EQ(ctx.readBuffer, 131072);
    EXPECT_EQ(ctx.passCount, 99999);
    EXPECT_EQ(ctx.useWsh, 1);
    EXPECT_TRUE(ctx.autoScanFailed);
    auto& s = app.scannerChoice();
    EXPECT_EQ(s.Text5.caption() + "|" + s.Text6.caption(), "C:\\AV\\scan.exe|/all /quiet");
    EXPECT_EQ(s.Text1.caption() + "|" + s.Text2.caption(), "C:\\Two\\two.exe|");
    EXPECT_EQ(ctx.quoteChar, "");
    EXPECT_TRUE(ctx.shortPaths);
    EXPECT_EQ(app.mainForm().advanced.avfocus.value(), 1);
    EXPECT_EQ(ctx.algoName, "SHA1");
}

TEST_F(StartUp, ShorterListsLeaveTheRestAsItWas) {
    app.mainForm().settings.Check7.setValue(1);
    app.mainForm().settings.Check17.setValue(1);
    settings("settings=0,1\r\nsettings2=0\r\nadvanced=262144\r\nalgo=md4\r\n");
    ctx.passCount = 50;
    ASSERT_TRUE(reload());
    EXPECT_EQ(app.mainForm().settings.Check3.value(), 1);
    EXPECT_EQ(app.mainForm().settings.Check7.value(), 1);
    EXPECT_EQ(app.mainForm().settings.Check17.value(), 1);
    EXPECT_EQ(ctx.readBuffer, 262144);
    EXPECT_EQ(ctx.passCount, 50);
}

TEST_F(StartUp, ValueThatIsNoNumberEndsTheLoadThere) {
    settings("settings=1,1,1,1,1,1,1,1\r\nadvanced=big,50,0\r\nalgo=md5\r\n");
    EXPECT_FALSE(reload());
    EXPECT_EQ(app.mainForm().settings.Check8.value(), 1);
    EXPECT_FALSE(ctx.autoScanFailed);  // never reached
    EXPECT_EQ(ctx.algoName, "");
}

TEST_F(StartUp, ScannerWithoutBarKeepsProgramAndTakesWholeTextAsArguments) {
    app.scannerChoice().Text5.setCaption("old.exe");
    settings("antivirus=  plain.exe  \r\n");
    reload();
    EXPECT_EQ(app.scannerChoice().Text5.caption(), "old.exe");
    EXPECT_EQ(app.scannerChoice().Text6.caption(), "plain.exe");
}

TEST_F(StartUp, ShortcutGoneClearsAutoLoad) {
    app.mainForm().settings.Check1.setValue(1);
    settings(newSettingsFileText());
    os.shell.special.erase(24);
    os.shell.special[2] = "C:\\Programs";
    os.files.put("C:\\Startup\\Tarvelon.lnk", "link");
    reload();
    EXPECT_EQ(app.mainForm().settings.Check1.value(), 0);
    os.files.put("C:\\Programs\\StartUp\\Tarvelon.lnk", "link");
    reload();
    EXPECT_EQ(app.mainForm().settings.Check1.value(), 1);
}

}  // namespace
}  // namespace tv
