// The registry pass over the test prefix's real registry and a snapshot in the
// test's folder, written and read by the system's profile calls.
#include <algorithm>

#include "regwatch/watched_locations.h"
#include "tests/win/regwatch_fixture.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

class RegistryPassTest : public RegWatchTest {
protected:
    std::string line(const std::string& section, const std::string& key) const {
        return profiles.get(section, key, 250, ctx.regFile);
    }
    std::vector<std::string> rowsAfterHeading() const {
        const auto rows = warnings();
        return rows.empty() ? rows : std::vector<std::string>(rows.begin() + 1, rows.end());
    }
    const std::vector<std::string> noWarnings{"*No new or modified Registry Entries*"};
};

TEST_F(RegistryPassTest, FirstStartRecordsTheWatchedValuesAndTheNextPassWarnsOfNothing) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvTest A=B", "C:\\Tools\\a.exe /min");
    pass.checkRegFile();
    const std::string recorded = snapshot();
    std::size_t last = 0;
    for (const WatchedLocation& location : kWatchedLocations) {
        const std::size_t at = recorded.find("["s + location.section + "]\r\n");
        ASSERT_NE(at, std::string::npos) << location.section;
        EXPECT_GE(at, last) << location.section;
        last = at;
    }
    EXPECT_EQ(line("CU/R", "%TvTest A%3DB"), "(C:\\Tools\\a.exe /min)");
    EXPECT_EQ(warnings(), (std::vector<std::string>{"New and Modified Registry Entry Warnings", noWarnings[0]}));
    EXPECT_FALSE(page.cScnUpd.enabled());
    EXPECT_FALSE(ctx.regNew);

    // The tree: three roots, seventeen locations of the program's own view, and the value under its location.
    const ui::Control& tree = page.TreeView1;
    std::vector<std::string> locations;
    for (std::size_t node = 0; node < tree.nodes().size(); ++node)
        if (tree.nodes()[node].key[0] == '!' && tree.nodes()[node].key.find('/') == std::string::npos)
            locations.push_back(tree.fullPath(node));
    ASSERT_EQ(locations.size(), 17u);
    EXPECT_EQ(locations[0], "HKEY_LOCAL_MACHINE\\Loaded in Run");
    EXPECT_EQ(locations[5], "HKEY_LOCAL_MACHINE\\Spawned with EXE's");
    EXPECT_EQ(locations[11], "HKEY_CURRENT_USER\\Loaded in RunOnce");
    EXPECT_EQ(locations[16], "HKEY_CLASSES_ROOT\\Spawned with PIF's");
    const std::size_t value = tree.nodeIndex("#1 (C:\\Tools\\a.exe /min)");
    ASSERT_NE(value, ui::kNoNode);
    EXPECT_EQ(tree.fullPath(value), "HKEY_CURRENT_USER\\Loaded in Run\\TvTest A=B (C:\\Tools\\a.exe /min)");

    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(), noWarnings);
    pass.checkRegFile();  // a snapshot that is there stays as it is
    EXPECT_EQ(snapshot(), recorded);
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(RegistryPassTest, NewAndModifiedValuesWarnWithTheMachineGroupsKeyTailUntilRecorded) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvKept", "C:\\kept.exe");
    pass.checkRegFile();
    const std::string recorded = snapshot();
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\foo.exe");
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(),
              std::vector<std::string>{"HKEY_CURRENT_USER|Loaded in \\TvFoo (C:\\foo.exe) New Entry!"});
    EXPECT_TRUE(page.cScnUpd.enabled());

    putText(HKEY_LOCAL_MACHINE, kRunOnceKey, "TvBar", "C:\\bar.exe");
    putText(HKEY_CURRENT_USER, kRunKey, "TvKept", "C:\\KEPT.exe");
    pass.setReg();
    auto rows = rowsAfterHeading();
    ASSERT_EQ(rows.size(), 3u);
    EXPECT_EQ(rows[0], "HKEY_LOCAL_MACHINE|Loaded in RunOnce\\TvBar (C:\\bar.exe) New Entry!");
    std::sort(rows.begin() + 1, rows.end());  // the user's two in the registry's order
    EXPECT_EQ(rows[1], "HKEY_CURRENT_USER|Loaded in RunOnce\\TvFoo (C:\\foo.exe) New Entry!");
    EXPECT_EQ(rows[2], "HKEY_CURRENT_USER|Loaded in RunOnce\\TvKept (C:\\KEPT.exe) Entry Modified!");
    EXPECT_EQ(snapshot(), recorded);  // warning is not accepting

    ctx.regNew = true;
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(), noWarnings);
    EXPECT_FALSE(ctx.regNew);
    EXPECT_EQ(line("CU/R", "TvKept"), "(C:\\KEPT.exe)");
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(), noWarnings);
}

TEST_F(RegistryPassTest, EveryTypeIsRecordedInItsTextFormAndComparesEqualAfterwards) {
    put(HKEY_CURRENT_USER, kRunKey, "TvExpand", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvDword", REG_DWORD, "\x01\x00\x00\x00"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvZero", REG_DWORD, "\x00\x00\x00\x00"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvMulti", REG_MULTI_SZ, "a.exe\0b.exe\0\0"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvBinary", REG_BINARY, "\x0A\x10\x99"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvEmpty", REG_SZ, ""s);
    put(HKEY_CURRENT_USER, kRunKey, "TvNul", REG_SZ, "\0"s);
    pass.checkRegFile();
    EXPECT_EQ(line("CU/R", "TvExpand"), "(%windir%\\x.exe");  // no ")": cut at the NUL
    EXPECT_EQ(line("CU/R", "TvDword"), "(\x01");
    EXPECT_EQ(line("CU/R", "TvZero"), "(");
    EXPECT_EQ(line("CU/R", "TvMulti"), "(a.exe");
    EXPECT_EQ(line("CU/R", "TvBinary"), "(A 10 )");
    EXPECT_EQ(line("CU/R", "TvEmpty"), "()");
    EXPECT_EQ(line("CU/R", "TvNul"), "()");
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(), noWarnings);

    put(HKEY_CURRENT_USER, kRunKey, "TvExpand", REG_EXPAND_SZ, "%windir%\\y.exe\0"s);
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(),
              std::vector<std::string>{"HKEY_CURRENT_USER|Loaded in \\TvExpand (%windir%\\y.exe Entry Modified!"});
    // The tree keeps the value's whole text, NULs and all.
    const auto& nodes = page.TreeView1.nodes();
    const auto node = std::find_if(nodes.begin(), nodes.end(), [](const ui::TreeNode& n) {
        return n.text.rfind("TvExpand (%windir%\\y.exe\0"s, 0) == 0;
    });
    ASSERT_NE(node, nodes.end());
    EXPECT_EQ(node->text.size(), std::string("TvExpand (").size() + 256 + 1);
    EXPECT_EQ(node->key, "#1" + node->text.substr(8));
}

TEST_F(RegistryPassTest, ShellCommandsSkipOnlyTheUsualDefaultAndNameTheirDefaultByItsText) {
    const std::string pif = "Software\\Classes\\piffile\\shell\\open\\command";
    put(HKEY_LOCAL_MACHINE, pif, "", REG_SZ, "launcher.exe \"%1\" %*\0"s);
    pass.checkRegFile();
    // The machine's classes are also the classes root: one key, two locations.
    const ui::Control& tree = page.TreeView1;
    EXPECT_NE(tree.nodeIndex("#10 (launcher.exe \"%1\" %*)"), ui::kNoNode);
    const std::size_t node = tree.nodeIndex("#5 (launcher.exe \"%1\" %*)");
    ASSERT_NE(node, ui::kNoNode);
    EXPECT_EQ(tree.nodes()[node].text, " (launcher.exe \"%1\" %*)");
    EXPECT_EQ(line("CR/SP", " (launcher.exe \"%1\" %*)"), "(launcher.exe \"%1\" %*)");

    put(HKEY_LOCAL_MACHINE, pif, "", REG_SZ, "x.exe \"%1\" %*\0"s);
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(),
              (std::vector<std::string>{
                  "HKEY_LOCAL_MACHINE|Loaded in command\\ (x.exe \"%1\" %*) (x.exe \"%1\" %*) New Entry!",
                  "HKEY_CLASSES_ROOT|Loaded in command\\ (x.exe \"%1\" %*) (x.exe \"%1\" %*) New Entry!"}));

    put(HKEY_LOCAL_MACHINE, pif, "", REG_SZ, "\"%1\" %*\0"s);
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(), noWarnings);
    EXPECT_EQ(tree.nodes()[tree.nodeIndex("!RSWP")].children, 0u);
}

TEST_F(RegistryPassTest, OddNamesAndHugeValuesPassWithoutAWord) {
    pass.checkRegFile();
    for (const std::string name : {"[Tv]", "Tv;x", "  Tv blanks  ", "Tv\tTab\x01", "Tv\xE9\xFF"})
        putText(HKEY_CURRENT_USER, kRunOnceKey, name, "C:\\odd.exe");
    HKEY key = nullptr;
    ::RegOpenKeyExA(HKEY_CURRENT_USER, kRunOnceKey, 0, KEY_ALL_ACCESS, &key);
    const std::wstring foreign = L"Tv\u4E2D\u6587";  // outside the code page
    ::RegSetValueExW(key, foreign.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(L"C:\\w.exe"), 18);
    ::RegCloseKey(key);
    ctx.regNew = true;
    pass.setReg();
    pass.setReg();
    EXPECT_TRUE(boxes.shown.empty());
    EXPECT_EQ(warnings()[0], "New and Modified Registry Entry Warnings");

    // A value too large for the listing's buffer ends the location's listing.
    put(HKEY_CURRENT_USER, kRunOnceKey, "Tv big", REG_BINARY, std::string(65536, 'b'));
    pass.setReg();
    EXPECT_TRUE(boxes.shown.empty());
    key = nullptr;
    ::RegOpenKeyExA(HKEY_CURRENT_USER, kRunOnceKey, 0, KEY_ALL_ACCESS, &key);
    ::RegDeleteValueW(key, foreign.c_str());
    ::RegCloseKey(key);
}

TEST_F(RegistryPassTest, ASnapshotThatCannotBeReadMakesEveryValueNewAndIsLeftAsItIs) {
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\foo.exe");
    // The key tail is whatever the machine's group left: the prefix has values there.
    const std::string expected = "\\TvFoo (C:\\foo.exe) New Entry!";
    const auto hasWarning = [&] {
        const auto rows = warnings();
        return std::any_of(rows.begin(), rows.end(), [&](const std::string& row) {
            return row.rfind("HKEY_CURRENT_USER|Loaded in ", 0) == 0 && row.size() > expected.size() &&
                   row.compare(row.size() - expected.size(), expected.size(), expected) == 0;
        });
    };
    writeFile("Data\\Registry.dat", "");
    pass.checkRegFile();  // there: no recording
    EXPECT_TRUE(warnings().empty());
    pass.setReg();
    EXPECT_TRUE(hasWarning());

    writeFile("Data\\Registry.dat", "\x00\xFF[CU/R\r\n\x01=\x02\x00"s + std::string(5000, '\xAB'));
    pass.checkRegFile();
    pass.setReg();
    EXPECT_TRUE(hasWarning());
    {
        files.remove(ctx.regFile);
        FileLock lock(ctx.regFile);
        ASSERT_TRUE(lock.held());
        pass.checkRegFile();  // held by another program: neither made nor recorded
        EXPECT_FALSE(ctx.regNew);
        pass.setReg();
        EXPECT_TRUE(hasWarning());
    }
    EXPECT_EQ(snapshot(), "");

    // Read-only: compared as usual. (Whether a recording pass can still write
    // it is the system's affair: the program only asks.)
    files.remove(ctx.regFile);
    pass.checkRegFile();
    ::SetFileAttributesA(ctx.regFile.c_str(), FILE_ATTRIBUTE_READONLY);
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo", "C:\\changed.exe");
    pass.setReg();
    EXPECT_EQ(rowsAfterHeading(),
              std::vector<std::string>{"HKEY_CURRENT_USER|Loaded in \\TvFoo (C:\\changed.exe) Entry Modified!"});
    ctx.regNew = true;
    pass.setReg();
    ::SetFileAttributesA(ctx.regFile.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace tv::test
