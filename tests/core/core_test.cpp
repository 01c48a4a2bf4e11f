// The platform-free rules everything parses with: the text routines, settings numbers, the settings file's search and
// the baseline blocks in memory.
#include <gtest/gtest.h>

#include "core/section_blocks.h"
#include "core/settings_text.h"
#include "core/text.h"
#include "core/vb_number.h"

namespace tv {
namespace {

TEST(TextRoutines, PositionsCountFromOneAndCaseFoldsTheWesternCodePage) {
    struct Between {
        const char *text, *left, *right, *expected;
        std::size_t start;
    };
    for (const Between& c : std::initializer_list<Between>{
             {"[X]\r\nKey=Value*E\r\n", "\r\nkey=", "*e\r\n", "Value", 1},  // found without regard to case
             {"a=1;a=2;", "a=", ";", "2", 2}, {"k=v=w*E\r\n*E\r\n", "k=", "*E\r\n", "v=w", 1},
             {"a=1\r\n", "a=", "\r\n", "", 6}, {"a=1\r\n", "a=", "\r\n", "", 0},
             {"x\r\na=1", "a=", "\r\n", "", 1}})  // a last line without line end
        EXPECT_EQ(getBetween(c.text, c.start, c.left, c.right), c.expected) << c.text << " from " << c.start;
    EXPECT_EQ(std::vector<std::size_t>({inStr(4, "abcabc", "c"), inStr(7, "abcabc", "c"), inStr(1, "abc", "B"),
                                        inStr(1, "abc", "B", Compare::IgnoreCase), inStr(2, "abc", ""),
                                        inStr(1, "x\x8a", "\x9a", Compare::IgnoreCase)}),
              std::vector<std::size_t>({6, 0, 0, 2, 2, 2}));
    EXPECT_EQ(upperCase("\xe9t\xe9") + lowerCase("\xd7\xdf"), "\xc9T\xc9\xd7\xdf");  // été; × and ß stay
    EXPECT_TRUE(sameText("R\xc9SUM\xc9.EXE", "r\xe9sum\xe9.exe"));
    EXPECT_EQ(trimBlanks("\t/r\t "), "\t/r\t");  // blanks only
    EXPECT_EQ(splitText("1,,0", ","), (std::vector<std::string>{"1", "", "0"}));
}

TEST(TextRoutines, SettingNumbersAllowBlanksRoundHalfToEvenAndRefuseTextAndOverflow) {
    const std::pair<const char*, std::optional<std::int32_t>> cases[] = {
        {" 65536 ", 65536}, {"-5", -5}, {"2.5", 2}, {"3.5", 4}, {"2147483647", 2147483647},
        {"", {}}, {"abc", {}}, {"12kb", {}}, {".", {}}, {"2147483648", {}}};
    for (const auto& [text, number] : cases) EXPECT_EQ(toInt32(text), number) << text;
    EXPECT_TRUE(toInt16("1") == 1 && !toInt16("32768"));
}

// The settings file is searched as one text: the first "key=" anywhere, without regard to case, up to its line end;
// values below two characters read as nothing.
TEST(SettingsText, RequestWordsFindTheFirstWholeKeyAnywhere) {
    const std::string file = "[Tarvelon]\r\nSETTINGS=1,0\r\nantivirus2=1,0,0\r\nantivirus=c:\\av.exe|/s\r\n"
                             "settings2=1,1\r\nalgo=x\r\ncheckpw=secret\r\nfoo=bar\r\n[1]\r\npath=C:\\A\\\r\n"
                             "[2]\r\npath=NULL\r\nav2=md";
    const std::pair<const char*, const char*> cases[] = {
        {"getsett", "1,0"},         {"GETSETT2", "1,1"}, {"ANTIVIRUS", "c:\\av.exe|/s"}, {"ALGO", ""},
        {"path", "C:\\A\\"},        {"CHECKPW", ""},     {"FOO", ""},                      {"AV2", ""}};
    for (const auto& [request, value] : cases) EXPECT_EQ(settingFromText(file, request), value) << request;
    EXPECT_EQ(settingFromText("[Tarvelon]\r\nalgo=md\r\n", "ALGO") + settingFromText("settings2=1,1\r\n", "GETSETT"),
              "md");  // no longer key answers a shorter one
    EXPECT_EQ(settingFromText(std::string("\0\xff\r\nalgo=\x01\0\r\n", 14), "ALGO"), std::string("\x01\0", 2));
}

TEST(BaselineBlocks, LookUpsAreBoundToLineStartsAndValueEnds) {
    const BaselineBlock block("[DLL]\r\nA=B.DLL=1*E\r\nAB.DLL=2*E\r\nOPEN.DLL=3\r\nC.DLL=4*E\r\nNULL*E\r\n");
    // The first "=" line that begins so; only a prefix of a name is none; a value runs on to the next "*E".
    for (const auto& [key, value] : {std::pair{"a", "B.DLL=1"}, {"A=B.DLL", "1"}, {"AB", ""}, {"open.dll", "3\r\nC.DLL=4"},
                                     {"NULL*E", ""}, {"DLL]", ""}})
        EXPECT_EQ(block.entry(key), value) << key;
    BaselineBlock big("[EXE]\r\nnull*e\r\n");
    for (int i = 0; i < 1000; ++i) big.write("F" + std::to_string(i) + ".EXE", "NULL*E");
    big.write("F500.EXE", "ABCD*E");
    EXPECT_EQ(big.entry("f500.exe"), "ABCD");
    EXPECT_TRUE(big.text().starts_with("[EXE]\r\nF0.EXE=NULL*E\r\nF1.EXE=NULL*E\r\n") &&
                big.text().ends_with("F999.EXE=NULL*E\r\nNULL*E\r\n"));
}

TEST(BaselineBlocks, WritesFindTheKeyAsTheTextSearchDoes) {
    const std::array<const char*, 4> cases[] = {
        {"A.DLL=1*E\r\n", "B.DLL", "2*E", "A.DLL=1*E\r\nB.DLL=2*E\r\n"},  // ahead of the end line
        {"A.DLL=1*E\r\nB.DLL=NULL*E\r\n", "A.DLL", "FF*E", "A.DLL=FF*E\r\nB.DLL=NULL*E\r\n"},
        {"KERNEL32.DLL=1*E\r\n", "Kernel32.dll", "2*E", "KERNEL32.DLL=1*E\r\nKernel32.dll=2*E\r\n"},
        {"AB.DLL=1*E\r\n", "AB", "2*E", "AB.DLL=1*E\r\n"},  // a key that begins a longer one: nothing
        {"A=B.DLL=1*E\r\n", "A=B.DLL", "2*E", "A=B.DLL=2*E\r\n"}};
    for (const auto& [lines, key, value, expected] : cases) {
        SectionBlocks blocks;
        blocks.name[0] = "DLL";
        blocks.text[0] = BaselineBlock(std::string("[DLL]\r\n") + lines + "NULL*E\r\n");
        EXPECT_TRUE(writeEntryToBlocks(blocks, "dll", key, value)) << key;
        EXPECT_EQ(blocks.text[0].text(), std::string("[DLL]\r\n") + expected + "NULL*E\r\n") << key;
    }
    SectionBlocks blocks;
    blocks.name = {"DLL", "DRV"};
    blocks.text[0] = BaselineBlock("[DLL]\r\nA.DLL=1*E\r\n");  // no end line: stays as it was
    EXPECT_TRUE(writeEntryToBlocks(blocks, "DLL", "B.DLL", "2*E") && !writeEntryToBlocks(blocks, "EXE", "A.EXE", "1*E"));
    EXPECT_EQ(blocks.text[0].text() + std::to_string(findSectionNumber(blocks, "drv")), "[DLL]\r\nA.DLL=1*E\r\n2");
}

}  // namespace
}  // namespace tv
