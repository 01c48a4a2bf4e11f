// RegWatch's platform-free rules: the file an entry names, pending boot operations, the snapshot's lines, the
// scanners' command lines, and the autostart places that need no registry (through the fakes).
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "avshell/scanner_launch.h"
#include "regwatch/autostart_files.h"
#include "regwatch/file_path_cut.h"
#include "regwatch/pending_boot.h"
#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"
#include "regwatch/task_definitions.h"
#include "regwatch/value_entries.h"
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
        {"Updater (C:\\Tools\\updater.exe /min)", "C:\\Tools\\updater.exe", 0},
        {"Foo (C:\\foo.exe) New Entry!) ", "C:\\foo.exe", 0}, {"C:\\Program Files\\a.exe /x", "C:\\Program Files\\a.exe", 0},
        {"C:\\a b\\c.exe", "C:\\a b\\c.exe", 0},  // no blank behind the dot
        {"x (\"C:\\a b\\x.exe\" \"%1\")", "\"C:\\a b\\x.exe\"", 0},
        {"C:\\Program Files\\a", "C:\\Program.exe", 0},  // no dot: the first blank ends it
        {"%systemroot%\\system32\\x.exe /a", "C:\\WIN\\system32\\x.exe", 0},
        {"%SystemRoot%\\x.exe", "%SystemRoot%\\x.exe", 0}, {"C:\\\\a\\\\b.exe", "C:\\a\\b.exe", 0},
        // Bare names: the system folder, the Windows folder, the old system folder.
        {"notepad.exe", "C:\\WIN\\SYSTEM32\\notepad.exe", 1}, {"x (win.exe)", "C:\\WIN\\win.exe", 2},
        {"x (old.exe -s)", "C:\\WIN\\SYSTEM\\old.exe", 3},
        {"regedit", "", 3},  // the ".exe" added to the path takes no part in the search
        {"C:\\Program Files (x86)\\a.exe", "", 3, "x86"},
        {"rundll32 shell32.dll,Control_RunDLL", "", 3, "rundll32 shell32.dll,Control_RunDLL"}, {"a\0b"s, "", 3},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.entry);
        int lookups = 0;
        const FilePathCut cut = cutToFilePath(c.entry, {"C:\\WIN\\", "C:\\WIN\\SYSTEM32\\"},
                                              [&](const std::string& p) { return ++lookups, present.count(p) > 0; });
        EXPECT_TRUE(cut.found == !c.path.empty() && lookups == c.lookups) << lookups;
        EXPECT_EQ(cut.path, c.path);
        if (c.text) EXPECT_EQ(cut.text, c.text);
    }
}

TEST(RegWatchRules, PendingBootOperationsAreWininitsRightSidesAndThePrefixedRenames) {
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
    // Every prefixed pending rename is a file up to its NUL.
    const std::string blanks(200, ' ');  // behind the value, as a query's buffer holds it
    const struct { std::string value; Texts files; } renames[] = {
        // The pairs are not kept: source and target are two files, a deletion's empty target none.
        {"\\??\\C:\\a.tmp\0\0\\??\\C:\\b.tmp\0!\\??\\C:\\c.dll\0\0"s + blanks, {"C:\\a.tmp", "C:\\b.tmp", "C:\\c.dll"}},
        {"C:\\a.tmp\0\0"s + blanks, {}},  // no prefix
        {"", {}},                          // more than the buffer reads as nothing
        {std::string(256, ' '), {}}, {"\\??\\C:\\a\0 \\??\\"s, {"C:\\a"}}, {"\\??\\C:\\no-end", {""}},
        {"x\0\\??\\  C:\\b \0\0\0"s, {"x", "C:\\b"}},  // what stands in front of the first prefix counts
    };
    for (const auto& r : renames) EXPECT_EQ(parsePendingRenames(r.value), r.files) << r.value;
}

TEST(RegWatchRules, TheSnapshotSkipsTheUsualCommandForgivesBlanksAtTheEndsAndEscapesWhatWouldBendIt) {
    EXPECT_TRUE(isDefaultOpenCommand("\"%1\" %*"));
    for (const auto& other : {"\"%1\""s, "\"%1\" %* "s, " \"%1\" %*"s, "\"%1\"  %*"s, "\"%1\" %1"s, "\"%1\" %*\0"s})
        EXPECT_FALSE(isDefaultOpenCommand(other)) << other;
    // Only blanks, and only at the ends: the profile call drops them from the line.
    EXPECT_FALSE(storedTextChanged(" (C:\\foo.exe )  ", "(C:\\foo.exe )"));
    EXPECT_TRUE(storedTextChanged(" (\tC:\\foo.exe)", "(C:\\foo.exe)"));
    // Ordinary lines stay as they are, others are escaped or, too long, digested; the fuzz target holds every
    // name and text to the promises of the escaped forms.
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
    EXPECT_EQ(snapshotKey(RegText("A=B"), RegText(" (x)")), "%A%3DB");
    EXPECT_EQ(snapshotKey(RegText("Tv?", u"Tv\u4E2D "), RegText(" (x)")), "%Tv%u4E2D%20");
    EXPECT_EQ(snapshotText(RegText(" (a.exe\r\nb.exe)")), " %(a.exe%0D%0Ab.exe)");
    EXPECT_EQ(shownName(RegText("Tv\r\nFrom: elsewhere")), "Tv%0D%0AFrom: elsewhere");
    const std::string a = " (" + std::string(5000, 'a') + ")", b = " (" + std::string(4999, 'a') + "b)";
    const std::string digest = snapshotText(RegText(a));
    EXPECT_TRUE(digest.rfind(" %%SHA1:", 0) == 0 && digest.size() <= kSnapshotTextChars) << digest;
    EXPECT_NE(digest, snapshotText(RegText(b)));
    EXPECT_NE(snapshotKey(RegText(), RegText(a)), snapshotKey(RegText(), RegText(b)));  // a long default's key
}

TEST(ScannerRuns, LongListsSplitIntoRunsWithinTheSystemsLimitAndPathsWithBlanksGoWhole) {
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
    AppContext ctx{os.set()};  // quoting off: a report's path with blanks still goes whole
    EXPECT_EQ(batchItem(ctx, "C:\\Program Files\\x.dll", true), "\"C:\\Program Files\\x.dll\" ");
}

std::string utf16File(std::u16string_view text) {
    std::string bytes = "\xFF\xFE";
    for (const char16_t unit : text) bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
    return bytes;
}

std::string countedText(std::u16string_view text) {
    const std::string units = utf16File(text).substr(2);
    const auto count = static_cast<char>(text.size() + 1);
    return std::string{count, '\0'} + units + "\0\0"s;
}

// A .job file: the fixed part names where the application's name stands.
std::string jobFile(std::u16string_view program, std::u16string_view parameters) {
    std::string bytes(70, '\0');
    bytes[20] = 70;
    return bytes + countedText(program) + countedText(parameters) + countedText(u"C:\\");
}

constexpr std::u16string_view kTask =
    u"<?xml version=\"1.0\" encoding=\"UTF-16\"?>\r\n<Task xmlns=\"http://schemas.microsoft.com/windows/2004/02/mit/task\">"
    u"<!-- <Actions><Exec><Command>hidden.exe</Command></Exec></Actions> -->"
    u"<RegistrationInfo><Description>a &lt;b&gt; <Command>no action</Command></Description></RegistrationInfo>"
    u"<Actions Context=\"a>b\">\r\n  <Exec>\r\n    <Command>\r\n      C:\\Program Files\\Up &amp; Go\\up.exe\r\n"
    u"    </Command>\r\n    <Arguments>/q \"x&gt;y\" &#x263A;&#65;</Arguments>\r\n  </Exec>\r\n"
    u"  <t:ComHandler xmlns:t=\"x\"><t:ClassId>{1234}</t:ClassId><t:Data>d</t:Data></t:ComHandler>\r\n"
    u"  <Exec><Command><![CDATA[C:\\a&b.exe]]></Command><WorkingDirectory>C:\\</WorkingDirectory></Exec>\r\n"
    u"</Actions></Task>";

TEST(ValueEntries, AChangeIsToldEntryByEntry) {
    EXPECT_EQ(stringListText("autocheck autochk *\0evil\0\0junk\0"s), "autocheck autochk *, evil");
    const struct { std::uint32_t type; std::string data, text; } values[] = {
        {1, "C:\\a.exe\0junk"s, "C:\\a.exe"}, {2, "%SystemRoot%\\x.sys\0"s, "%SystemRoot%\\x.sys"},
        {7, "a\0b\0\0"s, "a, b"}, {4, "\x01\x01\0\0"s, "257"}, {11, "\xFF\0\0\0\0\0\0\x01"s, "72057594037928191"},
        {4, "\x0A"s, "0A"}, {3, "\x0A\xFF"s, "0A FF"}};
    for (const auto& v : values) EXPECT_EQ(placeValueText(v.type, v.data), v.text) << v.type;
    const struct { std::string before, now; EntrySplit split; Texts added, removed; } cases[] = {
        {"autocheck autochk *", "autocheck autochk *, evil", EntrySplit::StringList, {"evil"}, {}},
        {"kerberos, msv1_0", "msv1_0, msv1_0", EntrySplit::StringList, {"msv1_0"}, {"kerberos"}},  // twice counts
        {"kerberos", "Kerberos", EntrySplit::StringList, {"Kerberos"}, {"kerberos"}},
        {"a.dll,b.dll c.dll", " c.dll  b.dll,,d.dll ", EntrySplit::BlankOrComma, {"d.dll"}, {"a.dll"}},
        {"a, b", "b, a", EntrySplit::StringList, {}, {}},  // the same entries in another order
    };
    for (const auto& c : cases) {
        const EntryChanges changes = entryChanges(c.before, c.now, c.split);
        EXPECT_TRUE(changes.added == c.added && changes.removed == c.removed) << c.before << " -> " << c.now;
    }
}

TEST(TaskDefinitions, OnlyTheActionsCountInEveryEncoding) {
    using Commands = std::vector<std::pair<std::u16string, std::u16string>>;
    const auto read = [](const std::string& bytes) {
        Commands out;
        for (const TaskCommand& c : taskXmlCommands(textFileUnits(bytes))) out.emplace_back(c.program, c.arguments);
        return out;
    };
    const Commands want{{u"C:\\Program Files\\Up & Go\\up.exe", u"/q \"x>y\" \u263A" u"A"}, {u"{1234}", u""},
                        {u"C:\\a&b.exe", u""}};
    EXPECT_TRUE(read(utf16File(kTask)) == want);
    std::string utf8 = "\xEF\xBB\xBF<Actions><Exec><Command>C:\\\xC3\xBC.exe</Command></Exec></Actions>";
    EXPECT_EQ(read(utf8).at(0).first, u"C:\\\u00FC.exe");
    EXPECT_EQ(read(utf16File(kTask).substr(2)), want);  // no mark, but the zero bytes tell
    EXPECT_TRUE(read("no task at all").empty() && read("<Actions><Exec><Command>x").empty());

    const auto job = jobFileCommand(jobFile(u"C:\\WINDOWS\\evil.exe", u"/silent"));
    ASSERT_TRUE(job);
    EXPECT_TRUE(job->program == u"C:\\WINDOWS\\evil.exe" && job->arguments == u"/silent");
    EXPECT_FALSE(jobFileCommand(jobFile(u"a.exe", u"b").substr(0, 75)));  // its strings past the end
}

TEST(AutostartFiles, EveryStartupFileAndEveryTaskWithWhatItStarts) {
    test::FakePlatform os;
    os.files.folders = {"C:\\S", "C:\\S\\SUB", "C:\\W", "C:\\W\\T", "C:\\W\\T\\MS", "C:\\W\\J"};
    os.shortcuts.makeShellLink("C:\\S\\Mail.lnk", {.target = "C:\\Program Files\\Mail\\mail.exe", .arguments = "/tray"});
    os.shortcuts.makeShellLink("C:\\S\\Web.lnk", {.target = ""});  // a link to no file starts itself
    for (const char* name : {"C:\\S\\Mail.lnk", "C:\\S\\Web.lnk", "C:\\S\\Broken.lnk", "C:\\S\\run me.bat",
                             "C:\\S\\Sub\\inner.exe"})
        os.files.put(name, "x");
    os.files.put("C:\\W\\T\\Updater", utf16File(kTask));
    os.files.put("C:\\W\\T\\MS\\Defrag", utf16File(u"<Actions><Exec><Command>defrag.exe</Command></Exec></Actions>"));
    os.files.put("C:\\W\\T\\Broken", "\xFF\xFE<");
    os.files.put("C:\\W\\J\\Old.job", jobFile(u"C:\\old.exe", u""));
    os.files.put("C:\\W\\J\\Bad.JOB", "short");
    os.files.put("C:\\W\\J\\notes.txt", jobFile(u"C:\\no.exe", u""));

    const auto lines = [](std::vector<FileEntry> entries) {
        Texts out;
        for (const FileEntry& e : entries) out.push_back(e.name + "=" + e.value);
        std::sort(out.begin(), out.end());
        return out;
    };
    EXPECT_EQ(lines(startupFolderEntries(os.files, os.shortcuts, "C:\\S\\")),
              (Texts{"Broken.lnk=C:\\S\\Broken.lnk", "Mail.lnk=\"C:\\Program Files\\Mail\\mail.exe\" /tray",
                     "Web.lnk=C:\\S\\Web.lnk", "run me.bat=\"C:\\S\\run me.bat\""}));
    EXPECT_EQ(lines(scheduledTaskEntries(os.files, "C:\\W\\T\\", "C:\\W\\J\\")),
              (Texts{"Bad.JOB=", "Broken=", "MS\\Defrag=defrag.exe", "Old.job=C:\\old.exe",
                     "Updater=\"C:\\Program Files\\Up & Go\\up.exe\" /q \"x>y\" ?A & {1234} & C:\\a&b.exe"}));
}

}  // namespace
}  // namespace tv
