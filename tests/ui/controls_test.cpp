#include <gtest/gtest.h>

#include "platform/controls.h"
#include "ui/main_window.h"

namespace tv::ui {
namespace {

TEST(FlatControls, DisabledButtonIsWhiteAndGivesNoClickAndNormsTakesTheHoverOff) {
    Control button(Kind::FlatButton, "cGo", nullptr, {}, "Go");
    int clicks = 0;
    button.onClick = [&] { ++clicks; };
    button.setEnabled(false);
    button.userClick();
    button.userPress(true);  // no pressed look either
    EXPECT_EQ(button.foreColour(), kWhite);
    button.setEnabled(true);
    EXPECT_EQ(button.foreColour(), kBlack);
    button.userPress(true);
    button.downStatus();  // does nothing on a button
    EXPECT_EQ(button.foreColour(), kWhite);
    button.userPress(false);
    button.userClick();
    EXPECT_EQ(button.foreColour(), kBlack);
    EXPECT_EQ(clicks, 1);

    MainWindow window;
    window.settings.Check8.userHover(true);
    window.advanced.avfocus.userHover(true);  // a plain check box has no hover
    EXPECT_EQ(window.settings.Check8.foreColour(), kBlue);
    EXPECT_EQ(window.advanced.avfocus.foreColour(), kBlack);
    window.norms();
    EXPECT_FALSE(window.settings.Check8.foreColour() != kBlack || window.settings.Check8.underlined());
}

// The tree of the RegWatch page and of the log browser: nodes found by key in
// the order they came, a key that is taken refusing the node, and only the
// user's clicks and openings raising events.
TEST(TreeView, KeyedNodesInTheirOrderAndTheUsersEventsOnly) {
    Control tree(Kind::TreeView, "TreeView1", nullptr, {}, {});
    std::vector<std::string> events;
    tree.onNodeClick = [&] { events.push_back("click " + std::to_string(tree.selectedNode())); };
    tree.onExpand = [&](std::size_t node, bool open) {
        events.push_back((open ? "open " : "close ") + std::to_string(node));
    };
    EXPECT_TRUE(tree.addNode({}, "LOCAL", "HKEY_LOCAL_MACHINE") && tree.addNode("LOCAL", "!LLIR", "Loaded in Run"));
    EXPECT_TRUE(tree.addNode("!LLIR", "#1 (C:\\a.exe)", "A (C:\\a.exe)"));
    EXPECT_FALSE(tree.addNode("!LLIR", "#1 (C:\\a.exe)", "B (C:\\a.exe)") || tree.addNode("nowhere", "x", "x"));
    EXPECT_TRUE(tree.addNode({}, "USER", "HKEY_CURRENT_USER"));
    EXPECT_EQ(tree.nodeIndex("USER") + tree.nodeIndex("x"), 3u + kNoNode);
    EXPECT_EQ(tree.nodes()[0].children + tree.nodes()[1].children + tree.nodes()[2].parent, 3u);
    EXPECT_EQ(tree.fullPath(2) + "|" + tree.fullPath(3) + "|" + tree.fullPath(9),
              "HKEY_LOCAL_MACHINE\\Loaded in Run\\A (C:\\a.exe)|HKEY_CURRENT_USER|");
    tree.setValue(2);  // chosen by the program: no event
    tree.userSelectNode(1);
    tree.userSelectNode(1);  // the chosen node clicked again
    tree.userExpandNode(0, true);
    tree.userExpandNode(0, false);
    tree.userSelectNode(7);
    tree.userExpandNode(7, true);
    tree.setEnabled(false);
    tree.userSelectNode(0);
    tree.userExpandNode(0, true);
    EXPECT_EQ(events, (std::vector<std::string>{"click 1", "click 1", "open 0", "close 0"}));
    tree.clearNodes();  // the keys go with the nodes, and so does the choice
    EXPECT_EQ(tree.selectedNode(), kNoNode);
    EXPECT_TRUE(tree.addNode({}, "LOCAL", "again"));
}

TEST(ListBox, OneRowChangesInPlaceAndAWholeListArrivesAtOnce) {
    Control list(Kind::ListBox, "List5", nullptr, {}, {});
    std::vector<Prop> told;
    list.setSink([&](Control&, Prop what) { told.push_back(what); });
    list.addItem("row");
    list.setValue(0);
    list.setItem(0, "row) ");
    list.setItem(0, "row) ");  // unchanged: nothing to tell
    list.setItem(5, "none");
    EXPECT_EQ(list.selectedText(), "row) ");
    list.setItems({"a", "b", "c"});
    EXPECT_EQ(list.items().size() + list.value(), 2u);  // and nothing is chosen
    EXPECT_EQ(told, (std::vector<Prop>{Prop::ItemAdded, Prop::Value, Prop::ItemChanged, Prop::Items}));
}

}  // namespace
}  // namespace tv::ui
