// The snapshot's lines for ordinary and for hostile names and texts, and the scanners' command lines for
// lists of any length.
#include <gtest/gtest.h>

#include <set>

#include "avshell/scanner_launch.h"
#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using namespace std::string_literals;

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

// Every other name gets a line of its own that no profile call bends and that reads back to exactly that name.
TEST(SnapshotEncoding, HostileNamesAndTextsAreEscapedAndReadBackExactlyAndLongTextsAsTheirDigest) {
    const RegText hostile[] = {RegText("Tv\r\n[CU/RO]\r\nTvInjected"), RegText("[Tv]"), RegText(";Tv"),
                               RegText("A=B"), RegText("A-B\t"), RegText("  Tv "), RegText("%Tv"),
                               RegText("Tv\xA0"), unspelled(u"Tv\u4E2D"), unspelled(u"Tv\u6587 ")};
    std::set<std::string> keys{"A-B"};
    for (const RegText& name : hostile) {
        const std::string key = snapshotKey(name, RegText(" (x)"));
        EXPECT_TRUE(key.front() == '%' && key.back() != ' ' && key.find_first_of("\r\n=") == std::string::npos) << key;
        const auto back = nameOfSnapshotKey(key);
        EXPECT_TRUE(back && sameAs(*back, name)) << key;
        keys.insert(key);
    }
    EXPECT_EQ(keys.size(), std::size(hostile) + 1);
    EXPECT_EQ(snapshotKey(RegText("A=B"), RegText(" (x)")), "%A%3DB");
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
