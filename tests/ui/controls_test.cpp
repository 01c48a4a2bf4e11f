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

// The tree of the RegWatch page and of the log browser: nodes found by key,
// kept in the order they came, and the user's clicks and openings as events.
TEST(TreeView, KeyedNodesKeepTheirOrderAndAKeyThatIsTakenDropsTheNode) {
    Control tree(Kind::TreeView, "TreeView1", nullptr, {}, {});
    std::vector<Prop> told;
    tree.setSink([&](Control&, Prop what) { told.push_back(what); });
    EXPECT_TRUE(tree.addNode({}, "LOCAL", "HKEY_LOCAL_MACHINE"));
    EXPECT_TRUE(tree.addNode("LOCAL", "!LLIR", "Loaded in Run"));
    EXPECT_TRUE(tree.addNode("!LLIR", "#1 (C:\\a.exe)", "A (C:\\a.exe)"));
    EXPECT_FALSE(tree.addNode("!LLIR", "#1 (C:\\a.exe)", "B (C:\\a.exe)"));  // same value text: no second node
    EXPECT_FALSE(tree.addNode("nowhere", "x", "x"));
    EXPECT_TRUE(tree.addNode({}, "USER", "HKEY_CURRENT_USER"));
    ASSERT_EQ(tree.nodes().size(), 4u);
    EXPECT_EQ(told, std::vector<Prop>(4, Prop::NodeAdded));
    EXPECT_EQ(tree.nodeIndex("USER"), 3u);
    EXPECT_EQ(tree.nodeIndex("x"), kNoNode);
    EXPECT_EQ(tree.nodes()[2].parent, 1u);
    EXPECT_EQ(tree.nodes()[0].children, 1u);
    EXPECT_EQ(tree.nodes()[1].children, 1u);
    EXPECT_EQ(tree.nodes()[3].parent, kNoNode);
    EXPECT_EQ(tree.fullPath(2), "HKEY_LOCAL_MACHINE\\Loaded in Run\\A (C:\\a.exe)");
    EXPECT_EQ(tree.fullPath(3), "HKEY_CURRENT_USER");
    EXPECT_EQ(tree.fullPath(9), "");

    tree.setValue(2);  // chosen by the program: no event
    EXPECT_EQ(tree.selectedNode(), 2u);
    tree.clearNodes();  // the keys go with the nodes, and so does the choice
    EXPECT_EQ(tree.selectedNode(), kNoNode);
    EXPECT_TRUE(tree.addNode({}, "LOCAL", "again"));
    EXPECT_EQ(tree.nodeIndex("LOCAL"), 0u);
}

TEST(TreeView, ClicksAndOpeningsAreTheUsersOnly) {
    Control tree(Kind::TreeView, "TreeView1", nullptr, {}, {});
    tree.addNode({}, "ROOT", "HKEY_CLASSES_ROOT");
    tree.addNode("ROOT", "!RSWE", "Spawned with EXE's");
    std::vector<std::string> events;
    tree.onNodeClick = [&] { events.push_back("click " + std::to_string(tree.selectedNode())); };
    tree.onExpand = [&](std::size_t node, bool open) {
        events.push_back((open ? "open " : "close ") + std::to_string(node));
    };
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
    EXPECT_EQ(tree.selectedNode(), 1u);
}

TEST(ListBox, OneRowChangesInPlaceAndAWholeListArrivesAtOnce) {
    Control list(Kind::ListBox, "List5", nullptr, {}, {});
    std::vector<Prop> told;
    list.setSink([&](Control&, Prop what) { told.push_back(what); });
    list.addItem("heading");
    list.addItem("row");
    list.setValue(1);
    list.setItem(1, "row) ");
    list.setItem(1, "row) ");  // unchanged: nothing to tell
    list.setItem(5, "none");
    EXPECT_EQ(list.changedItem(), 1u);
    EXPECT_EQ(list.selectedText(), "row) ");
    list.setItems({"a", "b", "c"});
    EXPECT_EQ(list.items().size(), 3u);
    EXPECT_EQ(list.value(), -1);
    EXPECT_EQ(told, (std::vector<Prop>{Prop::ItemAdded, Prop::ItemAdded, Prop::Value, Prop::ItemChanged, Prop::Items}));
}

}  // namespace
}  // namespace tv::ui
