// AppWatch over a scripted desktop: its list, a chosen row, and each action finding its window again and asking before
// Close. The real system's top windows are the Wine platform test's.
#include <gtest/gtest.h>

#include "appwatch/appwatch_actions.h"
#include "tests/core/fakes.h"
#include "ui/main_window.h"

namespace tv {
namespace {

using Rows = std::vector<std::string>;

class AppWatch : public ::testing::Test {
protected:
    AppWatch() {
        os.windows.windows = {
            {10, "Untitled - Notepad", "Notepad", 400},
            {11, "", "tooltips_class32", 400},         // no title: left out
            {12, "My Window", "Hidden", 500},          // hidden windows are listed like others
            {13, "My Window", "Other", 500},           // one process, one title: one row
            {14, "My Window", "Third", 600},           // found by its title as window 12: the same row
            {16, "MY WINDOW", "Fourth", 600},          // found as window 12 too, but its row reads otherwise
            {15, std::string(255, 'x'), "Long", 700},  // its title does not fit the buffer
        };
    }
    void choose(int row) { page.lstOpenWindows.userSetValue(row); }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::MainWindow window;
    ui::AppWatchPage& page = window.appWatch;
    AppWatchActions actions{ctx, page};
};

// Each titled window is listed once by its row text. A chosen row tells the window's class and process, or that it
// has gone. Every action finds its window again: by the class label's tail and the title, or, with the label cleared,
// by the trimmed title and an empty class; Close asks first, and only Yes sends the request. A walk round in circles
// (the order changing under it) ends all the same.
TEST_F(AppWatch, ListsEachTitledWindowOnceAndFindsItAgainByTitleAndClass) {
    page.act.userClick();  // nothing chosen: the start text's tail is no class
    page.ref.userClick();
    // 254 characters and the zero: no window has that title.
    EXPECT_EQ(page.lstOpenWindows.items(), (Rows{"400: Untitled - Notepad", "500: My Window", "500: MY WINDOW",
                                                 "0: " + std::string(254, 'x')}));
    EXPECT_EQ(page.lblCount.caption() + std::to_string(os.loop.pumps), "4 open Windows.7");  // a pump per window
    choose(1);
    EXPECT_EQ(page.lblClassName.caption() + "|" + page.lblProcessID.caption(), "Class Name: Hidden|ProcessID: 500");
    os.windows.windows.erase(os.windows.windows.begin() + 2, os.windows.windows.end());
    choose(1);  // the window closed since the list was made
    EXPECT_EQ(page.txtTitle.caption() + "|" + page.lblClassName.caption() + "|" + page.lblProcessID.caption(),
              "My Window|Window Not Found!!!|ProcessID: 0");
    choose(0);
    page.act.userClick();
    page.lblClassName.setCaption("   ");
    page.txtTitle.userEditText("  Untitled - Notepad  ");
    page.act.userClick();  // no window has an empty class
    choose(0);
    os.boxes.answers = {box::No, box::Yes, box::Yes};
    page.cl.userClick();  // No sends nothing, but the list is made again
    EXPECT_TRUE(os.boxes.shown[0].prompt == "Are you sure you want to close Untitled - Notepad(10)" &&
                os.boxes.shown[0].style == box::YesNo);
    EXPECT_EQ(page.lblCount.caption() + std::to_string(page.lstOpenWindows.value()), "1 open Windows.-1");
    page.cl.userClick();  // the label still names the class: the window is found again
    page.cl.userClick();  // and now it has gone: handle 0
    EXPECT_EQ(os.boxes.shown.back().prompt, "Are you sure you want to close Untitled - Notepad(0)");
    EXPECT_EQ(os.windows.calls, (Rows{"top 0", "top 10", "top 0", "close 10", "close 0"}));
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
    EXPECT_EQ(AppWatchActions(circling, other.appWatch).listOpenWindows(), 1);
}

}  // namespace
}  // namespace tv
