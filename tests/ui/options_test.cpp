// The Options page and the main window's small actions over the platform's stand-ins: Help, the web page, mail and
// updates; edits that last until saved or given up and are in force at once; the settings page, the shortcuts and the
// Startup folder they go to, and the advanced page. The real system's part is the end-to-end scenario's.
#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "tests/ui/app_fixture.h"
#include "ui/load_settings.h"
#include "ui/main_actions.h"
#include "ui/setup_wizard_form.h"
#include "ui/shortcut_maker.h"
#include "ui/startup_folder.h"

namespace tv::ui {
namespace {

using namespace std::string_literals;
using test::Texts;
constexpr const char* kProgram = "C:\\Tarvelon\\TarvelonLow.exe";
constexpr const char* kLink = "C:\\Startup\\Tarvelon.lnk";

class Options : public test::AppTest {
protected:
    std::string chosen(const auto& options) const {  // the option set, or "-"
        for (std::size_t i = 0; i < options.size(); ++i)
            if (options[i]->value()) return std::to_string(i);
        return "-";
    }
    SettingsPage& page = window.settings;
    AdvancedPage& advanced = window.advanced;
};

// Help, the web page (offered when help fails), mail and the update utility open what they name; a failure says why.
TEST_F(Options, HelpWebPageMailAndUpdatesOpenWhatTheyNameOrSayWhy) {
    for (Control* help : {&window.cButton6, &window.about.cButton4, &window.settings.chlp}) help->userClick();
    os.shell.openResult = 2;  // no help: the web page is offered, and fails as well
    click(window.cButton6, {box::No});
    click(window.cButton6, {box::Yes, box::Ok, box::Ok});
    os.shell.openResult = 31;
    click(window.about.Label37, {box::Ok});
    click(window.options.cUpdates, {box::No});
    click(window.options.cUpdates, {box::Yes, box::Yes, box::Ok});
    EXPECT_EQ(os.boxes.shown.at(4).prompt, std::string("Could not execute default mail client.\r\nPlease write to ") + kSupportMail);
    std::string opened, help = "index.htmlC:\\Tarvelon\\Help\\ ", web = kMakerWebPage + " "s;
    for (const auto& open : os.shell.opened) opened += open[1] + open[2] + " ";
    EXPECT_EQ(opened, help + help + help + help + help + web + "mailto:" + kSupportMail + "?subject=Tarvelon(v2.0.0) " +
                          kUpdateUtilityPage + " ");
}

// A save starts from no Auto-Load shortcut and makes it again when the box is ticked, with the settings file made
// anew if it has gone; a shortcut that cannot be made is reported instead of the success.
TEST_F(Options, SettingsSaveMakesAutoLoadAnewAndReportsAShortcutItCouldNotMake) {
    window.options.cSettings.userClick();
    ASSERT_TRUE(os.files.remove(ctx.settFile));
    os.files.put(kLink, "old");
    page.Check1.userSetValue(1);
    os.shortcuts.succeed = false;
    click(page.cSave, {box::Ok});
    EXPECT_TRUE(os.shortcuts.links.at(0).first == kLink && os.files.content(ctx.settFile) && !os.files.content(kLink));
    EXPECT_EQ(os.profiles.written, (Texts{"Tarvelon|settings=0,0,0,0,0,0,0,0", "Tarvelon|settings2=0,0,0,0,0,0"}));
    os.files.put(kLink, "old");
    page.Check1.userSetValue(0);
    click(page.cSave, {box::Ok});
    EXPECT_TRUE(!os.files.content(kLink) && os.shortcuts.links.size() == 1u && os.boxes.shown.size() == 2u);
    EXPECT_TRUE(os.boxes.shown[0].prompt.starts_with(std::string("Tarvelon could not write the Auto-Load shortcut\r\n") + kLink));
    EXPECT_EQ(lastBox(), "Settings Saved Successfully");
}

// What the shortcuts hold on disk is the Wine and end-to-end scenarios'; here the rules around them.
TEST_F(Options, ShortcutsTakeTheProgramsNameAndRefuseOrCompleteWhatTheyAreGiven) {
    EXPECT_TRUE(makeShortcut(ctx, "C:\\a.lnk", kProgram, "C:\\Work", "", "", 3, 7));
    const Shortcuts::Link& link = os.shortcuts.links.at(0).second;
    EXPECT_EQ(link.workDir.value_or("") + "|" + link.description, std::string("C:\\Work|Access Shortcut\0", 24));
    for (const char* path : {"C:\\a.URL", "C:\\b.Lnk", "C:\\c.txt", "url"}) makeShortcutWsh(ctx, path, "d", kProgram, "");
    const auto& made = os.shortcuts.scripted;
    EXPECT_EQ(made[0].path + made[1].path + made[2].path + made[3].path, "C:\\a.URLC:\\b.LnkC:\\c.txt.lnkurl.lnk");
    // A Secure Shut Down shortcut that fails is reported; one that is there already is kept, and that is a success.
    ctx.useWsh = 1;
    os.shortcuts.succeed = false;
    os.boxes.answers = {box::No, box::Ok, box::Ok, box::No, box::Ok, box::Ok};
    createShutDownShortcut(ctx);
    const auto& scripted = os.shortcuts.scripted.back();
    EXPECT_EQ(scripted.path + "|" + scripted.description + "|" + scripted.arguments.value_or("none"),
              "C:\\Tarvelon\\SecureShutDown.lnk|SecureShutDown|/s");
    os.files.put("C:\\Tarvelon\\SecureShutDown.lnk", "mine");
    createShutDownShortcut(ctx);
    EXPECT_EQ(os.shortcuts.scripted.size(), 5u);
    EXPECT_TRUE(os.boxes.shown[2].prompt.starts_with(
        "Tarvelon could not create the shortcut\r\nC:\\Tarvelon\\SecureShutDown.lnk\r\n"));
    EXPECT_EQ(lastBox(), "Success!");
}

// Opening the page selects the options of the saved values, and none for a value no option stands for; the read
// buffer and the scanner options take effect at the save.
TEST_F(Options, AdvancedPageSelectsTheSavedOptions) {
    for (const auto& [saved, algorithm, options] : {std::tuple{"262144,99999,1", " sha1 ", "2021"}, {"65537,7,0", "SHA-1", "---0"},
                                                    {"524288,200,0", "", "3300"}, {"131072,350,0", "md5", "1410"}}) {
        settings({{"advanced=65536,500,0", "advanced="s + saved}, {"algo=crc32", "algo="s + algorithm}});  // "": CRC-32
        window.options.cButton2.userClick();
        EXPECT_EQ(chosen(advanced.bufferOptions) + chosen(advanced.batchOptions) + chosen(advanced.algorithmOptions) +
                  std::to_string(advanced.wsh.value()), options) << saved << algorithm;
    }
    advanced.bufferOptions[1]->userSetValue(1);
    advanced.batchOptions[1]->userSetValue(1);
    advanced.wsh.userSetValue(0);
    advanced.Check10.userSetValue(0);
    advanced.Check11.userSetValue(1);
    click(advanced.cSave2, {box::Ok});
    EXPECT_EQ(std::make_tuple(ctx.readBuffer, ctx.passCount, ctx.useWsh, ctx.quoteChar, ctx.shortPaths),  // at once
              std::make_tuple(131072, 50, std::int16_t{0}, std::string(), true));
}

// A scanner edit outlives every page that loads the settings until it is saved or given up with Cancel; given up,
// it lasts until the settings are loaded again. The wizard's logging box, saved, is what the next report obeys, and
// its scanner is the scanner window's, whose arguments it had handed over; cancelled ticks are undone at once on both
// pages.
TEST_F(Options, EditsLastUntilSavedOrGivenUpAndActAtOnce) {
    settings({{"antivirus=", "antivirus=C:\\AV\\old.exe|/old"}});
    os.files.put("C:\\AV\\new.exe", "MZ");
    ScannerChoiceForm& choice = app.scannerChoice();
    loadSettings(ctx, window, choice);
    window.settings.cButton10.userClick();
    choice.Text5.userEditText("C:\\AV\\new.exe");
    for (Control* opener : {&window.Image11, &window.options.cSettings, &window.options.cButton2, &window.options.cSetW})
        opener->userClick();
    EXPECT_EQ(choice.Text5.caption() + "|" + choice.Text6.caption(), "C:\\AV\\new.exe|/old");
    os.boxes.answers = {box::Ok};
    choice.cButton3.userClick();
    EXPECT_EQ(os.profiles.written.end()[-2], "Tarvelon|antivirus=C:\\AV\\new.exe|/old");
    choice.Text6.userEditText("/typed");
    choice.cButton2.userClick();
    window.Image11.userClick();
    EXPECT_EQ(choice.Text6.caption(), "/old");
    window.options.cSetW.userClick();
    SetupWizardForm& wizard = app.setupWizard();
    wizard.Check7.userSetValue(1);
    os.shell.fileChoices = {"C:\\AV\\new.exe"};
    wizard.locate.userClick();
    os.boxes.answers = {box::Ok, box::Ok};
    wizard.Command2.userClick();
    EXPECT_EQ(std::to_string(ctx.autoLogging->value()) + choice.Text5.caption() + "|" + choice.Text6.caption(), "1C:\\AV\\new.exe|");
    window.options.cSettings.userClick();
    window.settings.Check7.userSetValue(0);
    window.settings.cCancelSett.userClick();
    window.options.cButton2.userClick();
    window.advanced.avfocus.userSetValue(1);
    window.advanced.cButton1.userClick();
    EXPECT_EQ(ctx.autoLogging->value() * 10 + ctx.scannerFocus->value(), 10);
}

// Where Auto-Load puts its shortcut: all users' Startup folder only for Tarvelon installed for all users and run by
// an administrator, the user's own otherwise; one an earlier copy left in the other folder is used and brought up to
// date, and goes with the user's own when Auto-Load is off.
constexpr const char* kOwn = "C:\\Users\\Ann\\Startup\\Tarvelon.lnk";
constexpr const char* kAll = "C:\\ProgramData\\Startup\\Tarvelon.lnk";
constexpr const char* kInstalled = "C:\\Program Files\\Tarvelon\\TarvelonLow.exe";

// The machine's list of installed programs with one setup's entry, which only an administrator may open.
struct SetupEntry final : test::NoRegistry {
    std::string name, folder;
    bool administrator = true;
    long openKey(std::uint32_t root, const RegText& subKey, RegView, RegAccess, Key& key) override {
        const bool found = root == hive::LocalMachine && subKey.text == "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\" + name;
        key = found && administrator ? 7 : 0;
        return key ? 0 : found ? 5 : 2;
    }
    long queryValue(Key key, const RegText& value, RegValue& read) override {
        return key != 7 || value.text != "InstallLocation" ? 2 : (read.type = 1, read.bytes = folder + '\0', 0);
    }
};

class AutoLoadFolder : public ::testing::Test {
protected:
    AutoLoadFolder() {
        ctx.appPath = "C:\\Program Files\\Tarvelon\\";
        os.processes.path = kInstalled;
        os.shell.special[kUserStartupFolder] = "C:\\Users\\Ann\\Startup";
        os.shell.special[kCommonStartupFolder] = "C:\\ProgramData\\Startup";
    }
    test::FakePlatform os;
    SetupEntry entry;
    AppContext ctx{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, entry, os.clock,
                    os.windows, os.power, os.shortcuts}};
};

TEST_F(AutoLoadFolder, AllUsersStartupOnlyForTheAllUsersInstallationAndAnEarlierCopysShortcutIsUsed) {
    for (const auto& [name, folder, administrator, link] :
         {std::tuple{"Tarvelon", "C:\\Program Files\\Tarvelon", true, kAll},
          {"Tarvelon (32-bit)", "c:\\program files\\TARVELON\\", true, kAll},
          {"Tarvelon", "C:\\Program Files\\Tarvelon", false, kOwn}, {"Tarvelon", "C:\\Program Files\\Tarvelon Old", true, kOwn},
          {"Orbexa", "C:\\Program Files\\Tarvelon", true, kOwn}}) {
        std::tie(entry.name, entry.folder, entry.administrator) = std::tuple{name, folder, administrator};
        EXPECT_EQ(autoLoadShortcutPath(ctx), link) << name << " " << folder << " " << administrator;
    }
    entry.name.clear();  // no setup at all: a copy unpacked from the portable archive
    EXPECT_EQ(getStartupFolder(ctx), "C:\\Users\\Ann\\Startup");
    os.files.put(kAll, "an earlier copy's");
    EXPECT_TRUE(fileThere(ctx, autoLoadShortcutPath(ctx)) && saveAutoLoad(ctx, true, false));  // on, and saved in place
    const auto& [path, link] = os.shortcuts.links.at(0);
    EXPECT_EQ(path + "|" + link.target + "|" + link.arguments.value_or("none"), std::string(kAll) + "|" + kInstalled + "| /r");
    os.files.put(kOwn, "mine");
    EXPECT_TRUE(saveAutoLoad(ctx, false, true));
    EXPECT_FALSE(fileThere(ctx, kOwn) || fileThere(ctx, kAll) || !os.boxes.shown.empty());
    EXPECT_TRUE(saveAutoLoad(ctx, true, true));  // a new one goes to the user's own folder
    EXPECT_EQ(os.shortcuts.links.back().first, kOwn);
}

}  // namespace
}  // namespace tv::ui
