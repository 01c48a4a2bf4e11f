// The tricks of a hostile installer against the registry pass, over the test
// prefix's real registry and both its views: a value in the 32-bit view, names
// that would write into the snapshot, values too long for fixed buffers, and
// rows whose text names another key than their own. An ordinary machine keeps
// the lines and rows it always had.
#include "core/file_utils.h"
#include "regwatch/pending_boot.h"
#include "tests/win/regwatch_fixture.h"

namespace tv::test {
namespace {

using namespace std::string_literals;

const std::string kRun32 = "Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const char* kQuestionEnd = "\r\nDoing this may have unpredictable results!\r\n\r\nContinue?";

class EvasionTest : public RegWatchTest {
protected:
    void putWide(const std::wstring& name, const std::wstring& data) {
        const HKEY run = makeKey(CU, kRun);
        ::RegSetValueExW(run, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                         static_cast<DWORD>((data.size() + 1) * 2));
        ::RegCloseKey(run);
    }
    // Deletes the value of warning row `row`, answering Yes; the question asked.
    std::string deleteRow(std::size_t row) {
        page.List5.userSetValue(static_cast<int>(row));
        boxes.answers = {box::Yes};
        page.Command3.userClick();
        return boxes.shown.empty() ? std::string() : boxes.shown.back().prompt;
    }
    static std::string question(const std::string& name, const std::string& from) {
        return "WARNING!\r\nYou are about to Delete the key: " + name + "\r\nFrom: " + from + kQuestionEnd;
    }
    std::string snapshot() const { return readFile("Data\\Registry.dat"); }
};

TEST_F(EvasionTest, AnOrdinaryMachineKeepsItsLinesRowsAndQuestions) {
    putText(CU, kRun, "Mail Check", "\"C:\\Program Files\\Mail\\check.exe\" -q");
    putText(CU, kRun, "TvUpdater", "C:\\Tools\\updater.exe /min");
    put(CU, kRun, "TvExpand", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    put(CU, kRun, "TvLong", REG_BINARY, std::string(100, '\x99'));  // a line of 297 characters
    pass.checkRegFile();
    std::string binary;
    for (int i = 0; i < 99; ++i) binary += "99 ";
    const std::string text = snapshot();
    EXPECT_NE(text.find("[CU/R]\r\nMail Check=(\"C:\\Program Files\\Mail\\check.exe\" -q)\r\nTvExpand=(%windir%\\x.exe"
                        "\r\nTvLong=(" + binary + ")\r\nTvUpdater=(C:\\Tools\\updater.exe /min)\r\n[CU/RO]"),
              std::string::npos);
    EXPECT_EQ(text.find("[LM/R]\r\n"), 0u);  // the seventeen first, the other view's behind them
    EXPECT_LT(text.find("[CR/SP]"), text.find("/32]"));
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);  // the long line compares equal, also after a recording

    putText(CU, kRun, "TvUpdater", "C:\\Tools\\new.exe");
    putText(LM, kRunOnce, "TvOnce", "C:\\once.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_LOCAL_MACHINE|Loaded in RunOnce\\TvOnce (C:\\once.exe) New Entry!",
                            "HKEY_CURRENT_USER|Loaded in RunOnce\\TvUpdater (C:\\Tools\\new.exe) Entry Modified!"}));
    // The user's row reads "RunOnce", which the machine's row left there; its value is under Run.
    EXPECT_EQ(deleteRow(2), question("TvUpdater", "HKEY_CURRENT_USER\\" + kRun));
    EXPECT_FALSE(there(hive::CurrentUser, kRun, "TvUpdater"));
    EXPECT_TRUE(there(hive::LocalMachine, kRunOnce, "TvOnce"));
}

TEST_F(EvasionTest, TheThirtyTwoBitViewIsWatchedUnderARootOfItsOwn) {
    putText(LM, kRun32, "TvOld", "C:\\old.exe");
    pass.checkRegFile();
    // A snapshot of the seventeen sections only, from before the views: its
    // first pass records the other view without a warning.
    const std::string text = snapshot();
    writeFile("Data\\Registry.dat", text.substr(0, text.find("[LM/R/32]")));
    putText(LM, kRun32, "TvInstalled", "C:\\installed.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
    EXPECT_EQ(line("LM/R/32", "TvInstalled"), "(C:\\installed.exe)");
    EXPECT_EQ(page.TreeView1.nodeIndex("USER/32"), ui::kNoNode);  // the user's Run key is one in both views

    putText(LM, kRun32, "TvEvil", "C:\\evil32.exe");
    putText(LM, kRun, "TvEvil", "C:\\evil64.exe");
    pass.setReg();
    EXPECT_EQ(warnings(), (Texts{"HKEY_LOCAL_MACHINE|Loaded in Run\\TvEvil (C:\\evil64.exe) New Entry!",
                            "HKEY_LOCAL_MACHINE (32-bit)|Loaded in Run\\TvEvil (C:\\evil32.exe) New Entry!"}));
    const ui::Control& tree = page.TreeView1;
    EXPECT_EQ(tree.fullPath(tree.nodeIndex("#1/32 (C:\\evil32.exe)")),
              "HKEY_LOCAL_MACHINE (32-bit)\\Loaded in Run\\TvEvil (C:\\evil32.exe)");
    EXPECT_EQ(deleteRow(2), question("TvEvil", "HKEY_LOCAL_MACHINE (32-bit)\\" + kRun));
    EXPECT_FALSE(there(hive::LocalMachine, kRun32, "TvEvil"));
    EXPECT_TRUE(there(hive::LocalMachine, kRun, "TvEvil"));
}

TEST_F(EvasionTest, NamesThatWouldWriteIntoTheSnapshotWarnAndOnceAcceptedStayQuiet) {
    pass.checkRegFile();
    const Texts names{"TvA\r\n[CU/RO]\r\nTvInjected", "[Tv]", ";Tv", "Tv=1", "Tv-1", "  Tv  ", "%Tv", "TvFoo (x86)",
                     "TvFoo"};
    for (const std::string& name : names) putText(CU, kRun, name, "C:\\odd.exe");
    putWide(L"Tv\u4E2D", L"C:\\\u4E2D.exe");
    putWide(L"Tv\u6587", L"C:\\\u4E2D.exe");  // both "Tv?" in the code page
    pass.setReg();
    EXPECT_EQ(warnings().size(), names.size() + 2);
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
    deleteRow(1);
    EXPECT_NE(boxes.shown.back().prompt.find("Delete the key: TvFoo (x86)\r\n"), std::string::npos);
    EXPECT_FALSE(there(hive::CurrentUser, kRun, "TvFoo (x86)"));
    EXPECT_TRUE(there(hive::CurrentUser, kRun, "TvFoo"));
    EXPECT_FALSE(there(hive::CurrentUser, kRunOnce, "TvInjected"));
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);  // the unspellable value went, not its twin
}

TEST_F(EvasionTest, LongNamesAndValuesHideNothingAndCompareInFull) {
    put(CU, kRunOnce, "TvA " + std::string(300, 'n'), REG_SZ, "C:\\a.exe\0"s);
    put(CU, kRunOnce, "TvB", REG_BINARY, std::string(5000, 'b'));
    putText(CU, kRunOnce, "TvC", std::string(600, 'p') + "1");
    pass.checkRegFile();
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
    EXPECT_EQ(page.TreeView1.nodes()[page.TreeView1.nodeIndex("!ULIRO")].children, 3u);
    EXPECT_EQ(line("CU/RO", "TvB").substr(0, 7), "%%SHA1:");
    putText(CU, kRunOnce, "TvC", std::string(600, 'p') + "2");
    pass.setReg();
    EXPECT_EQ(warnings(), Texts{"HKEY_CURRENT_USER|Loaded in \\TvC (" + std::string(600, 'p') + "2) Entry Modified!"});
}

// A Refresh clicked while a pass runs (here a recording one) starts nothing.
TEST_F(EvasionTest, ASecondRefreshDuringAPassStartsNoSecondPass) {
    pass.checkRegFile();
    putText(CU, kRun, "TvA", "C:\\a.exe");
    putText(CU, kRun, "TvB", "C:\\b.exe");
    page.Command1.userClick();
    int clicks = 0;
    loop.onPump = [&] {
        if (clicks++ < 3) page.Command1.userClick();
    };
    page.Command1.userClick();
    EXPECT_EQ(warnings().size(), 2u);
    clicks = 0;
    page.cScnUpd.userClick();
    EXPECT_EQ(warnings(), noWarnings);
    EXPECT_FALSE(page.cScnUpd.enabled());
    loop.onPump = nullptr;
    pass.setReg();
    EXPECT_EQ(warnings(), noWarnings);
}

TEST_F(EvasionTest, PendingOperationsAreReadWholeWhateverTheirLength) {
    const std::string first = "C:\\" + std::string(300, 'l') + ".tmp", second = "C:\\b.tmp";
    put(LM, kPendingRenameKey, kPendingRenameValue, REG_MULTI_SZ, "\\??\\" + first + "\0\0\\??\\"s + second + "\0\0"s);
    page.cMod.userClick();
    EXPECT_EQ(page.List6.items(), (Texts{kPendingHeading, first, second}));
}

}  // namespace
}  // namespace tv::test
