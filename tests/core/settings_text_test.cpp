#include <gtest/gtest.h>

#include "core/settings_text.h"
#include "core/text.h"

namespace tv {
namespace {

TEST(NewSettingsFile, HasMainSectionThenTwentyFolderSlots) {
    const std::string text = newSettingsFileText();
    EXPECT_TRUE(text.starts_with(
              "[Tarvelon]\r\nsettings=0,0,0,0,0,0,0,0\r\nadvanced=65536,500,0\r\nantivirus=\r\n"
              "av2=\r\nantivirus2=1,0,0\r\nalgo=crc32\r\n\r\n[1]\r\npath=NULL\r\n"));
    const auto lines = splitText(text, "\r\n");
    ASSERT_EQ(lines.size(), 8u + 20u * 5u + 1u);  // the last CR LF leaves an empty tail
    EXPECT_EQ(lines[8 + 19 * 5], "[20]");
    EXPECT_EQ(lines[8 + 19 * 5 + 3], "args2=0,0,0,0,0,0,0");
    EXPECT_EQ(rightText(text, 4), "\r\n\r\n");
    EXPECT_EQ(settingFromText(text, "GETSETT2"), "");
}

TEST(GetSetting, ValuesBelowTwoCharactersReadAsNothing) {
    EXPECT_EQ(settingFromText("[Tarvelon]\r\nalgo=x\r\n", "ALGO"), "");
    EXPECT_EQ(settingFromText("[Tarvelon]\r\nalgo=md\r\n", "ALGO"), "md");
    EXPECT_EQ(settingFromText("antivirus=\r\n", "ANTIVIRUS"), "");
}

TEST(GetSetting, RequestAndKeyCaseDoNotMatter) {
    const std::string text = "[Tarvelon]\r\nSETTINGS=1,0\r\n[1]\r\npath=C:\\A\\\r\n[2]\r\npath=NULL\r\n";
    EXPECT_EQ(settingFromText(text, "getsett"), "1,0");
    EXPECT_EQ(settingFromText(text, "path"), settingFromText(text, "PATH"));
    EXPECT_EQ(settingFromText(text, "PATH"), "C:\\A\\");  // first hit in the whole file
}

TEST(GetSetting, KeysDoNotMatchLongerKeys) {
    const std::string text = "antivirus2=1,0,0\r\nantivirus=c:\\av.exe|/s\r\nsettings2=1,1\r\n";
    EXPECT_EQ(settingFromText(text, "ANTIVIRUS"), "c:\\av.exe|/s");
    EXPECT_EQ(settingFromText(text, "GETSETT"), "");
}

TEST(GetSetting, LastLineWithoutLineEndReadsAsAbsent) {
    EXPECT_EQ(settingFromText("[Tarvelon]\r\nalgo=md5", "ALGO"), "");
}

TEST(GetSetting, UnknownWordsAndCheckpwFindNothing) {
    const std::string text = "checkpw=secret\r\nfoo=bar\r\n";
    EXPECT_EQ(settingFromText(text, "CHECKPW"), "");
    EXPECT_EQ(settingFromText(text, "FOO"), "");
}

TEST(GetSetting, BinaryContentIsSearchedAsBytes) {
    const std::string text("\0\xff\r\nalgo=\x01\0\r\n", 14);
    EXPECT_EQ(settingFromText(text, "ALGO"), std::string("\x01\0", 2));
}

}  // namespace
}  // namespace tv
