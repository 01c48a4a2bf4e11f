#include <gtest/gtest.h>

#include "core/section_blocks.h"

namespace tv {
namespace {

SectionBlocks withDll(std::string block) {
    SectionBlocks blocks;
    blocks.name[0] = "DLL";
    blocks.text[0] = BaselineBlock(block);
    blocks.name[1] = "DRV";
    blocks.text[1] = BaselineBlock("[DRV]\r\nNULL*E\r\n");
    return blocks;
}

TEST(WriteEntryInMemory, NewKeyLandsAheadOfTheEndLine) {
    auto blocks = withDll("[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    ASSERT_TRUE(writeEntryToBlocks(blocks, "dll", "B.DLL", "2*E"));
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\nB.DLL=2*E\r\nNULL*E\r\n");
    EXPECT_EQ(blocks.text[1].text(), "[DRV]\r\nNULL*E\r\n");
}

TEST(WriteEntryInMemory, PresentKeyIsReplacedWhereItStands) {
    auto blocks = withDll("[DLL]\r\nA.DLL=1*E\r\nB.DLL=NULL*E\r\nNULL*E\r\n");
    ASSERT_TRUE(writeEntryToBlocks(blocks, "DLL", "A.DLL", "FF*E"));
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nA.DLL=FF*E\r\nB.DLL=NULL*E\r\nNULL*E\r\n");
}

TEST(WriteEntryInMemory, KeyInAnotherCaseBecomesASecondLine) {
    auto blocks = withDll("[DLL]\r\nKERNEL32.DLL=1*E\r\nNULL*E\r\n");
    writeEntryToBlocks(blocks, "DLL", "Kernel32.dll", "2*E");
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nKERNEL32.DLL=1*E\r\nKernel32.dll=2*E\r\nNULL*E\r\n");
}

TEST(WriteEntryInMemory, KeyThatBeginsALongerKeyChangesNothing) {
    const std::string block = "[DLL]\r\nAB.DLL=1*E\r\nNULL*E\r\n";
    auto blocks = withDll(block);
    EXPECT_TRUE(writeEntryToBlocks(blocks, "DLL", "AB", "2*E"));
    EXPECT_EQ(blocks.text[0].text(), block);
}

TEST(WriteEntryInMemory, NamesHoldingEqualsSignsAreWrittenAsTheyStand) {
    auto blocks = withDll("[DLL]\r\nNULL*E\r\n");
    writeEntryToBlocks(blocks, "DLL", "A=B.DLL", "1*E");
    writeEntryToBlocks(blocks, "DLL", "A=B.DLL", "2*E");
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nA=B.DLL=2*E\r\nNULL*E\r\n");
}

TEST(WriteEntryInMemory, BlockWithoutEndLineStaysAsItWas) {
    auto blocks = withDll("[DLL]\r\nA.DLL=1*E\r\n");
    EXPECT_TRUE(writeEntryToBlocks(blocks, "DLL", "B.DLL", "2*E"));
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\n");
}

TEST(WriteEntryInMemory, UnknownSectionIsRefused) {
    auto blocks = withDll("[DLL]\r\nNULL*E\r\n");
    EXPECT_FALSE(writeEntryToBlocks(blocks, "EXE", "A.EXE", "1*E"));
    EXPECT_EQ(findSectionNumber(blocks, "drv"), 2);
    EXPECT_EQ(findSectionNumber(blocks, "EXE"), 0);
}

}  // namespace
}  // namespace tv
