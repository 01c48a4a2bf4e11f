#include <gtest/gtest.h>

#include "core/text.h"

namespace tv {
namespace {

TEST(GetBetween, FindsTheValueFromTheStartWithoutRegardToCaseOrNothing) {
    EXPECT_EQ(getBetween("[X]\r\nKey=Value*E\r\n", 1, "\r\nkey=", "*e\r\n"), "Value");
    EXPECT_EQ(getBetween("a=1;a=2;", 2, "a=", ";"), "2");
    EXPECT_EQ(getBetween("k=v=w*E\r\n*E\r\n", 1, "k=", "*E\r\n"), "v=w");
    EXPECT_EQ(getBetween("a=1\r\n", 6, "a=", "\r\n"), "");
    EXPECT_EQ(getBetween("a=1\r\n", 0, "a=", "\r\n"), "");
    EXPECT_EQ(getBetween("x\r\na=1", 1, "a=", "\r\n"), "");  // a last line without line end
    EXPECT_EQ(getBetween("a=\r\n", 1, "a=", "\r\n"), "");
}

TEST(InStr, PositionsCountFromOne) {
    EXPECT_EQ(inStr(4, "abcabc", "c"), 6u);
    EXPECT_EQ(inStr(7, "abcabc", "c"), 0u);
    EXPECT_EQ(inStr(1, "abc", "B"), 0u);
    EXPECT_EQ(inStr(1, "abc", "B", Compare::IgnoreCase), 2u);
    EXPECT_EQ(inStr(2, "abc", ""), 2u);
}

TEST(CaseFolding, CoversTheWesternCodePage) {
    EXPECT_EQ(upperCase("\xe9t\xe9"), "\xc9T\xc9");  // été
    EXPECT_EQ(lowerCase("\xd7\xdf"), "\xd7\xdf");      // multiplication sign and sharp s stay
    EXPECT_TRUE(sameText("R\xc9SUM\xc9.EXE", "r\xe9sum\xe9.exe"));
    EXPECT_EQ(inStr(1, "x\x8a", "\x9a", Compare::IgnoreCase), 2u);
}

TEST(TrimBlanksAndSplitText, BlanksOnlyAndNoPartsOfNothing) {
    EXPECT_EQ(trimBlanks("\t/r\t "), "\t/r\t");
    EXPECT_TRUE(splitText("", ",").empty());
    EXPECT_EQ(splitText("1,,0", ","), (std::vector<std::string>{"1", "", "0"}));
}

}  // namespace
}  // namespace tv
