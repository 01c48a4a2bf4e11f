#include <gtest/gtest.h>

#include "shutdown/logoff_dialog.h"
#include "shutdown/logoff_form.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

class LogoffDialogTest : public ::testing::Test {
protected:
    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::LogoffForm form;
    int sequences = 0;
    bool ended = false;
    LogoffDialog dialog{ctx, form, [this] { ++sequences; }, [this] { ended = true; }};
};

TEST_F(LogoffDialogTest, EachChoiceSetsItsActionAndStartsTheSequence) {
    form.Image2.userClick();
    EXPECT_EQ(ctx.shutAction, 1);  // Standby
    form.Image4.userClick();
    EXPECT_EQ(ctx.shutAction, 8);
    form.Image6.userClick();
    EXPECT_EQ(ctx.shutAction, 2);
    form.Label2.userClick();  // Log Off... asks for what Hibernate asks for
    EXPECT_EQ(ctx.shutAction, 0);
    EXPECT_EQ(sequences, 4);
    EXPECT_FALSE(ended);
    form.Label1.userClick();
    EXPECT_TRUE(ended);
    EXPECT_EQ(sequences, 4);
}

TEST_F(LogoffDialogTest, ShiftTurnsStandbyIntoHibernateUntilAnyKeyComesUp) {
    form.userKeyDown(ui::key::Shift);
    EXPECT_EQ(form.Label4.caption(), "Hibernate");
    form.userKeyDown('A');  // another key going down changes nothing
    EXPECT_EQ(form.Label4.caption(), "Hibernate");
    form.Image2.userClick();
    EXPECT_EQ(ctx.shutAction, 0);
    form.userKeyUp('A');  // any key coming up, even with SHIFT still held
    EXPECT_EQ(form.Label4.caption(), "Standby");
    form.Image2.userClick();
    EXPECT_EQ(ctx.shutAction, 1);
}

TEST_F(LogoffDialogTest, PicturesLightUnderTheMouseAndTheFormPutsThemToRest) {
    form.Image3.userMouseMove();
    form.Label1.userMouseMove();
    EXPECT_TRUE(form.Image4.visible());
    EXPECT_FALSE(form.Image2.visible());
    EXPECT_EQ(form.Label1.foreColour(), ui::kWhite);
    form.userMouseMove();
    EXPECT_FALSE(form.Image4.visible());
    EXPECT_EQ(form.Label1.foreColour(), ui::kBlack);
}

TEST_F(LogoffDialogTest, AnotherInstanceEndsTheProgramWithItsMessage) {
    EXPECT_TRUE(dialog.load());
    os.processes.otherInstance = true;
    os.boxes.answers = {box::Ok};
    EXPECT_FALSE(dialog.load());
    EXPECT_EQ(os.boxes.shown.at(0).prompt, "You must close Tarvelon before using the Shut Down Feature.");
    EXPECT_TRUE(ended);
}

}  // namespace
}  // namespace tv
