// The Options page and the main window's small actions over the platform's
// stand-ins: Help, the web page, mail and updates; the settings page, the
// shortcuts, the advanced page and Compare Speeds. What the real system makes
// of the saves and shortcuts is the end-to-end scenario's.
#include "core/vb_number.h"
#include "tests/ui/app_fixture.h"
#include "ui/main_actions.h"
#include "ui/shortcut_maker.h"

namespace tv::ui {
namespace {

using test::Texts;
using Opened = std::array<std::string, 3>;
constexpr const char* kProgram = "C:\\Tarvelon\\TarvelonLow.exe";
constexpr const char* kLink = "C:\\Startup\\Tarvelon.lnk";

class Options : public test::AppTest {
protected:
    int chosen(const auto& options) const {
        for (std::size_t i = 0; i < options.size(); ++i)
            if (options[i]->value()) return static_cast<int>(i);
        return -1;
    }
    SettingsPage& page = window.settings;
    AdvancedPage& advanced = window.advanced;
};

// The texts of the Help question and of the web page's are the main window scenario's.
TEST_F(Options, HelpWebPageMailAndUpdatesOpenWhatTheyNameOrSayWhy) {
    for (Control* help : {&window.cButton6, &window.about.cButton4, &window.settings.chlp}) help->userClick();
    os.shell.openResult = 2;  // no help: the web page is offered, and fails as well
    click(window.cButton6, {box::No});
    click(window.cButton6, {box::Yes, box::Ok, box::Ok});
    EXPECT_EQ(os.boxes.shown[2].prompt.rfind("Click on the Tarvelon page, then choose 'Online Help'.", 0), 0u);
    EXPECT_NE(lastBox().find(kMakerWebPage), std::string::npos);
    os.shell.openResult = 42;
    click(window.about.cButton5, {box::No});
    click(window.about.cButton5, {box::Yes});  // opened: nothing more to say
    window.about.Label37.userClick();
    EXPECT_EQ(os.boxes.shown.size(), 6u);
    os.shell.openResult = 31;
    click(window.about.Label37, {box::Ok});
    EXPECT_EQ(lastBox(), std::string("Could not execute default mail client.\r\nPlease write to ") + kSupportMail);
    const std::vector<Opened> opened(3, {"Open", "index.html", "C:\\Tarvelon\\Help\\"});
    EXPECT_EQ(std::vector<Opened>(os.shell.opened.begin(), os.shell.opened.begin() + 3), opened);
    EXPECT_EQ(os.shell.opened.at(5)[1] + os.shell.opened.at(6)[1], std::string(kMakerWebPage) + kMakerWebPage);
    EXPECT_EQ(os.shell.opened.at(7)[1], std::string("mailto:") + kSupportMail + "?subject=Tarvelon(v2.0.0)");

    os.shell.opened.clear();
    click(window.options.cUpdates, {box::No});
    EXPECT_EQ(lastBox(), "Tarvelon requires Orbexa (Orbexa Update Utility) to check for updates.\r\n\r\n"
                         "Would you like to download Orbexa?");
    os.shell.openResult = 5;  // access denied
    click(window.options.cUpdates, {box::Yes, box::Yes, box::Ok});
    EXPECT_EQ(os.shell.opened, std::vector<Opened>(1, {"Open", kUpdateUtilityPage, ""}));
    EXPECT_EQ(lastBox(),
              std::string("The web site could not be opened. Please visit ") + kUpdateUtilityPage + " by hand.");
}

// A save starts from no Auto-Load shortcut and makes it again when the box is
// ticked, with the settings file made anew if it has gone; a shortcut that
// cannot be made is reported instead of the success.
TEST_F(Options, SettingsSaveMakesAutoLoadAnewAndReportsAShortcutItCouldNotMake) {
    window.options.cSettings.userClick();
    ASSERT_TRUE(os.files.remove(ctx.settFile));
    os.files.put(kLink, "old");
    page.Check1.userSetValue(1);
    os.shortcuts.succeed = false;
    click(page.cSave, {box::Ok});
    EXPECT_EQ(os.shortcuts.links.at(0).first, kLink);
    EXPECT_TRUE(os.files.content(ctx.settFile) && !os.files.content(kLink));
    EXPECT_EQ(os.profiles.written, (Texts{"Tarvelon|settings=0,0,0,0,0,0,0,0", "Tarvelon|settings2=0,0,0,0,0,0"}));
    os.files.put(kLink, "old");
    page.Check1.userSetValue(0);
    click(page.cSave, {box::Ok});
    EXPECT_FALSE(os.files.content(kLink));
    EXPECT_EQ(os.shortcuts.links.size(), 1u);
    ASSERT_EQ(os.boxes.shown.size(), 2u);
    EXPECT_TRUE(os.boxes.shown[0].prompt.starts_with(std::string("Tarvelon could not write the Auto-Load shortcut\r\n") + kLink));
    EXPECT_EQ(lastBox(), "Settings Saved Successfully");
}

// The two ways, and what each Auto-Load and Secure Shut Down shortcut holds,
// are the Wine and end-to-end scenarios'; here the rules around them.
TEST_F(Options, ShortcutsTakeTheProgramsNameAndRefuseOrCompleteWhatTheyAreGiven) {
    os.processes.path = "D:\\Tools\\Tarvelon.Low.EXE";
    EXPECT_EQ(programFile(ctx), "C:\\Tarvelon\\Tarvelon.Low.exe");
    EXPECT_FALSE(makeShortcut(ctx, "", kProgram, "", "", "", 0, 5) ||
                 makeShortcut(ctx, "C:\\a.lnk", "", "", "", "", 0, 5));
    EXPECT_TRUE(makeShortcut(ctx, "C:\\a.lnk", kProgram, "C:\\Work", "", "", 3, 7));
    ASSERT_EQ(os.shortcuts.links.size(), 1u);
    const Shortcuts::Link& link = os.shortcuts.links[0].second;
    EXPECT_EQ(link.workDir.value_or("") + "|" + link.description, std::string("C:\\Work|Access Shortcut\0", 24));
    EXPECT_FALSE(link.arguments || link.iconFile);
    for (const char* path : {"C:\\a.URL", "C:\\b.Lnk", "C:\\c.txt", "C:\\lnk", "url"})
        makeShortcutWsh(ctx, path, "d", kProgram, "");
    Texts made;
    for (const auto& shortcut : os.shortcuts.scripted) made.push_back(shortcut.path);
    EXPECT_EQ(made, (Texts{"C:\\a.URL", "C:\\b.Lnk", "C:\\c.txt.lnk", "C:\\lnk.lnk", "url.lnk"}));
    EXPECT_FALSE(os.shortcuts.scripted[0].arguments);
    EXPECT_EQ(os.shortcuts.scripted[0].windowStyle, 0);
    ctx.useWsh = -1;  // only 1 chooses the scripting way
    createAutoLoad(ctx, kLink);
    EXPECT_EQ(os.shortcuts.links.size(), 2u);

    // A Secure Shut Down shortcut that fails is reported; one that is there
    // already is kept, and that is a success.
    ctx.useWsh = 1;
    os.shortcuts.succeed = false;
    os.boxes.answers = {box::No, box::Ok, box::Ok, box::No, box::Ok, box::Ok};
    createShutDownShortcut(ctx);
    const auto& scripted = os.shortcuts.scripted.back();
    EXPECT_EQ(scripted.path + "|" + scripted.description + "|" + scripted.arguments.value_or("none"),
              "C:\\Tarvelon\\SecureShutDown.lnk|SecureShutDown|/s");
    os.files.put("C:\\Tarvelon\\SecureShutDown.lnk", "mine");
    createShutDownShortcut(ctx);
    EXPECT_EQ(os.shortcuts.scripted.size(), 6u);
    EXPECT_TRUE(os.boxes.shown[2].prompt.starts_with(
        "Tarvelon could not create the shortcut\r\nC:\\Tarvelon\\SecureShutDown.lnk\r\n"));
    EXPECT_EQ(lastBox(), "Success!");
}

// Opening the page selects the options of the saved values, and none for a
// value no option stands for; the read buffer takes effect at the save.
TEST_F(Options, AdvancedPageSelectsTheSavedOptions) {
    struct Case {
        const char *advanced, *algorithm;
        int buffer, batch, algorithmOption, wsh;
    };
    for (const Case& c : {Case{"262144,99999,1", " sha1 ", 2, 0, 2, 1}, Case{"65537,7,0", "SHA-1", -1, -1, -1, 0},
                          Case{"524288,200,0", "", 3, 3, 0, 0}}) {  // an empty name is CRC-32
        settings({{"advanced=65536,500,0", std::string("advanced=") + c.advanced},
                  {"algo=crc32", std::string("algo=") + c.algorithm}});
        window.options.cButton2.userClick();
        EXPECT_EQ(chosen(advanced.bufferOptions), c.buffer) << c.advanced;
        EXPECT_EQ(chosen(advanced.batchOptions), c.batch) << c.advanced;
        EXPECT_EQ(chosen(advanced.algorithmOptions), c.algorithmOption) << c.algorithm;
        EXPECT_EQ(advanced.wsh.value(), c.wsh);
    }
    EXPECT_TRUE(window.advF.shown() && !window.qSett.shown() && !window.setFq.shown());
    advanced.bufferOptions[1]->userSetValue(1);
    advanced.batchOptions[1]->userSetValue(1);
    advanced.wsh.userSetValue(0);
    advanced.Check10.userSetValue(0);
    click(advanced.cSave2, {box::Ok});
    EXPECT_EQ(std::to_string(ctx.readBuffer) + "," + std::to_string(ctx.passCount) + "," + std::to_string(ctx.useWsh),
              "131072,50,0");
    EXPECT_EQ(ctx.quoteChar, "");  // the scanner options are in force at once
}

// The warning follows only the clicks on the two scanner options, not the opening.
TEST_F(Options, WarningShowsWhileNeitherScannerOptionIsTicked) {
    settings({{"antivirus2=1,0,0", "antivirus2=0,0,0"}});
    window.options.cButton2.userClick();
    std::string seen = advanced.Label1.visible() ? "W" : "-";
    for (const auto& [box, value] : {std::pair{&advanced.Check11, 1}, {&advanced.Check11, 0}, {&advanced.Check11, 1},
                                     {&advanced.Check10, 0}, {&advanced.Check11, 0}, {&advanced.Check10, 2}}) {
        box->userSetValue(value);
        seen += advanced.Label1.visible() ? "W" : "-";
    }
    EXPECT_EQ(seen, "--W--W-");  // greyed counts as ticked
}

// Three tests over the four buffer sizes on the program file, each size timed
// by the clock; the buffer and the button are put back after them.
class CompareSpeeds : public Options {
protected:
    CompareSpeeds() {
        os.files.put(kProgram, std::string(3000, 'x'));
        ctx.readBuffer = 100000;
        os.loop.onPump = [this] {
            buffersAtPumps += std::to_string(ctx.readBuffer / 1024) + " ";
            EXPECT_FALSE(advanced.cSpeeds.enabled() || advanced.List1.enabled());
            EXPECT_EQ(advanced.cSpeeds.caption(), "Testing... (" + ctx.algoName + ")");
        };
    }
    ~CompareSpeeds() override {
        EXPECT_EQ(ctx.readBuffer, 100000);
        EXPECT_EQ(advanced.cSpeeds.caption(), "Compare Speeds");
        EXPECT_TRUE(advanced.cSpeeds.enabled() && advanced.List1.enabled());
    }
    std::string buffersAtPumps;
};

// Of equal times the smaller buffer stays the quickest; a timing across
// midnight comes out negative, and the quickest.
TEST_F(CompareSpeeds, ReportsEveryTestWithTheQuickestBuffer) {
    for (int i = 0; i < 12; ++i) os.clock.script.insert(os.clock.script.end(), {45296.125, 45296.171875});
    os.clock.script[5] = 45296.1875;  // test 1, 256 Kb
    os.clock.script[12] = 86399.5;    // test 2, 256 Kb, until a quarter past midnight
    os.clock.script[13] = 0.25;
    advanced.cSpeeds.userClick();
    Texts expected;
    for (const auto& [test, count, slow, quickest] :
         {std::tuple{"1", "5", "0.0625", "0.046875 seconds. Using Buffer of: 64"},
          {"2", "10", "-86399.25", "-86399.25 seconds. Using Buffer of: 256"},
          {"3", "100", "0.046875", "0.046875 seconds. Using Buffer of: 64"}}) {
        for (const std::string size : {"64", "128", "256", "512"})
            expected.push_back("Test " + std::string(test) + " Buffer (" + size + " Kb) 3000 byte file (calculated " +
                               count + "x): " + (size == "256" ? slow : "0.046875") + " seconds");
        expected.insert(expected.end(), {std::string("Quickest Calculation at: ") + quickest + " Kb", ""});
    }
    EXPECT_EQ(advanced.List1.items(), expected);
    EXPECT_EQ(buffersAtPumps, "64 128 256 512 64 128 256 512 64 128 256 512 ");
}

TEST_F(CompareSpeeds, MissingProgramFileIsToldAndNothingTimed) {
    ctx.algoName = "";
    os.files.files.clear();
    click(advanced.cSpeeds, {box::Ok});
    EXPECT_EQ(lastBox(), "File not found: C:\\Tarvelon\\TarvelonLow.exe");
    EXPECT_TRUE(advanced.List1.items().empty() && buffersAtPumps.empty());
}

TEST(SingleText, SevenDigitsAndTheExponentFormAtTheEnds) {
    for (const auto& [value, text] : {std::pair{0.0f, "0"}, {-0.0f, "0"}, {999.0f, "999"}, {0.12109375f, "0.1210938"},
                                      {-0.5f, "-0.5"}, {1234567.0f, "1234567"}, {12345678.0f, "1.234568E+07"},
                                      {0.0001f, "0.0001"}, {0.00001f, "1E-05"}})
        EXPECT_EQ(singleText(value), text) << value;
}

}  // namespace
}  // namespace tv::ui
