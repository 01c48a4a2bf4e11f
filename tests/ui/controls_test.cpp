#include <gtest/gtest.h>

#include "platform/controls.h"
#include "ui/main_window.h"

namespace tv::ui {
namespace {

TEST(FlatControls, DisabledButtonIsWhiteAndGivesNoClick) {
    Control button(Kind::FlatButton, "cGo", nullptr, {}, "Go");
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    button.setEnabled(false);
    EXPECT_EQ(button.foreColour(), kWhite);
    button.userClick();
    button.userPress(true);  // no pressed look either
    EXPECT_EQ(clicks, 0);
    button.setEnabled(true);
    EXPECT_EQ(button.foreColour(), kBlack);
    button.userPress(true);
    EXPECT_EQ(button.foreColour(), kWhite);
    button.userPress(false);
    button.userClick();
    EXPECT_EQ(button.foreColour(), kBlack);
    EXPECT_EQ(clicks, 1);
    button.downStatus();  // does nothing on a button
    EXPECT_EQ(button.foreColour(), kBlack);
}

TEST(FlatControls, NormsTakesTheHoverLookOffEveryFlatCheckAndLeavesPlainBoxesAlone) {
    MainWindow window;
    window.settings.Check8.userHover(true);
    window.advanced.wsh.userHover(true);
    window.advanced.avfocus.userHover(true);  // a plain check box has no hover
    EXPECT_EQ(window.settings.Check8.foreColour(), kBlue);
    EXPECT_EQ(window.advanced.avfocus.foreColour(), kBlack);
    window.norms();
    EXPECT_EQ(window.settings.Check8.foreColour(), kBlack);
    EXPECT_FALSE(window.advanced.wsh.underlined());
}

}  // namespace
}  // namespace tv::ui
