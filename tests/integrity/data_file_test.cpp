#include <gtest/gtest.h>

#include "integrity/data_file.h"
#include "integrity/data_file_text.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

constexpr const char* kFile = "C:\\T\\Data\\Integrity.dat";

std::string standardFile() {
    std::string text(kDataFileHeader);
    text += "\r\n";  // the empty line a fresh build leaves
    for (const char* name : {"DLL", "DRV", "386", "SYS", "OCX", "EXE", "COM", "PIF", "SCR"})
        text += std::string("[") + name + "]\r\nNULL*E\r\n";
    return text;
}

TEST(SplitDataFile, NineBlocksEachFromHeadToEndLine) {
    std::string text = standardFile();
    text.insert(text.find("NULL*E"), "KERNEL32.DLL=ABC*E\r\n");
    const auto split = splitDataFile(text);
    ASSERT_EQ(split.blockCount, 9);
    EXPECT_EQ(split.blocks.text[0].text(), "[DLL]\r\nKERNEL32.DLL=ABC*E\r\nNULL*E\r\n");
    EXPECT_EQ(split.blocks.name[2], "386");
    EXPECT_EQ(split.blocks.text[8].text(), "[SCR]\r\nNULL*E\r\n");
    EXPECT_EQ(dataFileText(split.blocks),
              std::string(kDataFileHeader) + text.substr(text.find('[')));  // the empty line is gone
}

TEST(SplitDataFile, EmptyHeaderOnlyAndHeadlessFilesGiveNineEmptyBlocks) {
    for (const std::string& text : {std::string(), std::string(kDataFileHeader), std::string("no heads\r\n")}) {
        const auto split = splitDataFile(text);
        EXPECT_EQ(split.blockCount, 0);
        for (const auto& block : split.blocks.text) EXPECT_TRUE(block.empty());
    }
}

TEST(SplitDataFile, TenthSectionIsNotLoaded) {
    std::string text;
    for (int i = 1; i <= 10; ++i) text += "[S" + std::to_string(i) + "]\r\nX" + std::to_string(i) + "=1*E\r\nNULL*E\r\n";
    const auto split = splitDataFile(text);
    EXPECT_EQ(split.blocks.name[8], "S9");
    EXPECT_EQ(split.blocks.text[8].entry("X9"), "1");
    EXPECT_EQ(split.blocks.text[8].entry("X10"), "");
    EXPECT_EQ(findSectionNumber(split.blocks, "S10"), 0);
}

TEST(SplitDataFile, NameBeginningWithBracketSplitsItsSection) {
    const auto split = splitDataFile("[DLL]\r\nA.DLL=1*E\r\n[x].dll=2*E\r\nNULL*E\r\n[DRV]\r\nNULL*E\r\n");
    EXPECT_EQ(split.blocks.name[0], "DLL");
    EXPECT_EQ(split.blocks.name[1], "x");
    EXPECT_EQ(split.blocks.name[2], "DRV");
    EXPECT_EQ(split.blocks.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\n");
    EXPECT_FALSE(splitDataFile("[DLL\r\nA=1*E\r\n").named);
}

class DataFile : public ::testing::Test {
protected:
    DataFile() {
        ctx.appPath = "C:\\T\\";
        ctx.intFile = kFile;
        os.files.folders = {"C:\\T", "C:\\T\\DATA"};
    }
    test::FakePlatform os;
    AppContext ctx{os.set()};
};

TEST_F(DataFile, LoadLooksUpWithinItsSectionOnly) {
    std::string text = standardFile();
    text.insert(text.find("NULL*E"), "Kernel32.dll= 1A2B *E\r\nA=B.DLL=7*E\r\n");
    os.files.put(kFile, text);
    ASSERT_TRUE(loadIntFile(ctx, kFile));
    EXPECT_EQ(getEntry(ctx, kFile, "KERNEL32.DLL", "dll"), "1A2B");
    EXPECT_EQ(getEntry(ctx, kFile, "A=B.DLL", "DLL"), "7");
    EXPECT_EQ(getEntry(ctx, kFile, "KERNEL32.DLL", "DRV"), "");
    EXPECT_EQ(getEntry(ctx, kFile, "KERNEL32.DLL", "TXT"), "");
    EXPECT_EQ(getEntry(ctx, kFile, "NULL", "DLL"), "");
    EXPECT_EQ(os.loop.pumps, 9 + 4);  // one per block cut, one per look-up in a known section
}

TEST_F(DataFile, MissingFileIsMadeEmptyAndLockedFileFails) {
    ASSERT_TRUE(loadIntFile(ctx, kFile));
    EXPECT_EQ(*os.files.content(kFile), "");
    EXPECT_EQ(findSection(ctx, ""), 1);  // nine empty names
    os.files.locked.insert("C:\\T\\DATA\\INTEGRITY.DAT");
    EXPECT_FALSE(loadIntFile(ctx, kFile));
}

TEST_F(DataFile, MissingCustomFileIsOfferedBackFromItsBackup) {
    const std::string custom = "C:\\T\\Data\\7-md5.dat";
    os.files.put("C:\\T\\Data\\7-md5.bak", standardFile());
    os.boxes.answers = {box::Yes};
    test::RecordingHost host;
    ASSERT_TRUE(loadCustomDat(ctx, host, custom));
    EXPECT_EQ(os.boxes.shown[0].prompt, "The data file is missing! Would you like to use the backup?");
    EXPECT_EQ(os.boxes.shown[0].title, ".Dat file Missing!");
    EXPECT_EQ(os.boxes.shown[0].style, box::YesNo);
    EXPECT_EQ(findCustomSection(ctx, "scr"), 9);
    ASSERT_TRUE(loadCustomDat(ctx, host, custom));  // there now: no question
    EXPECT_EQ(os.boxes.shown.size(), 1u);
}

}  // namespace
}  // namespace tv
