#include <gtest/gtest.h>

#include "regwatch/pending_boot.h"

namespace tv {
namespace {

using namespace std::string_literals;

std::vector<std::string> rows(std::string_view wininit) {
    std::vector<std::string> out;
    for (const WininitEntry& entry : parseWininit(wininit)) out.push_back(pendingRow(entry));
    return out;
}

TEST(WininitParser, EveryLineWithAnEqualsSignIsAnEntryOfItsRightSide) {
    EXPECT_EQ(rows("[Rename]\r\nNUL=C:\\WINDOWS\\TEMP\\X.TMP\r\nnul=C:\\y.tmp\r\nC:\\A.DLL=C:\\B.DLL\r\n"),
              (std::vector<std::string>{"C:\\WINDOWS\\TEMP\\X.TMP {To be Deleted}", "C:\\y.tmp {To be Deleted}",
                                        "C:\\B.DLL {To be Overwritten}"}));
    EXPECT_EQ(rows("a=b=c"), std::vector<std::string>{"b=c {To be Overwritten}"});
    // Nothing is trimmed, sections do not count, and an empty right side still makes a row.
    EXPECT_EQ(rows("; note=x\r\n[Other]\r\n NUL = C:\\z\r\nNUL=\r\n"),
              (std::vector<std::string>{"x {To be Overwritten}", " C:\\z {To be Overwritten}", " {To be Deleted}"}));
    EXPECT_EQ(rows("NUL=C:\\a*!*b\r\nk=v*!"), (std::vector<std::string>{"C:\\a {To be Deleted}", "v {To be Overwritten}"}));
}

TEST(WininitParser, OnlyCarriageReturnLineFeedEndsALine) {
    EXPECT_EQ(rows("NUL=C:\\a\nNUL=C:\\b"), std::vector<std::string>{"C:\\a\nNUL=C:\\b {To be Deleted}"});
    EXPECT_EQ(rows("x=C:\\last"), std::vector<std::string>{"C:\\last {To be Overwritten}"});
    EXPECT_TRUE(rows("").empty());
    EXPECT_TRUE(rows("\r\n\r\n[Rename]\r\n").empty());
    const std::string binary = "\0\xFF=\x01\r\n\0"s;
    ASSERT_EQ(parseWininit(binary).size(), 1u);
    EXPECT_EQ(parseWininit(binary)[0].file, "\x01");
}

TEST(WininitParser, TenMebibytesOfLinesAreReadInOneGo) {
    std::string text;
    while (text.size() < (10u << 20)) text += "NUL=C:\\WINDOWS\\TEMP\\F" + std::to_string(text.size()) + ".TMP\r\n";
    const auto entries = parseWininit(text);
    EXPECT_GT(entries.size(), 300000u);
    EXPECT_EQ(entries[1].file, "C:\\WINDOWS\\TEMP\\F28.TMP");
}

// The value as the registry access reads it: its bytes, then blanks to 256.
std::string pendingValue(const std::string& bytes) { return bytes + std::string(256 - bytes.size(), ' '); }

TEST(PendingRenameParser, EveryPrefixedFileUpToItsNulPairsNotKept) {
    const std::string usual = "\\??\\C:\\a.tmp\0\0\\??\\C:\\b.tmp\0!\\??\\C:\\c.dll\0\0"s;
    EXPECT_EQ(parsePendingRenames(pendingValue(usual)),
              (std::vector<std::string>{"C:\\a.tmp", "C:\\b.tmp", "C:\\c.dll"}));
    const std::string twice = "\\??\\C:\\a.tmp\0\0\\??\\C:\\a.tmp\0\0"s;
    EXPECT_EQ(parsePendingRenames(pendingValue(twice)), (std::vector<std::string>{"C:\\a.tmp", "C:\\a.tmp"}));
}

TEST(PendingRenameParser, OddValuesGiveWhatTheirNulsAllow) {
    EXPECT_TRUE(parsePendingRenames(pendingValue("C:\\a.tmp\0\0"s)).empty());  // no prefix
    EXPECT_TRUE(parsePendingRenames("").empty());  // more than 256 bytes read as nothing
    EXPECT_TRUE(parsePendingRenames(std::string(256, ' ')).empty());
    // A prefix at the very end leaves an empty part behind it; without any NUL a file reads as empty.
    EXPECT_EQ(parsePendingRenames("\\??\\C:\\a\0 \\??\\"s), std::vector<std::string>{"C:\\a"});
    EXPECT_EQ(parsePendingRenames("\\??\\C:\\no-end"), std::vector<std::string>{""});
    // What stands in front of the first prefix counts as well, and blanks are trimmed.
    EXPECT_EQ(parsePendingRenames("x\0\\??\\  C:\\b \0\0\0"s), (std::vector<std::string>{"x", "C:\\b"}));
    EXPECT_EQ(parsePendingRenames("\\??\\\0\\??\\C:\\c\0"s), (std::vector<std::string>{"", "C:\\c"}));
}

}  // namespace
}  // namespace tv
