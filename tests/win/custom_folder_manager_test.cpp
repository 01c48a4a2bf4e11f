#include "core/settings_store.h"
#include "core/text.h"
#include "custom/custom_folder_form.h"
#include "custom/custom_folder_manager.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"
#include "tests/win/scan_fixture.h"

namespace tv::test {
namespace {

class CustomFolderManagerTest : public ScanDriverTest {
protected:
    CustomFolderManagerTest() {
        files.makeFolder(path("tools"));
        files.makeFolder(path("more"));
    }
    void addFolder(const std::string& folder) {
        shell.folderChoices.push_back(folder);
        form.cButton2.userClick();
    }
    std::string row(int slot) const { return form.List1.items().at(slot - 1); }
    std::array<bool, 6> ticks(const ui::Control& list) const {
        std::array<bool, 6> ticked{};
        for (std::size_t type = 0; type < 6; ++type) ticked[type] = list.ticked(type);
        return ticked;
    }

    ui::CustomFolderForm form;
    int folderListReloads = 0;
    ui::CustomFolderManager manager{ctx, form, [this] { ++folderListReloads; }};
};

TEST_F(CustomFolderManagerTest, SlotsLastCharacterDecidesJoiningAndPositionsTheGroups) {
    writeEntry(ctx, ctx.settFile, "path", "C:\\TOOLS\\", "12");
    writeEntry(ctx, ctx.settFile, "args", "1,0,0,0,0,0,1", "12");
    const CustomSlot record = readSlot(ctx, 12);
    EXPECT_EQ(record.path, "C:\\TOOLS\\");
    EXPECT_TRUE(joinsRun(record.args));
    EXPECT_FALSE(joinsRun(record.args2));
    EXPECT_EQ(wantedGroups(record.args), (std::array<bool, 6>{true, false, false, false, false, false}));
    EXPECT_TRUE(joinsRun("1,1"));  // a short list joins when it ends in "1"
    EXPECT_EQ(wantedGroups("1,1"), (std::array<bool, 6>{true, true, false, false, false, false}));
    ctx.algoName = "SHA1";
    EXPECT_EQ(hash::getCustomDat(ctx, 12), path("Data\\12-sha1.dat"));
}

TEST_F(CustomFolderManagerTest, RowsShowEverySlotInItsPlace) {
    writeEntry(ctx, ctx.settFile, "path", " " + path("tools\\") + " ", "3");
    writeEntry(ctx, ctx.settFile, "args", "", "3");  // read as nothing ticked
    writeEntry(ctx, ctx.settFile, "path", path("more\\"), "12");
    manager.show();
    ASSERT_EQ(form.List1.items().size(), 20u);
    EXPECT_EQ(row(1), "1) Empty:");
    EXPECT_EQ(row(3), "3) " + path("tools\\"));
    EXPECT_EQ(row(12), "12) " + path("more\\"));
    EXPECT_EQ(form.List3.items()[2], "0,0,0,0,0,0,0");
    EXPECT_TRUE(form.visible());
}

TEST_F(CustomFolderManagerTest, EachListOfASlotIsKeptWhenTheOtherIsMissing) {
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "2");
    writeEntry(ctx, ctx.settFile, "args", "1,0,1,0,0,0,1", "2");
    writeEntry(ctx, ctx.settFile, "args2", "", "2");
    writeEntry(ctx, ctx.settFile, "path", path("more\\"), "3");
    writeEntry(ctx, ctx.settFile, "args", "", "3");
    writeEntry(ctx, ctx.settFile, "args2", "0,0,0,0,0,1,1", "3");
    manager.show();
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,0,0,1");
    EXPECT_EQ(form.List5.items()[1], "0,0,0,0,0,0,0");
    EXPECT_EQ(form.List3.items()[2], "0,0,0,0,0,0,0");
    EXPECT_EQ(form.List5.items()[2], "0,0,0,0,0,1,1");
    boxes.answers = {box::Ok};
    form.Command3.userClick();
    EXPECT_EQ(readSlot(ctx, 2).args, "1,0,1,0,0,0,1");  // still scanned at log-on
    EXPECT_EQ(readSlot(ctx, 3).args2, "0,0,0,0,0,1,1");
}

// Opened after it was closed, the form starts as a new load does, whatever was
// chosen, ticked and coloured before.
TEST_F(CustomFolderManagerTest, ReopenedFormStartsAsNew) {
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "2");
    writeEntry(ctx, ctx.settFile, "args", "1,1,0,0,0,0,1", "2");
    writeEntry(ctx, ctx.settFile, "args2", "0,0,0,0,0,1,1", "2");
    const auto startsAsNew = [this] {
        EXPECT_EQ(form.List1.value(), -1);
        EXPECT_EQ(form.Label1.caption(), "Currently Selected:");
        for (const ui::Control* box : {&form.Check1, &form.Check2}) {
            EXPECT_EQ(box->value(), 0) << box->name();
            EXPECT_FALSE(box->enabled()) << box->name();
            EXPECT_EQ(box->backColour(), ui::kSystemColour) << box->name();
        }
        for (const ui::Control* types : {&form.List2, &form.List4}) {
            EXPECT_EQ(ticks(*types), (std::array<bool, 6>{})) << types->name();
            EXPECT_FALSE(types->enabled()) << types->name();
        }
    };
    manager.show();
    startsAsNew();
    form.List1.userSetValue(1);
    ASSERT_TRUE(form.Check1.enabled());
    ASSERT_TRUE(form.List2.ticked(1));
    form.userClose();  // nothing changed: no question
    EXPECT_TRUE(boxes.shown.empty());
    manager.show();
    startsAsNew();
}

TEST_F(CustomFolderManagerTest, AddRefusesTheSystemDirectoryAndAFolderInUse) {
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "10");
    manager.show();
    boxes.answers = {box::Ok, box::Ok, box::Ok};
    addFolder(path("SYS"));
    addFolder(upperCase(path("tools")));  // another case, no backslash: the same folder
    addFolder(path("more"));
    ASSERT_EQ(boxes.shown.size(), 3u);
    EXPECT_EQ(boxes.shown[0].prompt,
              "This is the default folder that Tarvelon scans. It cannot be added to the Custom Integrity Checker");
    EXPECT_EQ(boxes.shown[1].prompt, "This folder is already being scanned.");
    EXPECT_EQ(row(1), "1) " + path("more\\"));  // the lowest free row
    EXPECT_EQ(readSlot(ctx, 1).path, "NULL");     // only Save writes
    EXPECT_EQ(manager.custDirty, 1);
}

TEST_F(CustomFolderManagerTest, TwentyFoldersInUseLeaveTheNextOneOutWithoutAWord) {
    for (int slot = 1; slot <= 20; ++slot)
        writeEntry(ctx, ctx.settFile, "path", "C:\\F" + std::to_string(slot) + "\\", std::to_string(slot));
    manager.show();
    addFolder(path("more"));
    EXPECT_EQ(shell.folderTitles.size(), 1u);
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(row(20), "20) C:\\F20\\");
}

TEST_F(CustomFolderManagerTest, TypeListsFollowTheirBoxAndTheChosenRow) {
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "2");
    writeEntry(ctx, ctx.settFile, "args", "1,0,1,0,0,0,1", "2");
    writeEntry(ctx, ctx.settFile, "args2", "0,0,0,0,0,1,0", "2");
    manager.show();
    form.List1.userSetValue(1);
    EXPECT_EQ(form.Label1.caption(), "Currently Selected: 2) " + path("tools\\"));
    EXPECT_EQ(ticks(form.List2), (std::array<bool, 6>{true, false, true, false, false, false}));
    EXPECT_EQ(form.Check1.value(), 1);
    EXPECT_EQ(form.Check1.backColour(), 0x800000u);
    EXPECT_EQ(form.Check1.foreColour(), 0xFFFFFFu);
    EXPECT_TRUE(form.List2.enabled());
    EXPECT_FALSE(form.List4.enabled());
    EXPECT_EQ(manager.custDirty, 0);  // loading a row changes nothing

    form.List2.userTickItem(4, true);
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,1,0,1");
    form.Check1.userSetValue(0);  // the list closes and keeps its ticks
    EXPECT_EQ(form.Check1.backColour(), 0x0000FFu);
    EXPECT_FALSE(form.List2.enabled());
    EXPECT_EQ(form.List3.items()[1], "1,0,1,0,1,0,0");

    form.List1.userSetValue(0);  // an empty row: boxes disabled, the list follows the row
    EXPECT_FALSE(form.Check1.enabled());
    EXPECT_EQ(ticks(form.List2), (std::array<bool, 6>{}));
    EXPECT_EQ(manager.custDirty, 1);
}

TEST_F(CustomFolderManagerTest, SaveWritesEverySlotAndNamesTheLastFolderWithoutData) {
    manager.show();
    boxes.answers = {box::Ok, box::Ok, box::Ok};
    addFolder(path("tools"));
    addFolder(path("more\\"));
    form.List1.userSetValue(1);
    form.Check2.userSetValue(1);
    form.List4.userTickItem(0, true);
    form.Command3.userClick();
    EXPECT_EQ(readSlot(ctx, 1).path, path("tools\\"));
    EXPECT_EQ(readSlot(ctx, 2).args2, "1,0,0,0,0,0,1");
    EXPECT_EQ(readSlot(ctx, 3).path, "NULL");
    EXPECT_EQ(ctx.scan.customIndex, 2);
    EXPECT_EQ(folderListReloads, 1);
    EXPECT_FALSE(form.visible());
    EXPECT_EQ(manager.custDirty, 0);
}

TEST_F(CustomFolderManagerTest, RemoveTakesEffectAtOnceAndDeletesTheSlotsFiles) {
    writeEntry(ctx, ctx.settFile, "path", path("tools\\"), "4");
    writeEntry(ctx, ctx.settFile, "args", "1,1,1,1,1,1,1", "4");
    for (const char* name : {"4.dat", "4.bak", "4-md4.dat", "4-md5.bak", "4-sha1.dat", "14.dat"})
        writeFile(std::string("Data\\") + name, "x");
    manager.show();
    form.List1.userSetValue(3);
    boxes.answers = {box::Cancel};
    form.Command2.userClick();
    EXPECT_EQ(boxes.shown[0].title, "Caution!");
    EXPECT_EQ(readSlot(ctx, 4).path, path("tools\\"));
    boxes.answers = {box::Ok, box::No};
    form.Command2.userClick();
    for (const char* name : {"4.dat", "4.bak", "4-md4.dat", "4-md5.bak", "4-sha1.dat"})
        EXPECT_FALSE(files.canRead(path(std::string("Data\\") + name))) << name;
    EXPECT_TRUE(files.canRead(path("Data\\14.dat")));
    form.userClose();  // "No" to saving: the removal stays
    EXPECT_EQ(boxes.shown.back().prompt, "Do you wish to Save your changes?");
    EXPECT_EQ(readSlot(ctx, 4).path, "NULL");
    EXPECT_EQ(folderListReloads, 1);
}

TEST_F(CustomFolderManagerTest, HiddenFormKeepsUnsavedRowsUntilItIsClosed) {
    manager.show();
    boxes.answers = {box::Ok};
    addFolder(path("tools"));
    form.setVisible(false);
    manager.show();
    EXPECT_EQ(row(1), "1) " + path("tools\\"));
    boxes.answers = {box::No};
    form.userClose();
    manager.show();
    EXPECT_EQ(row(1), "1) Empty:");
}

}  // namespace
}  // namespace tv::test
