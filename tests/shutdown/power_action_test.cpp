// The end of a Secure Shut Down: the power action is asked for once, the
// program ends when the machine wakes, and a refused action is named and
// gives the choice back, to the user or, unseen, to the report.
#include <gtest/gtest.h>

#include <algorithm>

#include "avshell/scanner_choice_form.h"
#include "regwatch/registry_text.h"
#include "shutdown/secure_shut_down.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using Calls = std::vector<std::string>;

class PowerAction : public ::testing::Test, public ShutdownHost {
protected:
    PowerAction() {
        os.files.folders.insert({"C:\\TARVELON", "C:\\TARVELON\\DATA", "C:\\TARVELON\\DATA\\LOG"});
        ctx.appPath = "C:\\Tarvelon\\";
    }
    void startIntegrityScan() override { ++scans; }
    void runRegistryPass() override { List5.setItems({"Warnings", kNoWarnings}); }
    void scanAndUpdateWarnings() override {}
    void endProgram() override { ended = true; }
    // A choice in the dialog, then the end of the hidden scan: with something
    // logged, the count-down runs.
    void chooseAndScan(SecureShutDown& windows, ui::Control& choice, bool logged) {
        ctx.scanLogged = logged ? 1 : 0;
        choice.userClick();
        windows.sequence.preShut2();
    }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::ScannerChoiceForm scanners;
    ui::Control List5{ui::Kind::ListBox, "List5", nullptr, {}, ""};
    int scans = 0;
    bool ended = false;
    SecureShutDown shutDown{ctx, scanners, List5, *this};
};

// ShutDown Now before the 120th tick, or after it: one action either way.
TEST_F(PowerAction, TheCountDownSendsItsActionOnceWhoeverAsksFirst) {
    for (const int nowAt : {30, 150}) {
        SecureShutDown fresh{ctx, scanners, List5, *this};
        os.power.calls.clear();
        chooseAndScan(fresh, fresh.frmLogoff.Image4, true);  // Turn Off
        for (int second = 1; second <= 180; ++second) {
            fresh.frmLogoff.Timer1.userTick();
            if (second == nowAt) fresh.sProg.Command1.userClick();
            ASSERT_EQ(os.power.calls.empty(), second < std::min(nowAt, 120)) << second;
        }
        EXPECT_EQ(os.power.calls, (Calls{"privilege", "exit 25 4294967295"})) << nowAt;
    }
    EXPECT_FALSE(ended);  // Windows ends the session, and the program with it

    chooseAndScan(shutDown, shutDown.frmLogoff.Image2, false);  // Standby, at once
    EXPECT_EQ(os.power.calls.back(), "state 1 1");
    EXPECT_TRUE(ended);  // back from standby, the work is done
}

TEST_F(PowerAction, ARefusedActionIsNamedAndTheChoiceComesBack) {
    os.power.refuses = true;
    chooseAndScan(shutDown, shutDown.frmLogoff.Label2, true);  // Log Off... asks to hibernate
    os.boxes.answers = {box::Yes};
    shutDown.sProg.Command1.userClick();
    EXPECT_EQ(os.boxes.shown.at(0).prompt,
              "Windows refused to hibernate the computer.\r\n\r\nThe power options may not allow it, or you may not "
              "have the right to shut the computer down.\r\n\r\nDo you want to choose again? Click No to close "
              "Tarvelon.");
    EXPECT_EQ(os.boxes.shown[0].style, box::YesNo | box::Exclamation);
    EXPECT_EQ(shutDown.sProg.Label2.caption(), "Status: Windows refused to hibernate the computer.");
    EXPECT_TRUE(shutDown.frmLogoff.visible());

    // Chosen again, the action comes at once, without scanning again; No ends the program.
    os.boxes.answers = {box::No};
    shutDown.frmLogoff.Image6.userClick();  // Restart
    EXPECT_EQ(os.power.calls, (Calls{"privilege", "state 0 1", "privilege", "exit 19 4294967295"}));
    EXPECT_EQ(os.boxes.shown.at(1).prompt.substr(0, 40), "Windows refused to restart the computer.");
    EXPECT_EQ(scans, 1);
    EXPECT_TRUE(ended);
}

TEST_F(PowerAction, RefusedWithNobodyThereTheMessageGoesToTheReportAndTheDialogWaits) {
    os.power.refuses = true;
    chooseAndScan(shutDown, shutDown.frmLogoff.Image6, false);
    EXPECT_TRUE(shutDown.frmLogoff.visible());
    EXPECT_EQ(*os.files.content("C:\\Tarvelon\\Data\\Log\\03-05-2006 unattended(3_04_07PM).log"),
              "Unattended Run - Tarvelon did not wait for an answer to these messages,Windows refused to restart "
              "the computer.,The power options may not allow it, or you may not have the right to shut the "
              "computer down.,Do you want to choose again? Click No to close Tarvelon.,Tarvelon answered: Yes\r\n");
    shutDown.frmLogoff.userClose();  // the dialog's close box is its Cancel
    EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace tv
