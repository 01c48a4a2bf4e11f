// RegWatch's platform-free rules: the file a registry entry names, the files of the pending boot operations,
// the snapshot's lines and what it forgives, and the scanners' command lines for lists of any length.
#include <gtest/gtest.h>

#include <set>

#include "avshell/scanner_launch.h"
#include "regwatch/file_path_cut.h"
#include "regwatch/pending_boot.h"
#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"
#include "tests/core/fakes.h"

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

RegText unspelled(std::u16string units) { return RegText(std::string(units.size(), '?'), std::move(units)); }

// A decoded name or text holds a code page's spelling only where it had one.
bool sameAs(const RegText& decoded, const RegText& original) {
    return original.spelledExactly() ? decoded.text == original.text : decoded.exact == original.exact;
}

TEST(SnapshotEncoding, OrdinaryNamesAndTextsKeepTheirLinesAsTheyAre) {
    const struct { const char *name, *value, *key, *line; } ordinary[] = {
        {"Tool [beta]; x", "\"C:\\a=b.exe\" /x=1", "Tool [beta]; x", " (\"C:\\a=b.exe\" /x=1)"},
        {"", "launcher.exe \"%1\" %*", " (launcher.exe \"%1\" %*)", " (launcher.exe \"%1\" %*)"},  // a default: its text
        {"", "rundll32 a.dll,Run x=1", " (rundll32 a.dll,Run x-1)", " (rundll32 a.dll,Run x=1)"},
    };
    for (const auto& l : ordinary) {
        const RegText stored = storedTextOf(RegText(l.value));
        EXPECT_EQ(snapshotKey(RegText(l.name), stored), l.key);
        EXPECT_EQ(snapshotText(stored), l.line);
    }
    const std::string longest = " (" + std::string(kSnapshotTextChars - 3, 'x') + ")";
    EXPECT_EQ(snapshotText(RegText(longest)), longest);
}

// The fuzz target holds every name and text to the promises; here the exact forms.
TEST(SnapshotEncoding, HostileNamesAndTextsAreEscapedAndReadBackExactlyAndLongTextsAsTheirDigest) {
    EXPECT_EQ(snapshotKey(RegText("A=B"), RegText(" (x)")), "%A%3DB");
    EXPECT_EQ(snapshotKey(unspelled(u"Tv\u4E2D "), RegText(" (x)")), "%Tv%u4E2D%20");
    EXPECT_EQ(shownName(RegText("Tv\r\nFrom: elsewhere")), "Tv%0D%0AFrom: elsewhere");
    for (const RegText& stored : {RegText(" (a.exe\r\nb.exe)"), RegText(" (x.exe\t"), unspelled(u" (C:\\\u4E2D.exe)")}) {
        const std::string text = snapshotText(stored);
        EXPECT_TRUE(text.rfind(" %(", 0) == 0 && text.find_first_of("\r\n\t") == std::string::npos) << text;
        const auto back = storedTextOfSnapshotText(text);
        EXPECT_TRUE(back && sameAs(*back, stored)) << text;
    }
    const std::string a = " (" + std::string(5000, 'a') + ")", b = " (" + std::string(4999, 'a') + "b)";
    const std::string digest = snapshotText(RegText(a));
    EXPECT_TRUE(digest.rfind(" %%SHA1:", 0) == 0 && digest.size() <= kSnapshotTextChars) << digest;
    EXPECT_NE(digest, snapshotText(RegText(b)));
    EXPECT_NE(snapshotKey(RegText(), RegText(a)), snapshotKey(RegText(), RegText(b)));  // a long default's key
}

TEST(ScannerRuns, LongListsSplitIntoRunsWithinTheSystemsLimitAndNoNulGetsIn) {
    EXPECT_EQ(commandLinesFor("scan.exe  ", {}), std::vector<std::string>{"scan.exe  "});
    FileItems many;
    std::string all, joined;
    for (int i = 0; i < 900; ++i) all += many.emplace_back("\"C:\\" + std::string(90, 'a' + i % 26) + "\" ");
    const auto lines = commandLinesFor("scan.exe ", many);
    EXPECT_GT(lines.size(), 2u);
    for (const std::string& line : lines) {
        EXPECT_LE(line.size(), kLongestCommandLine);
        joined += line.substr(std::string("scan.exe ").size());
    }
    EXPECT_EQ(joined, all);  // every file, once, in order
    test::FakePlatform os;
    AppContext ctx{os.set()};
    ctx.quoteChar = "\"";
    EXPECT_EQ(batchItem(ctx, "%windir%\\x.exe\0   "s) + singleRunItem(ctx, "C:\\a.exe\0b"s) +
                  singleFileItem(ctx, "C:\\b.exe\0c"s),
              "\"%windir%\\x.exe\"  \"C:\\a.exe\"\"C:\\b.exe\"");
    ctx.quoteChar.clear();  // quoting off: a report's path with blanks still goes whole
    EXPECT_EQ(batchItem(ctx, "C:\\Program Files\\x.dll", true), "\"C:\\Program Files\\x.dll\" ");
}

}  // namespace
}  // namespace tv
