// RegWatch over the real registry calls and profile files, in keys of the test's own (see the fixture).
#include <set>

#include "core/text.h"
#include "tests/win/regwatch_fixture.h"
#include "ui/main_actions.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

TEST_F(RegWatchTest, RegClassFoldsEveryTypeIntoTextAndReadsEveryValueWhole) {
    const struct { DWORD type; std::string bytes, text; } values[] = {
        {REG_SZ, "C:\\Orbexa\0"s, "C:\\Orbexa"},
        {REG_SZ, "", ""},
        {REG_SZ, std::string(255, 's') + '\0', std::string(255, 's')},  // 256 bytes read whole,
        {REG_SZ, std::string(256, 's') + '\0', std::string(256, 's')},  // and longer ones too
        // The last byte is dropped; the format "00" pads only what reads as a number.
        {REG_BINARY, "\x05\x1F\x00\x0A\xFF\x10\x99"s, "05 1F 00 A FF 10 "},
        {REG_DWORD, "\x01\x00\x00\x00"s, "\x01\x00\x00\x00"s + std::string(252, ' ')},  // the whole buffer
        {REG_MULTI_SZ, "a\0b\0\0"s, "a\0b\0\0"s + std::string(251, ' ')},
    };
    RegClass reg(registry);
    ASSERT_TRUE(reg.openRegistry(hive::CurrentUser, ""));
    for (const auto& v : values) {
        put(CU, "", "value", v.type, v.bytes);
        EXPECT_EQ(reg.getValue(RegText("value")).text, v.text) << v.type << ": " << v.bytes;
    }
    // A long name or data before a value hides nothing.
    putText(CU, "Sub", "a first", "x");
    put(CU, "Sub", "b second", REG_BINARY, std::string(245, 'b'));
    putText(CU, "Sub", "c third", "y");
    EXPECT_TRUE(reg.getAllSubDirectories() == Texts{"Sub"} && reg.openRegistry(hive::CurrentUser, "Sub"));
    const std::vector<RegText> listed = reg.getAllValues();
    EXPECT_EQ(listed, (std::vector<RegText>{RegText("a first"), RegText("b second"), RegText("c third")}));
    EXPECT_FALSE(reg.deleteKey(RegText("a first")));  // gone all the same
    EXPECT_EQ(reg.getValue(RegText("a first")).text + reg.getValue(RegText("c third")).text, "y");
    EXPECT_TRUE(!reg.openRegistry(0, "Software") && reg.closeRegistry());  // root 0 changes nothing
    EXPECT_EQ(reg.subDirectory() + reg.getValue(RegText("c third")).text, "Sub");
    EXPECT_FALSE(reg.openRegistry(hive::LocalMachine, "Nowhere"));  // named all the same
    EXPECT_TRUE(reg.subDirectory() == "Nowhere" && reg.registryRootKey() == hive::LocalMachine);

    // The listings count in 16 bits: a 32768th entry overflows, and everything listed is lost.
    const HKEY big = makeKey(CU, "Big");
    for (int n = 0; n < 32767; ++n) ::RegSetValueExA(big, std::to_string(n).c_str(), 0, REG_NONE, nullptr, 0);
    EXPECT_TRUE(reg.openRegistry(hive::CurrentUser, "Big") && reg.getAllValues().size() == 32767u);
    ::RegSetValueExA(big, "last", 0, REG_NONE, nullptr, 0), ::RegCloseKey(big);
    EXPECT_TRUE(reg.getAllValues().empty());
}

TEST_F(RegWatchTest, RegistryPassRecordsEachLocationInItsSectionOrFindsAllNewWithoutASnapshot) {
    const std::string cmd = "file\\shell\\open\\command", classes = "Software\\Classes\\";
    const struct { HKEY root; std::string key, section, node; } locations[] = {
        {LM, kRun, "LM/R", "HKEY_LOCAL_MACHINE\\Loaded in Run"},
        {LM, kRunOnce, "LM/RO", "HKEY_LOCAL_MACHINE\\Loaded in RunOnce"},
        {LM, kRunOnce + "Ex", "LM/ROX", "HKEY_LOCAL_MACHINE\\Loaded in RunOnceEx"},
        {LM, kRun + "Services", "LM/RS", "HKEY_LOCAL_MACHINE\\Loaded in RunServices"},
        {LM, kRun + "ServicesOnce", "LM/RSO", "HKEY_LOCAL_MACHINE\\Loaded in RunServicesOnce"},
        {LM, classes + "exe" + cmd, "LM/SE", "HKEY_LOCAL_MACHINE\\Spawned with EXE's"},
        {LM, classes + "com" + cmd, "LM/SC", "HKEY_LOCAL_MACHINE\\Spawned with COM's"},
        {LM, classes + "bat" + cmd, "LM/SB", "HKEY_LOCAL_MACHINE\\Spawned with BAT's"},
        {LM, classes + "hta" + cmd, "LM/SH", "HKEY_LOCAL_MACHINE\\Spawned with HTA's"},
        {LM, classes + "pif" + cmd, "LM/SP", "HKEY_LOCAL_MACHINE\\Spawned with PIF's"},
        {CU, kRun, "CU/R", "HKEY_CURRENT_USER\\Loaded in Run"},
        {CU, kRunOnce, "CU/RO", "HKEY_CURRENT_USER\\Loaded in RunOnce"},
        {CR, "exe" + cmd, "CR/SE", "HKEY_CLASSES_ROOT\\Spawned with EXE's"},
        {CR, "com" + cmd, "CR/SC", "HKEY_CLASSES_ROOT\\Spawned with COM's"},
        {CR, "bat" + cmd, "CR/SB", "HKEY_CLASSES_ROOT\\Spawned with BAT's"},
        {CR, "hta" + cmd, "CR/SH", "HKEY_CLASSES_ROOT\\Spawned with HTA's"},
        {CR, "pif" + cmd, "CR/SP", "HKEY_CLASSES_ROOT\\Spawned with PIF's"},
    };
    std::string sections, snapshot, others;  // as made, and as the profile calls leave it; the 32-bit view's behind
    for (const auto& l : locations) {
        sections += "[" + l.section + "]\r\n\r\n";
        snapshot += "[" + l.section + "]\r\nTv-" + l.section + "=(C:\\" + l.section + ".exe)\r\n";
        others += "[" + l.section + "/32]\r\n";
    }
    sections += replaceText(others, "\r\n", "\r\n\r\n");
    snapshot += others;
    pass.checkRegFile();
    EXPECT_EQ(readFile("Data\\Registry.dat"), sections);
    for (const auto& l : locations) putText(l.root, l.key, "Tv-" + l.section, "C:\\" + l.section + ".exe");
    ctx.regNew = true;
    pass.setReg();
    EXPECT_EQ(readFile("Data\\Registry.dat"), snapshot);
    std::set<std::string> nodes;
    for (std::size_t n = 0; n < page.TreeView1.nodes().size(); ++n) nodes.insert(page.TreeView1.fullPath(n));
    for (const auto& l : locations)
        EXPECT_TRUE(nodes.count(l.node + "\\Tv-" + l.section + " (C:\\" + l.section + ".exe)")) << l.section;
    EXPECT_EQ(nodes.size(), 3u + 17u + 17u);
    EXPECT_EQ(warnings(), noWarnings);  // a recording pass warns of nothing
    EXPECT_FALSE(page.cScnUpd.enabled() || ctx.regNew);
    pass.checkRegFile();  // a snapshot that is there stays as it is
    EXPECT_EQ(readFile("Data\\Registry.dat"), snapshot);

    // Odd names pass without a word; a value too large for the listing ends it.
    for (const std::string name : {"[Tv]", "Tv;x", "  Tv blanks  ", "Tv\tTab\x01", "Tv\xE9\xFF"})
        putText(CU, kRunOnce, name, "C:\\odd.exe");
    put(CU, kRunOnce, "Tv big", REG_BINARY, std::string(65536, 'b'));
    const std::string lmRunIsNew = "HKEY_LOCAL_MACHINE|Loaded in Run\\Tv-LM/R (C:\\LM/R.exe) New Entry!";
    writeFile("Data\\Registry.dat", "");
    pass.checkRegFile();  // there, though unreadable: not recorded
    pass.setReg();
    EXPECT_EQ(warnings().at(0), lmRunIsNew);
    files.remove(ctx.regFile);
    {
        FileLock lock(ctx.regFile);  // held by another program: neither made nor recorded
        pass.checkRegFile();
        pass.setReg();
        EXPECT_EQ(warnings().at(0), lmRunIsNew);
    }
    EXPECT_TRUE(readFile("Data\\Registry.dat").empty() && boxes.shown.empty());
}

TEST_F(RegWatchTest, RegistryPassWarnsOfNewAndChangedValuesUntilARecordingPassAcceptsThem) {
    putText(CU, kRun, "TvKept", "C:\\kept.exe");
    putText(CU, kRun, "TvTrail", "C:\\trail.exe");
    put(CU, kRun, "TvExpand", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    putText(CR, "piffile\\shell\\open\\command", "", "launcher.exe \"%1\" %*");
    putText(CR, "exefile\\shell\\open\\command", "", "\"%1\" %*");  // the usual command is never watched
    pass.checkRegFile();
    EXPECT_EQ(line("CU/R", "TvExpand") + line("CR/SP", " (launcher.exe \"%1\" %*)"),
              "(%windir%\\x.exe(launcher.exe \"%1\" %*)");  // cut at the NUL, and a default named by its text
    EXPECT_EQ(page.TreeView1.nodes()[node("#5 (launcher.exe \"%1\" %*)")].text, " (launcher.exe \"%1\" %*)");
    EXPECT_EQ(page.TreeView1.nodes()[node("!RSWE")].children, 0u);
    const std::string recorded = readFile("Data\\Registry.dat");

    putText(CU, kRun, "TvKept", "C:\\KEPT.exe");     // only blanks at the ends are forgiven,
    putText(CU, kRun, "TvTrail", "C:\\trail.exe ");  // not one inside the parentheses
    put(CU, kRun, "TvExpand", REG_EXPAND_SZ, "%windir%\\y.exe\0"s);
    putText(CU, kRun, "TvNew", "C:\\new.exe");
    putText(CR, "piffile\\shell\\open\\command", "", "x.exe \"%1\" %*");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_CURRENT_USER|Loaded in \\TvExpand (%windir%\\y.exe Entry Modified!",
                                 "HKEY_CURRENT_USER|Loaded in \\TvKept (C:\\KEPT.exe) Entry Modified!",
                                 "HKEY_CURRENT_USER|Loaded in \\TvNew (C:\\new.exe) New Entry!",
                                 "HKEY_CURRENT_USER|Loaded in \\TvTrail (C:\\trail.exe ) Entry Modified!",
                                 "HKEY_CLASSES_ROOT|Loaded in \\ (x.exe \"%1\" %*) (x.exe \"%1\" %*) New Entry!"}));
    EXPECT_TRUE(page.cScnUpd.enabled() && readFile("Data\\Registry.dat") == recorded);  // warning is not accepting
    // The tree keeps the whole text of a value, NULs and blanks and all.
    EXPECT_NE(node("#1 (%windir%\\y.exe\0"s + std::string(241, ' ') + ")"), ui::kNoNode);

    // The other groups' rows carry the key tail of the machine's last warning.
    putText(LM, kRunOnce, "TvOnce", "C:\\once.exe");
    pass.setReg();
    EXPECT_EQ(warnings().front(), "HKEY_LOCAL_MACHINE|Loaded in RunOnce\\TvOnce (C:\\once.exe) New Entry!");
    EXPECT_EQ(warnings().back().substr(0, 37), "HKEY_CLASSES_ROOT|Loaded in RunOnce\\ ");

    // "TvX=1" keeps a line of its own beside "tvx-1", which the profile would find for "TvX-1".
    putText(CU, kRunOnce, "TvX=1", "C:\\one.exe");
    putText(CU, kRunOnce, "tvx-1", "C:\\two.exe");
    ctx.regNew = true;
    pass.setReg();
    EXPECT_FALSE(ctx.regNew);
    EXPECT_EQ(line("CU/R", "TvKept"), "(C:\\KEPT.exe)");
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
}

TEST_F(RegWatchTest, TheChosenEntryIsDeletedFromTheKeyItsValueStandsIn) {
    ui::MainActions frame(ctx, main, [] {});
    pass.checkRegFile();
    putText(LM, kRunOnce, "TvOnce", "C:\\once.exe");
    putText(CU, kRun, "TvDel", "C:\\del.exe");
    put(CU, kRunOnce, "TvCut", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    main.Image7.userClick();  // entering the page runs no pass
    EXPECT_TRUE(entryButtons() == 0 && !page.cScnUpd.enabled() && warnings() == noWarnings);
    page.Command1.userClick();
    const std::string row = "HKEY_CURRENT_USER|Loaded in RunOnce\\TvDel (C:\\del.exe) New Entry!) ";
    for (int twice = 0; twice < 2; ++twice) page.List5.userSetValue(2);  // the end is added once
    EXPECT_EQ(page.List5.items()[2] + page.List5.toolTip(), row + row);
    EXPECT_EQ(actions.selEntry() + page.Text4.caption(), "HKEY_CURRENT_USER|Loaded in RunOnceTvDel (C:\\del.exe)");
    EXPECT_EQ(entryButtons(), 2);
    page.List5.userSetValue(3);  // a value cut at its NUL gets an end from the ") "
    EXPECT_EQ(page.Text4.caption(), "TvCut (%windir%\\x.exe New Entry!)");
    page.List5.userSetValue(0);
    EXPECT_EQ(entryButtons(), 0);

    page.List5.userSetValue(2);
    boxes.answers = {box::No, box::Yes};
    page.Command3.userClick();  // the value's own key, whatever key the row's text names
    EXPECT_EQ(boxes.shown.at(0).prompt, "WARNING!\r\nYou are about to Delete the key: TvDel\r\nFrom: HKEY_CURRENT_USER"
                                        "\\Software\\Microsoft\\Windows\\CurrentVersion\\Run\r\nDoing this may "
                                        "have unpredictable results!\r\n\r\nContinue?");
    EXPECT_EQ(boxes.shown.at(0).style, box::YesNo);
    EXPECT_TRUE(there(hive::CurrentUser, kRun, "TvDel"));  // No keeps it
    page.List5.userSetValue(1);
    page.Command3.userClick();
    EXPECT_FALSE(there(hive::LocalMachine, kRunOnce, "TvOnce"));
    for (const char* key : {"USER", "!ULIR", "#1 (C:\\del.exe)"}) {  // roots and locations are no entries
        page.TreeView1.userSelectNode(node(key));
        EXPECT_EQ(entryButtons(), key[0] == '#' ? 2 : 0) << key;
    }
    EXPECT_EQ(actions.selEntry() + page.Label19.caption(), "HKEY_CURRENT_USER|Loaded in RunTvDel (C:\\del.exe)");
    page.TreeView1.userExpandNode(node("USER"), false);
    EXPECT_EQ(entryButtons(), 0);
    page.TreeView1.userSelectNode(node("#1 (C:\\del.exe)"));
    boxes.answers = {box::No, box::Yes};  // asked again, and answered
    page.Command3.userClick();
    EXPECT_TRUE(there(hive::CurrentUser, kRun, "TvDel"));
    page.Command3.userClick();
    EXPECT_FALSE(there(hive::CurrentUser, kRun, "TvDel") || page.Command3.enabled() || !page.Text4.caption().empty() ||
                 node("#1 (C:\\del.exe)") != ui::kNoNode);

    // A shell command is never deleted; the registry editor is offered.
    putText(LM, kPif, "TvPif", "x.exe");
    page.Command1.userClick();
    page.TreeView1.userSelectNode(node("#10 (x.exe)"));
    boxes.answers = {box::No, box::Yes};  // No opens nothing
    page.Command3.userClick();
    page.Command3.userClick();
    EXPECT_EQ(boxes.shown.back().title + ": " + boxes.shown.back().prompt,
              "Caution: This key will not be deleted.\r\nYou must change the value manually. Would you like to open "
              "the Registry for Editing now?");
    EXPECT_EQ(processes.started, (std::vector<std::pair<std::string, int>>{{"regedit.exe", show::MinimizedFocus}}));
    EXPECT_TRUE(there(hive::LocalMachine, kPif, "TvPif"));
}

// The common paths of both scans are walked by the end-to-end journey.
TEST_F(RegWatchTest, ScansTellOfFilesNotFoundExceptInAShutDown) {
    pass.checkRegFile();
    putText(CU, kRun, "TvA", "C:\\a b\\a.exe -s");
    putText(CU, kRun, "TvB", "tv-missing-bare.exe");
    page.Command1.userClick();
    boxes.answers = {box::Ok, box::Ok};
    page.Label19.setCaption("x (tv-nowhere.exe)");
    page.Command11.userClick();
    ctx.shortPaths = true;  // a quoted path goes as it stands
    page.Label19.setCaption("x (\"C:\\a b\\x.exe\" \"%1\")");
    page.Command11.userClick();
    ctx.shortPaths = false;
    page.List5.setItems({kWarningsHeading});  // a list of its heading alone: nothing started, nothing accepted
    actions.scanAndUpdateWarnings();
    page.Command1.userClick();
    page.cScnUpd.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Cannot find file, please scan manually");
    EXPECT_EQ(boxes.shown.at(1).prompt, "Unable to find the file: tv-missing-bare.exe\r\nPlease scan manually.");
    EXPECT_EQ(started(), (Texts{"C:\\av\\one.exe /x \"C:\\a b\\x.exe\"", "C:\\av\\two.exe /y \"C:\\a b\\x.exe\"",
                                "C:\\av\\one.exe /x  \"C:\\a b\\a.exe\" ", "C:\\av\\two.exe /y  \"C:\\a b\\a.exe\" "}));
    EXPECT_EQ(line("CU/R", "TvB"), "(tv-missing-bare.exe)");
    ctx.shutAction = 8;  // in a shut-down nothing is asked
    putText(CU, kRun, "TvB", "tv-still-missing.exe");
    page.Command1.userClick();
    page.cScnUpd.userClick();
    EXPECT_EQ(boxes.shown.size(), 2u);
    EXPECT_EQ(started().size(), 6u);
}

}  // namespace
}  // namespace tv::test
