#include <gtest/gtest.h>

#include <set>
#include <vector>

#include "regwatch/file_path_cut.h"

namespace tv {
namespace {

// The folders of a machine, the files on it and the order of the look-ups.
class CutToFilePath : public ::testing::Test {
protected:
    FilePathCut cut(const std::string& entry) {
        asked.clear();
        return cutToFilePath(entry, {"C:\\WINDOWS\\", "C:\\WINDOWS\\SYSTEM32\\"}, [this](const std::string& path) {
            asked.push_back(path);
            return present.count(path) > 0;
        });
    }
    std::string found(const std::string& entry) {
        const FilePathCut result = cut(entry);
        EXPECT_TRUE(result.found) << entry;
        return result.path;
    }

    std::set<std::string> present;
    std::vector<std::string> asked;
};

TEST_F(CutToFilePath, PathsWithABackslashAreTakenAsTheyAreWithoutLookingAtTheDisk) {
    EXPECT_EQ(found("C:\\WINDOWS\\notepad.exe"), "C:\\WINDOWS\\notepad.exe");
    EXPECT_EQ(found("Updater (C:\\Tools\\updater.exe /min)"), "C:\\Tools\\updater.exe");
    EXPECT_EQ(found("Foo (C:\\foo.exe) New Entry!) "), "C:\\foo.exe");
    EXPECT_EQ(found("C:\\Program Files\\a.exe /x"), "C:\\Program Files\\a.exe");
    EXPECT_EQ(found("C:\\a b\\c.exe"), "C:\\a b\\c.exe");
    EXPECT_EQ(found("\"C:\\Program Files\\a.exe\""), "\"C:\\Program Files\\a.exe\"");
    EXPECT_EQ(found("x (\"C:\\a b\\x.exe\" \"%1\")"), "\"C:\\a b\\x.exe\"");
    // No dot: the first blank ends the path, and ".exe" is added.
    EXPECT_EQ(found("C:\\Program Files\\a"), "C:\\Program.exe");
    EXPECT_EQ(found("C:\\x&y|z^%PATH%.exe -a"), "C:\\x&y|z^%PATH%.exe");
    EXPECT_TRUE(asked.empty());
}

TEST_F(CutToFilePath, OnlyTheLowerCaseSystemRootIsExpandedAndDoubledBackslashesMadeSingle) {
    EXPECT_EQ(found("%systemroot%\\system32\\x.exe /a"), "C:\\WINDOWS\\system32\\x.exe");
    EXPECT_EQ(found("%SystemRoot%\\x.exe"), "%SystemRoot%\\x.exe");
    EXPECT_EQ(found("%windir%\\x.exe"), "%windir%\\x.exe");
    EXPECT_EQ(found("C:\\\\a\\\\b.exe"), "C:\\a\\b.exe");
}

TEST_F(CutToFilePath, ParenthesesChooseTheTextEvenInPlainPaths) {
    // No ")" behind the "(": the whole entry stays.
    EXPECT_EQ(found("Foo (C:\\x.exe"), "Foo (C:\\x.exe");
    // A plain path with parentheses gives what stands inside them, a bare name.
    const FilePathCut x86 = cut("C:\\Program Files (x86)\\a.exe");
    EXPECT_FALSE(x86.found);
    EXPECT_EQ(x86.text, "x86");
    EXPECT_EQ(asked, (std::vector<std::string>{"C:\\WINDOWS\\SYSTEM32\\x86", "C:\\WINDOWS\\x86", "C:\\WINDOWS\\SYSTEM\\x86"}));
}

TEST_F(CutToFilePath, BareNamesAreSoughtInTheSystemThenWindowsThenOldSystemFolder) {
    present = {"C:\\WINDOWS\\notepad.exe", "C:\\WINDOWS\\SYSTEM\\old.exe", "C:\\WINDOWS\\SYSTEM32\\notepad.exe"};
    EXPECT_EQ(found("notepad.exe"), "C:\\WINDOWS\\SYSTEM32\\notepad.exe");
    EXPECT_EQ(asked.size(), 1u);
    EXPECT_EQ(found("x (old.exe -s)"), "C:\\WINDOWS\\SYSTEM\\old.exe");
    EXPECT_EQ(asked.size(), 3u);
    // The ".exe" added to the path is not part of the search.
    present.insert("C:\\WINDOWS\\regedit.exe");
    EXPECT_FALSE(cut("regedit").found);
    const FilePathCut rundll = cut("rundll32 shell32.dll,Control_RunDLL");
    EXPECT_FALSE(rundll.found);
    EXPECT_EQ(rundll.text, "rundll32 shell32.dll,Control_RunDLL");
    EXPECT_EQ(rundll.path, "");
}

TEST_F(CutToFilePath, EmptyBlankAndOddTextsEndAsNamesNotFound) {
    for (const std::string& entry : std::vector<std::string>{"", "   ", "()", "(", ")", "\"\"", std::string(255, 'a'),
                                                              std::string("a\0b", 3)}) {
        const FilePathCut result = cut(entry);
        EXPECT_FALSE(result.found) << entry;
        EXPECT_EQ(asked.size(), 3u) << entry;
    }
    EXPECT_EQ(cut("   ").text, "");
    EXPECT_EQ(cut(std::string(255, 'a')).text, std::string(255, 'a'));
}

}  // namespace
}  // namespace tv
