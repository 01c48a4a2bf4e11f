// RegWatch over the real registry calls and profile files, in keys of the test's own (see the fixture).
#include <set>

#include "core/text.h"
#include "regwatch/autostart_groups.h"
#include "regwatch/pending_boot.h"
#include "tests/win/regwatch_fixture.h"
#include "ui/main_actions.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

TEST_F(RegWatchTest, RegClassFoldsEveryTypeIntoTextAsAQueryIntoBlanksGivesIt) {
    const struct { DWORD type; std::string bytes, text; } values[] = {
        {REG_SZ, "C:\\Orbexa\0"s, "C:\\Orbexa"}, {REG_SZ, "", ""},
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
}

TEST_F(RegWatchTest, RegistryPassRecordsEachLocationInItsSectionOrFindsAllNewWithoutASnapshot) {
    const std::string op = "file\\shell\\open\\command", cl = "Software\\Classes\\";
    const std::string lm = "HKEY_LOCAL_MACHINE\\", cu = "HKEY_CURRENT_USER\\", cr = "HKEY_CLASSES_ROOT\\";
    const struct { HKEY root; std::string key, section, node; } locations[] = {
        {LM, kRun, "LM/R", lm + "Loaded in Run"}, {LM, kRunOnce, "LM/RO", lm + "Loaded in RunOnce"},
        {LM, kRunOnce + "Ex", "LM/ROX", lm + "Loaded in RunOnceEx"},
        {LM, kRun + "Services", "LM/RS", lm + "Loaded in RunServices"},
        {LM, kRun + "ServicesOnce", "LM/RSO", lm + "Loaded in RunServicesOnce"},
        {LM, cl + "exe" + op, "LM/SE", lm + "Spawned with EXE's"}, {LM, cl + "com" + op, "LM/SC", lm + "Spawned with COM's"},
        {LM, cl + "bat" + op, "LM/SB", lm + "Spawned with BAT's"}, {LM, cl + "hta" + op, "LM/SH", lm + "Spawned with HTA's"},
        {LM, cl + "pif" + op, "LM/SP", lm + "Spawned with PIF's"},
        {CU, kRun, "CU/R", cu + "Loaded in Run"}, {CU, kRunOnce, "CU/RO", cu + "Loaded in RunOnce"},
        {CR, "exe" + op, "CR/SE", cr + "Spawned with EXE's"}, {CR, "com" + op, "CR/SC", cr + "Spawned with COM's"},
        {CR, "bat" + op, "CR/SB", cr + "Spawned with BAT's"}, {CR, "hta" + op, "CR/SH", cr + "Spawned with HTA's"},
        {CR, "pif" + op, "CR/SP", cr + "Spawned with PIF's"},
    };
    std::string sections, snapshot, others;  // as made, and as the profile calls leave it; the 32-bit view's behind
    for (const auto& l : locations) {
        sections += "[" + l.section + "]\r\n\r\n";
        snapshot += "[" + l.section + "]\r\nTv-" + l.section + "=(C:\\" + l.section + ".exe)\r\n";
        others += "[" + l.section + "/32]\r\n";
    }
    const std::string places = newPlacesSnapshotText(32);  // the places watched after the seventeen, behind them
    sections += replaceText(others, "\r\n", "\r\n\r\n") + places;
    snapshot += others + replaceText(places, "\r\n\r\n", "\r\n");
    pass.checkRegFile();
    EXPECT_EQ(readFile("Data\\Registry.dat"), sections);
    for (const auto& l : locations) putText(l.root, l.key, "Tv-" + l.section, "C:\\" + l.section + ".exe");
    ctx.regNew = true;
    pass.setReg();
    EXPECT_EQ(readFile("Data\\Registry.dat"), snapshot);
    std::set<std::string> nodes;  // as shown
    for (std::size_t n = 0; n < page.TreeView1.nodes().size(); ++n) nodes.insert(page.TreeView1.fullPath(n));
    for (const auto& l : locations) EXPECT_TRUE(nodes.count(l.node + "\\Tv-" + l.section + " (C:\\" + l.section + ".exe)"));
    EXPECT_TRUE(warnings() == noWarnings && !page.cScnUpd.enabled() && !ctx.regNew);  // a recording pass warns of nothing

    // A snapshot there but unreadable, or held by another program, is neither made nor recorded.
    const std::string lmRunIsNew = "HKEY_LOCAL_MACHINE|Loaded in Run\\Tv-LM/R (C:\\LM/R.exe) New Entry!";
    writeFile("Data\\Registry.dat", "");
    for (int locked = 0; locked < 2; ++locked) {
        FileLock lock(locked ? ctx.regFile : path("other"));
        pass.checkRegFile();
        pass.setReg();
        EXPECT_EQ(warnings().at(0), lmRunIsNew);
    }
    EXPECT_TRUE(readFile("Data\\Registry.dat").empty() && boxes.shown.empty());
}

TEST_F(RegWatchTest, RegistryPassWarnsOfNewAndChangedValuesUntilARecordingPassAcceptsThem) {
    putText(CU, kRun, "Mail Check", "\"C:\\Program Files\\Mail\\check.exe\" -q");
    putText(CU, kRun, "TvKept", "C:\\kept.exe");
    putText(CU, kRun, "TvTrail", "C:\\trail.exe");
    put(CU, kRun, "TvExpand", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    putText(CR, "piffile\\shell\\open\\command", "", "launcher.exe \"%1\" %*");
    pass.checkRegFile();
    const std::string recorded = readFile("Data\\Registry.dat");
    EXPECT_NE(recorded.find("[CU/R]\r\nMail Check=(\"C:\\Program Files\\Mail\\check.exe\" -q)\r\nTvExpand=(%windir%"
                            "\\x.exe\r\nTvKept=(C:\\kept.exe)\r\nTvTrail=(C:\\trail.exe)\r\n[CU/RO]"),
              std::string::npos);  // cut at the NUL
    EXPECT_EQ(line("CR/SP", " (launcher.exe \"%1\" %*)"), "(launcher.exe \"%1\" %*)");  // a default named by its text

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
    ctx.regNew = true;
    pass.setReg();
    EXPECT_FALSE(ctx.regNew);
    EXPECT_EQ(line("CU/R", "TvKept"), "(C:\\KEPT.exe)");
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
}

// A row's text names the key tail of the machine's last warning ("RunOnce"); its value stands under Run.
TEST_F(RegWatchTest, TheChosenEntryIsDeletedFromTheKeyItsValueStandsIn) {
    ui::MainActions frame(ctx, main, [] {});
    pass.checkRegFile();
    putText(LM, kRunOnce, "TvOnce", "C:\\once.exe");
    putText(CU, kRun, "TvDel", "C:\\del.exe");
    page.Command1.userClick();
    const std::string row = "HKEY_CURRENT_USER|Loaded in RunOnce\\TvDel (C:\\del.exe) New Entry!) ";
    for (int twice = 0; twice < 2; ++twice) page.List5.userSetValue(2);  // the end is added once
    EXPECT_EQ(page.List5.items()[2], row);
    EXPECT_EQ(actions.selEntry() + page.Text4.caption(), "HKEY_CURRENT_USER|Loaded in RunOnceTvDel (C:\\del.exe)");
    EXPECT_TRUE(page.Command3.enabled() && page.Command11.enabled());
    boxes.answers = {box::No, box::Yes};
    page.Command3.userClick();  // the value's own key, whatever key the row's text names
    EXPECT_EQ(boxes.shown.at(0).prompt, question("TvDel", "HKEY_CURRENT_USER\\" + kRun));
    EXPECT_TRUE(boxes.shown.at(0).style == box::YesNo && there(hive::CurrentUser, kRun, "TvDel"));  // No keeps it
    page.Command3.userClick();
    EXPECT_FALSE(there(hive::CurrentUser, kRun, "TvDel") || page.Command3.enabled() || !page.Text4.caption().empty());

    // A shell command is never deleted; the registry editor is offered.
    putText(LM, kPif, "TvPif", "x.exe");
    page.Command1.userClick();
    page.TreeView1.userSelectNode(node("#10 (x.exe)"));
    boxes.answers = {box::Yes};
    page.Command3.userClick();
    EXPECT_EQ(boxes.shown.back().title + ": " + boxes.shown.back().prompt,
              "Caution: This key will not be deleted.\r\nYou must change the value manually. Would you like to open "
              "the Registry for Editing now?");
    EXPECT_EQ(processes.started, (std::vector<std::pair<std::string, int>>{{"regedit.exe", show::MinimizedFocus}}));
    EXPECT_TRUE(there(hive::LocalMachine, kPif, "TvPif"));
}

TEST_F(RegWatchTest, ScansTellOfFilesNotFound) {
    pass.checkRegFile();
    putText(CU, kRun, "TvA", "C:\\a b\\a.exe -s");
    putText(CU, kRun, "TvB", "tv-missing-bare.exe");
    page.Command1.userClick();
    boxes.answers = {box::Ok, box::Ok};
    page.Label19.setCaption("x (tv-nowhere.exe)");
    page.Command11.userClick();
    page.cScnUpd.userClick();
    EXPECT_EQ(boxes.shown.at(0).prompt, "Cannot find file, please scan manually");
    EXPECT_EQ(boxes.shown.at(1).prompt, "Unable to find the file: tv-missing-bare.exe\r\nPlease scan manually.");
    EXPECT_EQ(processes.started.at(0).first + processes.started.at(1).first,
              "C:\\av\\one.exe /x  \"C:\\a b\\a.exe\" C:\\av\\two.exe /y  \"C:\\a b\\a.exe\" ");
    EXPECT_EQ(line("CU/R", "TvB"), "(tv-missing-bare.exe)");
}

// The tricks of a hostile installer: a value in the 32-bit view, names that would write into the snapshot.
TEST_F(RegWatchTest, HostileValuesWarnUnderTheirOwnViewAndNameAndOnceAcceptedStayQuiet) {
    const std::string run32 = "Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Run";
    pass.checkRegFile();
    EXPECT_EQ(node("USER/32"), ui::kNoNode);  // the user's Run key is one in both views
    putText(LM, run32, "TvEvil", "C:\\evil32.exe");
    putText(LM, kRun, "TvEvil", "C:\\evil64.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_LOCAL_MACHINE|Loaded in Run\\TvEvil (C:\\evil64.exe) New Entry!",
                                 "HKEY_LOCAL_MACHINE (32-bit)|Loaded in Run\\TvEvil (C:\\evil32.exe) New Entry!"}));
    EXPECT_EQ(page.TreeView1.fullPath(node("#1/32 (C:\\evil32.exe)")),
              "HKEY_LOCAL_MACHINE (32-bit)\\Loaded in Run\\TvEvil (C:\\evil32.exe)");
    EXPECT_EQ(deleteRow(2), question("TvEvil", "HKEY_LOCAL_MACHINE (32-bit)\\" + kRun));
    EXPECT_TRUE(!there(hive::LocalMachine, run32, "TvEvil") && there(hive::LocalMachine, kRun, "TvEvil"));

    const auto putWide = [&](const std::wstring& name, const std::wstring& data) {
        const HKEY run = makeKey(CU, kRun);
        ::RegSetValueExW(run, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                         static_cast<DWORD>((data.size() + 1) * 2));
        ::RegCloseKey(run);
    };
    const Texts names{"TvA\r\n[CU/RO]\r\nTvInjected", "[Tv]", ";Tv", "Tv=1", "Tv-1", "  Tv  ", "%Tv", "TvFoo (x86)",
                      "TvFoo"};
    for (const std::string& name : names) putText(CU, kRun, name, "C:\\odd.exe");
    putWide(L"Tv\u4E2D", L"C:\\\u4E2D.exe");
    putWide(L"Tv\u6587", L"C:\\\u4E2D.exe");  // both "Tv?" in the code page
    pass.setReg();
    EXPECT_EQ(warnings().size(), names.size() + 3);  // and the machine's value left above
    ctx.regNew = true;
    pass.setReg();
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
    // The injected line is no value's: a value of that name still warns.
    putText(CU, kRunOnce, "TvInjected", "C:\\odd.exe");
    putWide(L"Tv\u6587", L"C:\\\u6587.exe");  // a change the code page cannot spell
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_CURRENT_USER|Loaded in \\%Tv%u6587 (C:\\?.exe) Entry Modified!",
                                 "HKEY_CURRENT_USER|Loaded in \\TvInjected (C:\\odd.exe) New Entry!"}));
    // Delete Key takes the exact name, also one that holds "(" or no letter of the code page.
    deleteRow(1);
    deleteRow(1);
    putText(CU, kRun, "TvFoo (x86)", "C:\\x86.exe");
    pass.setReg();
    EXPECT_EQ(deleteRow(1), question("TvFoo (x86)", "HKEY_CURRENT_USER\\" + kRun));
    EXPECT_TRUE(!there(hive::CurrentUser, kRun, "TvFoo (x86)") && !there(hive::CurrentUser, kRunOnce, "TvInjected") &&
                there(hive::CurrentUser, kRun, "TvFoo"));
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);  // the unspellable value went, not its twin

    // Long names and values hide nothing and compare in full.
    put(CU, kRunOnce, "TvA " + std::string(300, 'n'), REG_SZ, "C:\\a.exe\0"s);
    put(CU, kRunOnce, "TvB", REG_BINARY, std::string(5000, 'b'));
    putText(CU, kRunOnce, "TvC", std::string(600, 'p') + "1");
    ctx.regNew = true;
    pass.setReg();
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
    EXPECT_EQ(page.TreeView1.nodes()[node("!ULIRO")].children, 3u);
    EXPECT_EQ(line("CU/RO", "TvB").substr(0, 7), "%%SHA1:");
    putText(CU, kRunOnce, "TvC", std::string(600, 'p') + "2");
    pass.setReg();
    EXPECT_EQ(warnings(), Texts{"HKEY_CURRENT_USER|Loaded in \\TvC (" + std::string(600, 'p') + "2) Entry Modified!"});
}

// A Refresh clicked while a pass runs (here a recording one) starts nothing.
TEST_F(RegWatchTest, ASecondRefreshDuringAPassStartsNoSecondPass) {
    pass.checkRegFile();
    putText(CU, kRun, "TvA", "C:\\a.exe");
    putText(CU, kRun, "TvB", "C:\\b.exe");
    int clicks = 0;
    loop.onPump = [&] { clicks++ < 3 ? page.Command1.userClick() : void(); };
    page.Command1.userClick();
    EXPECT_EQ(warnings().size(), 2u);
    clicks = 0;
    page.cScnUpd.userClick();
    EXPECT_TRUE(warnings() == noWarnings && !page.cScnUpd.enabled());
    loop.onPump = nullptr;
}

TEST_F(RegWatchTest, PendingOperationsAreReadWholeWhateverTheirLength) {
    const std::string first = "C:\\" + std::string(300, 'l') + ".tmp", second = "C:\\b.tmp";
    put(LM, kPendingRenameKey, kPendingRenameValue, REG_MULTI_SZ, "\\??\\" + first + "\0\0\\??\\"s + second + "\0\0"s);
    page.cMod.userClick();
    EXPECT_EQ(page.List6.items(), (Texts{kPendingHeading, first, second}));
}

}  // namespace
}  // namespace tv::test
