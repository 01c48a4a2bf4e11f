#include <gtest/gtest.h>

#include "avshell/scanner_choice_form.h"
#include "core/vb_number.h"
#include "tests/core/fakes.h"
#include "ui/advanced_actions.h"
#include "ui/main_window.h"
#include "ui/shortcut_maker.h"
#include "ui/speed_comparison.h"

namespace tv::ui {
namespace {

constexpr const char* kProgram = "C:\\Tarvelon\\TarvelonLow.exe";

class Shortcut : public ::testing::Test {
protected:
    Shortcut() { ctx.appPath = "C:\\Tarvelon\\"; }
    test::FakePlatform os;
    AppContext ctx{os.set()};
};

// What each way makes is read back from real shortcut files under Wine; here
// which way is taken, and what the shell-link way leaves alone.
TEST_F(Shortcut, AutoLoadTakesTheShellLinkWayUnlessTheScriptingOneIsChosen) {
    createAutoLoad(ctx, "C:\\Startup\\Tarvelon.lnk");
    ASSERT_EQ(os.shortcuts.links.size(), 1u);
    EXPECT_EQ(os.shortcuts.links[0].second.description, std::string("Access Shortcut\0", 16));
    os.files.put("C:\\Startup\\Tarvelon.lnk", "old");  // keeps the shell-link way from making one
    createAutoLoad(ctx, "C:\\Startup\\Tarvelon.lnk");
    EXPECT_EQ(os.shortcuts.links.size(), 1u);
    ctx.useWsh = 1;
    createAutoLoad(ctx, "C:\\Startup\\Tarvelon.lnk");
    ASSERT_EQ(os.shortcuts.scripted.size(), 1u);
    EXPECT_EQ(os.shortcuts.scripted[0].windowStyle, 0);
    ctx.useWsh = -1;  // only 1 chooses the scripting way
    os.files.files.clear();
    createAutoLoad(ctx, "C:\\Startup\\Tarvelon.lnk");
    EXPECT_EQ(os.shortcuts.links.size(), 2u);
}

TEST_F(Shortcut, TargetIsTheProgramsOwnNameInItsFolder) {
    os.processes.path = "D:\\Tools\\Tarvelon.Low.EXE";
    ctx.appPath = "D:\\Tools\\";
    EXPECT_EQ(programFile(ctx), "D:\\Tools\\Tarvelon.Low.exe");
}

TEST_F(Shortcut, WaysRefuseOrCompleteWhatTheyAreGiven) {
    EXPECT_FALSE(makeShortcut(ctx, "", kProgram, "", "", "", 0, 5));
    EXPECT_FALSE(makeShortcut(ctx, "C:\\a.lnk", "", "", "", "", 0, 5));
    EXPECT_TRUE(os.shortcuts.links.empty());
    EXPECT_TRUE(makeShortcut(ctx, "C:\\a.lnk", kProgram, "C:\\Work", "", "", 3, 7));
    EXPECT_EQ(os.shortcuts.links[0].second.workDir, "C:\\Work");
    EXPECT_EQ(os.shortcuts.links[0].second.arguments, std::nullopt);
    EXPECT_EQ(os.shortcuts.links[0].second.iconFile, std::nullopt);

    for (const char* path : {"C:\\a.URL", "C:\\b.Lnk", "C:\\c.txt", "C:\\lnk", "url"})
        makeShortcutWsh(ctx, path, "d", kProgram, "");
    std::vector<std::string> made;
    for (const auto& s : os.shortcuts.scripted) made.push_back(s.path);
    EXPECT_EQ(made, (std::vector<std::string>{"C:\\a.URL", "C:\\b.Lnk", "C:\\c.txt.lnk", "C:\\lnk.lnk", "url.lnk"}));
    EXPECT_EQ(os.shortcuts.scripted[0].arguments, std::nullopt);
    os.shortcuts.succeed = false;
    EXPECT_FALSE(makeShortcutWsh(ctx, "C:\\d.lnk", "d", kProgram, "/r"));
}

// The questions and both places through the shell-link way are the settings
// scenario's; here the scripting way, a failure and a shortcut already there.
TEST_F(Shortcut, ShutDownShortcutSaysSuccessOnlyWhenOneIsThere) {
    os.shell.special[0] = "C:\\Desktop";
    ctx.useWsh = 1;
    os.shortcuts.succeed = false;
    os.boxes.answers = {box::No, box::Ok, box::Ok};
    createShutDownShortcut(ctx);
    EXPECT_TRUE(os.boxes.shown.back().prompt.starts_with(
        "Tarvelon could not create the shortcut\r\nC:\\Tarvelon\\SecureShutDown.lnk\r\n"));
    ASSERT_EQ(os.shortcuts.scripted.size(), 1u);
    EXPECT_EQ(os.shortcuts.scripted[0].path, "C:\\Tarvelon\\SecureShutDown.lnk");
    EXPECT_EQ(os.shortcuts.scripted[0].arguments, "/s");
    EXPECT_EQ(os.shortcuts.scripted[0].description, "SecureShutDown");

    os.files.put("C:\\Desktop\\SecureShutDown.lnk", "mine");
    os.boxes.answers = {box::Yes, box::Ok};
    createShutDownShortcut(ctx);
    EXPECT_EQ(os.shortcuts.scripted.size(), 1u);
    EXPECT_EQ(os.boxes.shown.back().prompt, "Success!");
}

class AdvancedPageTest : public ::testing::Test {
protected:
    AdvancedPageTest() {
        ctx.appPath = "C:\\Tarvelon\\";
        ctx.algoName = "CRC32";
        ctx.readBuffer = 65536;
    }
    int chosen(const std::array<Control*, 4>& options) const {
        for (int i = 0; i < 4; ++i)
            if (options[i]->value()) return i;
        return -1;
    }
    int chosenBatch() const {
        for (int i = 0; i < 6; ++i)
            if (page.batchOptions[i]->value()) return i;
        return -1;
    }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    MainWindow window;
    AdvancedPage& page = window.advanced;
    int reloads = 0;
    AdvancedActions actions{ctx, window, [this] { ++reloads; }};
};

TEST_F(AdvancedPageTest, OpeningSelectsTheOptionsOfTheSettingsAndNothingForOtherValues) {
    ctx.readBuffer = 262144;
    ctx.passCount = 99999;
    ctx.algoName = " sha1 ";
    ctx.useWsh = 1;
    window.options.cButton2.userClick();
    EXPECT_EQ(reloads, 1);
    EXPECT_TRUE(window.advF.shown());
    EXPECT_FALSE(window.qSett.shown());
    EXPECT_FALSE(window.setFq.shown());
    EXPECT_EQ(chosen(page.bufferOptions), 2);
    EXPECT_EQ(chosenBatch(), 0);
    EXPECT_EQ(chosen(page.algorithmOptions), 2);
    EXPECT_EQ(page.wsh.value(), 1);

    ctx.readBuffer = 65537;
    ctx.passCount = 7;
    ctx.algoName = "SHA-1";
    ctx.useWsh = 0;
    window.options.cButton2.userClick();
    EXPECT_EQ(chosen(page.bufferOptions), -1);
    EXPECT_EQ(chosenBatch(), -1);
    EXPECT_EQ(chosen(page.algorithmOptions), -1);
    EXPECT_EQ(page.wsh.value(), 0);

    ctx.algoName = "";  // an empty name is CRC-32
    window.options.cButton2.userClick();
    EXPECT_EQ(chosen(page.algorithmOptions), 0);
}

TEST_F(AdvancedPageTest, WarningFollowsOnlyTheClicksOnTheTwoScannerOptions) {
    page.Check10.setValue(0);
    page.Check11.setValue(0);
    window.options.cButton2.userClick();
    EXPECT_FALSE(page.Label1.visible());  // not on opening
    page.Check11.userSetValue(1);
    EXPECT_FALSE(page.Label1.visible());
    page.Check11.userSetValue(0);
    EXPECT_TRUE(page.Label1.visible());
    page.Check11.userSetValue(1);
    page.Check10.userSetValue(0);  // the other one is ticked: left as it is
    EXPECT_FALSE(page.Label1.visible());
    page.Check11.userSetValue(0);
    EXPECT_TRUE(page.Label1.visible());
    page.Check10.userSetValue(2);  // greyed counts as ticked
    EXPECT_FALSE(page.Label1.visible());
}

class CompareSpeeds : public AdvancedPageTest {
protected:
    CompareSpeeds() {
        os.files.put(kProgram, std::string(3000, 'x'));
        os.loop.onPump = [this] {
            buffersAtPumps.push_back(ctx.readBuffer);
            EXPECT_FALSE(page.cSpeeds.enabled());
            EXPECT_FALSE(page.List1.enabled());
            EXPECT_EQ(page.cSpeeds.caption(), "Testing... (" + ctx.algoName + ")");
        };
    }
    // Start and end of each of the twelve timings, from `start` on, each
    // taking `step` seconds.
    void timings(double start, double step) {
        for (int i = 0; i < 12; ++i) os.clock.script.insert(os.clock.script.end(), {start, start + step});
    }
    std::vector<std::int32_t> buffersAtPumps;
};

TEST_F(CompareSpeeds, ReportsEveryTestAndPutsTheBufferBack) {
    ctx.algoName = "";
    ctx.readBuffer = 100000;
    timings(45296.125, 0.046875);
    os.clock.script[5] = 45296.1875;  // test 1 takes longer with 256 Kb
    page.cSpeeds.userClick();
    std::vector<std::string> expected;
    for (const int t : {1, 2, 3}) {
        const char* const counts[] = {"5", "10", "100"};
        for (const char* size : {"64", "128", "256", "512"}) {
            const bool slower = t == 1 && std::string(size) == "256";
            expected.push_back("Test " + std::to_string(t) + " Buffer (" + size + " Kb) 3000 byte file (calculated " +
                               counts[t - 1] + "x): " + (slower ? "0.0625" : "0.046875") + " seconds");
        }
        // Of equal times the smaller buffer stays the quickest.
        expected.push_back("Quickest Calculation at: 0.046875 seconds. Using Buffer of: 64 Kb");
        expected.push_back("");
    }
    EXPECT_EQ(page.List1.items(), expected);
    EXPECT_EQ(buffersAtPumps, (std::vector<std::int32_t>{65536, 131072, 262144, 524288, 65536, 131072, 262144,
                                                          524288, 65536, 131072, 262144, 524288}));
    EXPECT_EQ(ctx.readBuffer, 100000);
    EXPECT_EQ(page.cSpeeds.caption(), "Compare Speeds");
    EXPECT_TRUE(page.cSpeeds.enabled());
    EXPECT_TRUE(page.List1.enabled());
}

TEST_F(CompareSpeeds, TimerPassingMidnightGivesTheQuickestTime) {
    timings(86399.5, 0);
    os.clock.script[5] = 0.25;  // test 1, 256 Kb: from 86399.5 to a quarter past midnight
    page.cSpeeds.userClick();
    EXPECT_EQ(page.List1.items()[0], "Test 1 Buffer (64 Kb) 3000 byte file (calculated 5x): 0 seconds");
    EXPECT_EQ(page.List1.items()[2], "Test 1 Buffer (256 Kb) 3000 byte file (calculated 5x): -86399.25 seconds");
    EXPECT_EQ(page.List1.items()[4], "Quickest Calculation at: -86399.25 seconds. Using Buffer of: 256 Kb");
    EXPECT_EQ(page.List1.items()[10], "Quickest Calculation at: 0 seconds. Using Buffer of: 64 Kb");
}

TEST_F(CompareSpeeds, MissingProgramFileIsReportedAndNothingIsTimed) {
    os.files.files.clear();
    os.boxes.answers = {box::Ok};
    page.cSpeeds.userClick();
    ASSERT_EQ(os.boxes.shown.size(), 1u);
    EXPECT_EQ(os.boxes.shown[0].prompt, "File not found: C:\\Tarvelon\\TarvelonLow.exe");
    EXPECT_TRUE(page.List1.items().empty());
    EXPECT_TRUE(buffersAtPumps.empty());
    EXPECT_EQ(page.cSpeeds.caption(), "Compare Speeds");
    EXPECT_TRUE(page.cSpeeds.enabled());
    EXPECT_EQ(ctx.readBuffer, 65536);
}

TEST(SingleText, SevenDigitsAndTheExponentFormAtTheEnds) {
    EXPECT_EQ(singleText(0.0f), "0");
    EXPECT_EQ(singleText(-0.0f), "0");
    EXPECT_EQ(singleText(999.0f), "999");
    EXPECT_EQ(singleText(0.12109375f), "0.1210938");
    EXPECT_EQ(singleText(-0.5f), "-0.5");
    EXPECT_EQ(singleText(1234567.0f), "1234567");
    EXPECT_EQ(singleText(12345678.0f), "1.234568E+07");
    EXPECT_EQ(singleText(0.0001f), "0.0001");
    EXPECT_EQ(singleText(0.00001f), "1E-05");
}

}  // namespace
}  // namespace tv::ui
