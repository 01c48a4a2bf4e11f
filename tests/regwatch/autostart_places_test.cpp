// The parts of the watched autostart places that need no registry: values of
// several entries, task definitions, and the Startup and task folders read
// through in-memory files and recorded shortcuts.
#include <gtest/gtest.h>

#include <algorithm>

#include "regwatch/autostart_files.h"
#include "regwatch/task_definitions.h"
#include "regwatch/value_entries.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using namespace std::string_literals;
using Texts = std::vector<std::string>;

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
        {"", "x.dll", EntrySplit::BlankOrComma, {"x.dll"}, {}},
        {"a, b", "b, a", EntrySplit::StringList, {}, {}},  // the same entries in another order
    };
    for (const auto& c : cases) {
        const EntryChanges changes = entryChanges(c.before, c.now, c.split);
        EXPECT_EQ(changes.added, c.added) << c.before << " -> " << c.now;
        EXPECT_EQ(changes.removed, c.removed) << c.before << " -> " << c.now;
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
    EXPECT_TRUE(scheduledTaskEntries(os.files, "C:\\none\\", "C:\\none\\").empty());
}

}  // namespace
}  // namespace tv
