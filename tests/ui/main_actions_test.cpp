#include <gtest/gtest.h>

#include "tests/core/fakes.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"

namespace tv::ui {
namespace {

using Opened = std::array<std::string, 3>;

class MainActionsTest : public ::testing::Test {
protected:
    MainActionsTest() { ctx.appPath = "C:\\Tarvelon\\"; }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    MainWindow window;
    MainActions actions{ctx, window, [] {}};
};

TEST_F(MainActionsTest, HelpOpensTheProgramsOwnPagesAndOffersTheWebWhenTheyAreMissing) {
    for (Control* help : {&window.cButton6, &window.about.cButton4, &window.settings.chlp}) help->userClick();
    EXPECT_EQ(os.shell.opened, std::vector<Opened>(3, {"Open", "index.html", "C:\\Tarvelon\\Help\\"}));
    EXPECT_TRUE(os.boxes.shown.empty());

    os.shell.openResult = 2;  // the question's text is the main window scenario's
    os.boxes.answers = {box::No};
    window.cButton6.userClick();
    EXPECT_EQ(os.shell.opened.size(), 4u);

    os.boxes.answers = {box::Yes, box::Ok, box::Ok};
    window.cButton6.userClick();  // the web page fails as well
    ASSERT_EQ(os.shell.opened.size(), 6u);
    EXPECT_EQ(os.shell.opened[5][1], kMakerWebPage);
    EXPECT_EQ(os.boxes.shown[2].prompt.rfind("Click on the Tarvelon page, then choose 'Online Help'.", 0), 0u);
    EXPECT_NE(os.boxes.shown[3].prompt.find(kMakerWebPage), std::string::npos);
}

TEST_F(MainActionsTest, WebPageOnlyOnYesAndMailNamesTheVersion) {
    os.boxes.answers = {box::No, box::Yes};
    window.about.cButton5.userClick();
    EXPECT_TRUE(os.shell.opened.empty());
    window.about.cButton5.userClick();
    EXPECT_EQ(os.shell.opened.at(0)[1], kMakerWebPage);
    EXPECT_EQ(os.boxes.shown.size(), 2u);  // it opened: nothing more to say

    window.about.Label37.userClick();
    EXPECT_EQ(os.shell.opened.at(1)[1], std::string("mailto:") + kSupportMail + "?subject=Tarvelon(v2.0.0)");
    os.shell.openResult = 31;
    os.boxes.answers = {box::Ok};
    window.about.Label37.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt,
              std::string("Could not execute default mail client.\r\nPlease write to ") + kSupportMail);
}

TEST_F(MainActionsTest, UpdatesWithoutTheUtilityOfferItsDownload) {
    os.boxes.answers = {box::No};
    window.options.cUpdates.userClick();
    EXPECT_EQ(os.boxes.shown.at(0).prompt,
              "Tarvelon requires Orbexa (Orbexa Update Utility) to check for updates.\r\n\r\n"
              "Would you like to download Orbexa?");
    EXPECT_TRUE(os.shell.opened.empty());
    os.boxes.answers = {box::Yes, box::Yes, box::Ok};
    os.shell.openResult = 5;  // access denied
    window.options.cUpdates.userClick();
    ASSERT_EQ(os.shell.opened.size(), 1u);
    EXPECT_EQ(os.shell.opened[0][1], kUpdateUtilityPage);
    EXPECT_EQ(os.boxes.shown.back().prompt,
              std::string("The web site could not be opened. Please visit ") + kUpdateUtilityPage + " by hand.");
    EXPECT_TRUE(os.processes.started.empty());
}

}  // namespace
}  // namespace tv::ui
