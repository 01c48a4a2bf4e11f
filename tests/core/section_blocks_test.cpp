#include <gtest/gtest.h>

#include "core/section_blocks.h"

namespace tv {
namespace {

TEST(WriteEntryInMemory, WritesAsTheTextSearchFindsTheKey) {
    struct Case {
        const char *dll, *key, *value, *expected;
    };
    const Case cases[] = {
        // A new key lands ahead of the end line.
        {"A.DLL=1*E\r\n", "B.DLL", "2*E", "A.DLL=1*E\r\nB.DLL=2*E\r\n"},
        // A present key is replaced where it stands.
        {"A.DLL=1*E\r\nB.DLL=NULL*E\r\n", "A.DLL", "FF*E", "A.DLL=FF*E\r\nB.DLL=NULL*E\r\n"},
        // A key in another case becomes a second line.
        {"KERNEL32.DLL=1*E\r\n", "Kernel32.dll", "2*E", "KERNEL32.DLL=1*E\r\nKernel32.dll=2*E\r\n"},
        // A key that begins a longer key changes nothing.
        {"AB.DLL=1*E\r\n", "AB", "2*E", "AB.DLL=1*E\r\n"},
        // A name holding "=" is written as it stands, and found again.
        {"A=B.DLL=1*E\r\n", "A=B.DLL", "2*E", "A=B.DLL=2*E\r\n"},
    };
    for (const Case& c : cases) {
        SectionBlocks blocks;
        blocks.name[0] = "DLL";
        blocks.text[0] = BaselineBlock(std::string("[DLL]\r\n") + c.dll + "NULL*E\r\n");
        EXPECT_TRUE(writeEntryToBlocks(blocks, "dll", c.key, c.value)) << c.key;
        EXPECT_EQ(blocks.text[0].text(), std::string("[DLL]\r\n") + c.expected + "NULL*E\r\n") << c.key;
    }
}

TEST(WriteEntryInMemory, BlockWithoutEndLineStaysAsItWasAndUnknownSectionIsRefused) {
    SectionBlocks blocks;
    blocks.name[0] = "DLL";
    blocks.text[0] = BaselineBlock("[DLL]\r\nA.DLL=1*E\r\n");
    blocks.name[1] = "DRV";
    EXPECT_TRUE(writeEntryToBlocks(blocks, "DLL", "B.DLL", "2*E"));
    EXPECT_EQ(blocks.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\n");
    EXPECT_FALSE(writeEntryToBlocks(blocks, "EXE", "A.EXE", "1*E"));
    EXPECT_EQ(findSectionNumber(blocks, "drv"), 2);
    EXPECT_EQ(findSectionNumber(blocks, "EXE"), 0);
}

}  // namespace
}  // namespace tv
