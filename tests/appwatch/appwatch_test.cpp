#include <gtest/gtest.h>

#include "appwatch/appwatch_actions.h"
#include "tests/core/fakes.h"
#include "ui/main_window.h"

namespace tv {
namespace {

using Window = test::ScriptedTopWindows::Window;
using Rows = std::vector<std::string>;

class AppWatch : public ::testing::Test {
protected:
    AppWatch() {
        os.windows.windows = {
            {10, "Untitled - Notepad", "Notepad", 400},
            {11, "", "tooltips_class32", 400},           // no title: left out
            {12, "My Window", "Hidden", 500},            // hidden windows are listed like others
            {13, "My Window", "Other", 500},             // one process, one title: one row
            {14, "My Window", "Third", 600},             // found by its title as window 12: the same row
            {16, "MY WINDOW", "Fourth", 600},            // found as window 12 too, but its row reads otherwise
            {15, std::string(255, 'x'), "Long", 700},    // its title does not fit the buffer
        };
    }
    void choose(std::size_t row) { page.lstOpenWindows.userSetValue(static_cast<int>(row)); }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::MainWindow window;
    ui::AppWatchPage& page = window.appWatch;
    AppWatchActions actions{ctx, page};
};

TEST_F(AppWatch, RefreshListsEachTitledWindowOnceByItsRowText) {
    page.ref.userClick();
    const std::string cut(254, 'x');  // 254 characters and the zero: no window has that title
    EXPECT_EQ(page.lstOpenWindows.items(),
              (Rows{"400: Untitled - Notepad", "500: My Window", "500: MY WINDOW", "0: " + cut}));
    EXPECT_EQ(page.lblCount.caption(), "4 open Windows.");
    EXPECT_EQ(os.loop.pumps, 7);  // after every window, titled or not
}

// A walk round in circles (the order changing under it) ends all the same.
TEST_F(AppWatch, WalkThatNeverReachesTheEndStops) {
    struct Circle final : TopWindows {
        NativeWindow desktop() const override { return 1; }
        NativeWindow relative(NativeWindow, int) const override { return 2; }
        std::string titleBuffer(NativeWindow, std::size_t n) const override { return "Loop" + std::string(n - 4, '\0'); }
        std::string classBuffer(NativeWindow, std::size_t n) const override { return std::string(n, '\0'); }
        std::uint32_t processId(NativeWindow) const override { return 9; }
        NativeWindow find(const std::optional<std::string>&, const std::string&) const override { return 2; }
        void bringToTop(NativeWindow) override {}
        void askToClose(NativeWindow) override {}
    } circle;
    AppContext circling{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, os.registry,
                         os.clock, circle, os.power, os.shortcuts}};
    ui::MainWindow other;
    AppWatchActions watch{circling, other.appWatch};
    EXPECT_EQ(watch.listOpenWindows(), 1);
    EXPECT_EQ(other.appWatch.lstOpenWindows.items(), Rows{"9: Loop"});
}

TEST_F(AppWatch, ChosenRowTellsClassAndProcessOrThatTheWindowIsGone) {
    page.ref.userClick();
    choose(1);
    EXPECT_EQ(page.txtTitle.caption(), "My Window");
    EXPECT_EQ(page.lblClassName.caption(), "Class Name: Hidden");
    EXPECT_EQ(page.lblProcessID.caption(), "ProcessID: 500");

    os.windows.windows.erase(os.windows.windows.begin() + 2, os.windows.windows.end());
    choose(1);  // the window closed since the list was made
    EXPECT_EQ(page.txtTitle.caption(), "My Window");
    EXPECT_EQ(page.lblClassName.caption(), "Window Not Found!!!");
    EXPECT_EQ(page.lblProcessID.caption(), "ProcessID: 0");
}

TEST_F(AppWatch, ActivateAndCloseFindTheWindowByClassAndTitle) {
    page.act.userClick();  // nothing chosen: the start text's tail is no class
    EXPECT_EQ(os.windows.calls, Rows{"top 0"});

    page.ref.userClick();
    choose(0);
    page.act.userClick();
    EXPECT_EQ(os.windows.calls.back(), "top 10");

    os.boxes.answers = {box::No};
    page.cl.userClick();
    EXPECT_EQ(os.boxes.shown[0].prompt, "Are you sure you want to close Untitled - Notepad(10)");
    EXPECT_EQ(os.boxes.shown[0].style, box::YesNo);
    EXPECT_EQ(os.windows.calls.size(), 2u);  // No sends nothing, but the list is made again
    EXPECT_EQ(page.lstOpenWindows.value(), -1);

    os.boxes.answers = {box::Yes};
    page.cl.userClick();
    EXPECT_EQ(os.windows.calls.back(), "close 10");
    EXPECT_EQ(page.lblCount.caption(), "3 open Windows.");  // the list is made again

    os.boxes.answers = {box::Yes};  // the window has gone meanwhile: handle 0
    page.cl.userClick();
    EXPECT_EQ(os.boxes.shown.back().prompt, "Are you sure you want to close Untitled - Notepad(0)");
    EXPECT_EQ(os.windows.calls.back(), "close 0");
}

TEST_F(AppWatch, ClassLabelClearedByHandLooksUpTheTrimmedTitleWithAnEmptyClass) {
    page.ref.userClick();
    choose(0);
    page.lblClassName.setCaption("   ");
    page.txtTitle.userEditText("  Untitled - Notepad  ");
    page.act.userClick();
    EXPECT_EQ(os.windows.calls.back(), "top 0");  // no window has an empty class name
}

}  // namespace
}  // namespace tv
