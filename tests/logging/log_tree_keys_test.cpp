// The reports' tree by the keyboard: the keys of every tree view move through
// it, any other key loads it again.
#include <gtest/gtest.h>

#include "logging/log_browser_page.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"

namespace tv {
namespace {

TEST(LogTreeKeys, MovingKeysLeaveTheTreeToItselfAndOtherKeysLoadItAgain) {
    test::FakePlatform os;
    os.files.folders = {"C:\\TARVELON", "C:\\TARVELON\\DATA", "C:\\TARVELON\\DATA\\LOG"};
    os.files.put("C:\\Tarvelon\\Data\\Log\\03-05-2006(3_04_07PM).log", "Heading,C:\\A.DLL\r\n");
    ui::Application app{os.set()};
    app.context().appPath = "C:\\Tarvelon\\";
    ui::Control& tree = app.mainForm().logBrowser.TreeView2;
    app.mainForm().logBrowser.cReports.userClick();
    tree.userSelectNode(1);
    os.files.put("C:\\Tarvelon\\Data\\Log\\03-06-2006(9_00_00AM).log", "Heading,C:\\B.DLL\r\n");
    using namespace ui::key;
    for (const int moving : {Left, Up, Right, Down, Home, End, PageUp, PageDown, Add, Subtract, Multiply}) {
        tree.userKeyDown(moving);
        ASSERT_EQ(tree.selectedNode(), 1u) << moving;
    }
    EXPECT_EQ(tree.nodes().size(), 2u);
    tree.userKeyDown('R');
    EXPECT_EQ(tree.selectedNode(), ui::kNoNode);
    EXPECT_EQ(tree.nodes().size(), 4u);
}

}  // namespace
}  // namespace tv
