// RegWatch's platform-free rules, each in one table: the file a registry
// entry names, the files of the pending boot operations, and what the
// snapshot forgives.
#include <gtest/gtest.h>

#include <set>

#include "regwatch/file_path_cut.h"
#include "regwatch/pending_boot.h"
#include "regwatch/registry_text.h"

namespace tv {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

TEST(RegWatchRules, AnEntryNamesTheFileToScan) {
    const std::set<std::string> present{"C:\\WIN\\SYSTEM32\\notepad.exe", "C:\\WIN\\notepad.exe",
                                        "C:\\WIN\\win.exe", "C:\\WIN\\SYSTEM\\old.exe", "C:\\WIN\\regedit.exe"};
    // No path: not found; the text, where given, is what the "not found" message names.
    const struct { std::string entry, path; int lookups; const char* text = nullptr; } cases[] = {
        {"C:\\WIN\\notepad.exe", "C:\\WIN\\notepad.exe", 0},
        {"Updater (C:\\Tools\\updater.exe /min)", "C:\\Tools\\updater.exe", 0},
        {"Foo (C:\\foo.exe) New Entry!) ", "C:\\foo.exe", 0},
        {"C:\\Program Files\\a.exe /x", "C:\\Program Files\\a.exe", 0},
        {"C:\\a b\\c.exe", "C:\\a b\\c.exe", 0},  // no blank behind the dot
        {"x (\"C:\\a b\\x.exe\" \"%1\")", "\"C:\\a b\\x.exe\"", 0},
        {"C:\\Program Files\\a", "C:\\Program.exe", 0},  // no dot: the first blank ends it
        {"%systemroot%\\system32\\x.exe /a", "C:\\WIN\\system32\\x.exe", 0},
        {"%SystemRoot%\\x.exe", "%SystemRoot%\\x.exe", 0},
        {"C:\\\\a\\\\b.exe", "C:\\a\\b.exe", 0},
        {"Foo (C:\\x.exe", "Foo (C:\\x.exe", 0},  // no ")": the whole entry
        // Bare names: the system folder, the Windows folder, the old system folder.
        {"notepad.exe", "C:\\WIN\\SYSTEM32\\notepad.exe", 1},
        {"x (win.exe)", "C:\\WIN\\win.exe", 2},
        {"x (old.exe -s)", "C:\\WIN\\SYSTEM\\old.exe", 3},
        {"regedit", "", 3},  // the ".exe" added to the path takes no part in the search
        {"C:\\Program Files (x86)\\a.exe", "", 3, "x86"},
        {"rundll32 shell32.dll,Control_RunDLL", "", 3, "rundll32 shell32.dll,Control_RunDLL"},
        {"   ", "", 3, ""}, {"()", "", 3}, {"a\0b"s, "", 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entry);
        int lookups = 0;
        const FilePathCut cut = cutToFilePath(c.entry, {"C:\\WIN\\", "C:\\WIN\\SYSTEM32\\"},
                                              [&](const std::string& p) { return ++lookups, present.count(p) > 0; });
        EXPECT_EQ(cut.found, !c.path.empty());
        EXPECT_EQ(cut.path, c.path);
        EXPECT_EQ(lookups, c.lookups);
        EXPECT_EQ(cut.text, c.text ? c.text : cut.text);
    }
}

TEST(RegWatchRules, WininitLinesWithAnEqualsSignAreEntriesOfTheirRightSide) {
    const struct { std::string text; Texts rows; } cases[] = {
        {"[Rename]\r\nNUL=C:\\WINDOWS\\TEMP\\X.TMP\r\nnul=C:\\y.tmp\r\nC:\\A.DLL=C:\\B.DLL\r\n",
         {"C:\\WINDOWS\\TEMP\\X.TMP {To be Deleted}", "C:\\y.tmp {To be Deleted}", "C:\\B.DLL {To be Overwritten}"}},
        {"a=b=c", {"b=c {To be Overwritten}"}},
        // Nothing is trimmed, sections do not count, an empty right side still makes a row.
        {"; note=x\r\n[Other]\r\n NUL = C:\\z\r\nNUL=\r\n",
         {"x {To be Overwritten}", " C:\\z {To be Overwritten}", " {To be Deleted}"}},
        {"NUL=C:\\a*!*b\r\nk=v*!", {"C:\\a {To be Deleted}", "v {To be Overwritten}"}},
        {"NUL=C:\\a\nNUL=C:\\b", {"C:\\a\nNUL=C:\\b {To be Deleted}"}},  // only CR LF ends a line
        {"\r\n\r\n[Rename]\r\n", {}},
    };
    for (const auto& c : cases) {
        Texts rows;
        for (const WininitEntry& entry : parseWininit(c.text)) rows.push_back(pendingRow(entry));
        EXPECT_EQ(rows, c.rows) << c.text;
    }
}

TEST(RegWatchRules, EveryPrefixedPendingRenameIsAFileUpToItsNul) {
    const std::string blanks(200, ' ');  // behind the value, as a query's buffer holds it
    const struct { std::string value; Texts files; } cases[] = {
        // The pairs are not kept: source and target are two files, a deletion's empty target none.
        {"\\??\\C:\\a.tmp\0\0\\??\\C:\\b.tmp\0!\\??\\C:\\c.dll\0\0"s + blanks, {"C:\\a.tmp", "C:\\b.tmp", "C:\\c.dll"}},
        {"C:\\a.tmp\0\0"s + blanks, {}},  // no prefix
        {"", {}},                          // more than the buffer reads as nothing
        {std::string(256, ' '), {}},
        {"\\??\\C:\\a\0 \\??\\"s, {"C:\\a"}},
        {"\\??\\C:\\no-end", {""}},
        {"x\0\\??\\  C:\\b \0\0\0"s, {"x", "C:\\b"}},  // what stands in front of the first prefix counts
    };
    for (const auto& c : cases) EXPECT_EQ(parsePendingRenames(c.value), c.files) << c.value;
}

TEST(RegWatchRules, TheSnapshotSkipsOnlyTheUsualCommandAndForgivesOnlyBlanksAtTheEnds) {
    EXPECT_TRUE(isDefaultOpenCommand("\"%1\" %*"));
    for (const auto& other : {"\"%1\""s, "\"%1\" %* "s, " \"%1\" %*"s, "\"%1\"  %*"s, "\"%1\" %1"s, "\"%1\" %*\0"s})
        EXPECT_FALSE(isDefaultOpenCommand(other)) << other;
    // Only blanks, and only at the ends: the profile call drops them from the line.
    EXPECT_FALSE(storedTextChanged(" (C:\\foo.exe )  ", "(C:\\foo.exe )"));
    EXPECT_TRUE(storedTextChanged(" (\tC:\\foo.exe)", "(C:\\foo.exe)"));
}

}  // namespace
}  // namespace tv
