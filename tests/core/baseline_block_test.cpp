#include <gtest/gtest.h>

#include "core/baseline_block.h"

namespace tv {
namespace {

TEST(BaselineBlock, LookUpIsBoundToLineStartsAndValueEnds) {
    const BaselineBlock block("[DLL]\r\nA=B.DLL=1*E\r\nAB.DLL=2*E\r\nOPEN.DLL=3\r\nC.DLL=4*E\r\nNULL*E\r\n");
    EXPECT_EQ(block.entry("a"), "B.DLL=1");       // the first "=" line that begins so
    EXPECT_EQ(block.entry("A=B.DLL"), "1");
    EXPECT_EQ(block.entry("AB"), "");              // only a prefix of a name
    EXPECT_EQ(block.entry("open.dll"), "3\r\nC.DLL=4");  // runs on to the next "*E"
    EXPECT_EQ(block.entry("NULL*E"), "");
    EXPECT_EQ(block.entry("DLL]"), "");
}

TEST(BaselineBlock, NewEntriesStayInOrderAheadOfTheEndLine) {
    BaselineBlock block("[EXE]\r\nnull*e\r\n");
    for (int i = 0; i < 1000; ++i) block.write("F" + std::to_string(i) + ".EXE", "NULL*E");
    block.write("F500.EXE", "ABCD*E");
    EXPECT_EQ(block.entry("f500.exe"), "ABCD");
    EXPECT_EQ(block.entry("F999.EXE"), "NULL");
    const std::string text = block.text();
    EXPECT_TRUE(text.starts_with("[EXE]\r\nF0.EXE=NULL*E\r\nF1.EXE=NULL*E\r\n"));
    EXPECT_TRUE(text.ends_with("F999.EXE=NULL*E\r\nNULL*E\r\n"));
}

}  // namespace
}  // namespace tv
