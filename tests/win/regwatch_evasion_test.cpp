// The tricks of a hostile installer against the registry pass, over the test
// prefix's real registry and both its views: a value in the 32-bit view, names
// that would write into the snapshot, values too long for fixed buffers, and
// rows whose text names another key than their own. An ordinary machine keeps
// the lines and rows it always had.
#include "core/file_utils.h"
#include "tests/win/pending_sources.h"
#include "tests/win/regwatch_fixture.h"

namespace tv::test {
namespace {

using namespace std::string_literals;
using Rows = std::vector<std::string>;

constexpr const char* kRun32 = "Software\\Wow6432Node\\Microsoft\\Windows\\CurrentVersion\\Run";
constexpr const char* kQuestionEnd = "\r\nDoing this may have unpredictable results!\r\n\r\nContinue?";

class EvasionTest : public RegWatchTest {
protected:
    EvasionTest() { ::RegOpenKeyExA(HKEY_CURRENT_USER, kRunKey, 0, KEY_ALL_ACCESS, &userRun_); }
    ~EvasionTest() override {  // the values of names the code page cannot spell
        for (const std::wstring& name : wide_) ::RegDeleteValueW(userRun_, name.c_str());
        ::RegCloseKey(userRun_);
    }
    void putWide(const std::wstring& name, const std::wstring& data) {
        ::RegSetValueExW(userRun_, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                         static_cast<DWORD>((data.size() + 1) * 2));
        wide_.push_back(name);
    }
    Rows rows() const {
        const Rows all = warnings();
        return Rows(all.begin() + 1, all.end());
    }
    std::string line(const std::string& section, const std::string& key) const {
        return profiles.get(section, key, 4096, ctx.regFile);
    }
    void deleteRow(std::size_t row) {
        page.List5.userSetValue(static_cast<int>(row));
        boxes.answers = {box::Yes};
        page.Command3.userClick();
    }
    const Rows quiet{kNoWarnings};

private:
    HKEY userRun_ = nullptr;
    std::vector<std::wstring> wide_;
};

TEST_F(EvasionTest, AnOrdinaryMachineKeepsItsLinesRowsAndQuestions) {
    putText(HKEY_CURRENT_USER, kRunKey, "Mail Check", "\"C:\\Program Files\\Mail\\check.exe\" -q");
    putText(HKEY_CURRENT_USER, kRunKey, "TvUpdater", "C:\\Tools\\updater.exe /min");
    put(HKEY_CURRENT_USER, kRunKey, "TvExpand", REG_EXPAND_SZ, "%windir%\\x.exe\0"s);
    put(HKEY_CURRENT_USER, kRunKey, "TvLong", REG_BINARY, std::string(100, '\x99'));  // a line of 297 characters
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
    EXPECT_EQ(rows(), quiet);  // the long line compares equal, also after a recording

    putText(HKEY_CURRENT_USER, kRunKey, "TvUpdater", "C:\\Tools\\new.exe");
    putText(HKEY_LOCAL_MACHINE, kRunOnceKey, "TvOnce", "C:\\once.exe");
    pass.setReg();
    EXPECT_EQ(rows(), (Rows{"HKEY_LOCAL_MACHINE|Loaded in RunOnce\\TvOnce (C:\\once.exe) New Entry!",
                            "HKEY_CURRENT_USER|Loaded in RunOnce\\TvUpdater (C:\\Tools\\new.exe) Entry Modified!"}));
    // The user's row reads "RunOnce", which the machine's row left there; its value is under Run.
    deleteRow(2);
    EXPECT_EQ(boxes.shown.at(0).prompt, "WARNING!\r\nYou are about to Delete the key: TvUpdater\r\nFrom: "
                                        "HKEY_CURRENT_USER\\Software\\Microsoft\\Windows\\CurrentVersion\\Run" +
                                            std::string(kQuestionEnd));
    EXPECT_FALSE(valueThere(HKEY_CURRENT_USER, kRunKey, "TvUpdater"));
    EXPECT_TRUE(valueThere(HKEY_LOCAL_MACHINE, kRunOnceKey, "TvOnce"));
}

TEST_F(EvasionTest, TheThirtyTwoBitViewIsWatchedUnderARootOfItsOwn) {
    putText(HKEY_LOCAL_MACHINE, kRun32, "TvOld", "C:\\old.exe");
    pass.checkRegFile();
    // A snapshot of the seventeen sections only, from before the views: its
    // first pass records the other view without a warning.
    const std::string text = snapshot();
    writeFile("Data\\Registry.dat", text.substr(0, text.find("[LM/R/32]")));
    putText(HKEY_LOCAL_MACHINE, kRun32, "TvInstalled", "C:\\installed.exe");
    pass.setReg();
    EXPECT_EQ(rows(), quiet);
    EXPECT_EQ(line("LM/R/32", "TvInstalled"), "(C:\\installed.exe)");
    EXPECT_EQ(page.TreeView1.nodeIndex("USER/32"), ui::kNoNode);  // the user's Run key is one in both views

    putText(HKEY_LOCAL_MACHINE, kRun32, "TvEvil", "C:\\evil32.exe");
    putText(HKEY_LOCAL_MACHINE, kRunKey, "TvEvil", "C:\\evil64.exe");
    pass.setReg();
    EXPECT_EQ(rows(), (Rows{"HKEY_LOCAL_MACHINE|Loaded in Run\\TvEvil (C:\\evil64.exe) New Entry!",
                            "HKEY_LOCAL_MACHINE (32-bit)|Loaded in Run\\TvEvil (C:\\evil32.exe) New Entry!"}));
    const ui::Control& tree = page.TreeView1;
    EXPECT_EQ(tree.fullPath(tree.nodeIndex("#1/32 (C:\\evil32.exe)")),
              "HKEY_LOCAL_MACHINE (32-bit)\\Loaded in Run\\TvEvil (C:\\evil32.exe)");
    deleteRow(2);
    EXPECT_EQ(boxes.shown.at(0).prompt, "WARNING!\r\nYou are about to Delete the key: TvEvil\r\nFrom: HKEY_LOCAL_MACHINE "
                                        "(32-bit)\\Software\\Microsoft\\Windows\\CurrentVersion\\Run" +
                                            std::string(kQuestionEnd));
    EXPECT_FALSE(valueThere(HKEY_LOCAL_MACHINE, kRun32, "TvEvil"));
    EXPECT_TRUE(valueThere(HKEY_LOCAL_MACHINE, kRunKey, "TvEvil"));
}

TEST_F(EvasionTest, NamesThatWouldWriteIntoTheSnapshotWarnAndOnceAcceptedStayQuiet) {
    pass.checkRegFile();
    const Rows names{"TvA\r\n[CU/RO]\r\nTvInjected", "[Tv]", ";Tv", "Tv=1", "Tv-1", "  Tv  ", "%Tv", "TvFoo (x86)",
                     "TvFoo"};
    for (const std::string& name : names) putText(HKEY_CURRENT_USER, kRunKey, name, "C:\\odd.exe");
    putWide(L"Tv\u4E2D", L"C:\\\u4E2D.exe");
    putWide(L"Tv\u6587", L"C:\\\u4E2D.exe");  // both "Tv?" in the code page
    pass.setReg();
    EXPECT_EQ(rows().size(), names.size() + 2);
    ctx.regNew = true;
    pass.setReg();
    pass.setReg();
    EXPECT_EQ(rows(), quiet);
    // The injected line is no value's: a value of that name still warns.
    putText(HKEY_CURRENT_USER, kRunOnceKey, "TvInjected", "C:\\odd.exe");
    putWide(L"Tv\u6587", L"C:\\\u6587.exe");  // a change the code page cannot spell
    pass.setReg();
    EXPECT_EQ(rows(), (Rows{"HKEY_CURRENT_USER|Loaded in \\%Tv%u6587 (C:\\?.exe) Entry Modified!",
                            "HKEY_CURRENT_USER|Loaded in \\TvInjected (C:\\odd.exe) New Entry!"}));
    // Delete Key takes the exact name, also one that holds "(" or no letter of the code page.
    deleteRow(1);
    deleteRow(1);
    putText(HKEY_CURRENT_USER, kRunKey, "TvFoo (x86)", "C:\\x86.exe");
    pass.setReg();
    deleteRow(1);
    EXPECT_NE(boxes.shown.back().prompt.find("Delete the key: TvFoo (x86)\r\n"), std::string::npos);
    EXPECT_FALSE(valueThere(HKEY_CURRENT_USER, kRunKey, "TvFoo (x86)"));
    EXPECT_TRUE(valueThere(HKEY_CURRENT_USER, kRunKey, "TvFoo"));
    EXPECT_FALSE(valueThere(HKEY_CURRENT_USER, kRunOnceKey, "TvInjected"));
    pass.setReg();
    EXPECT_EQ(rows(), quiet);  // the unspellable value went, not its twin
}

TEST_F(EvasionTest, LongNamesAndValuesHideNothingAndCompareInFull) {
    put(HKEY_CURRENT_USER, kRunOnceKey, "TvA " + std::string(300, 'n'), REG_SZ, "C:\\a.exe\0"s);
    put(HKEY_CURRENT_USER, kRunOnceKey, "TvB", REG_BINARY, std::string(5000, 'b'));
    putText(HKEY_CURRENT_USER, kRunOnceKey, "TvC", std::string(600, 'p') + "1");
    pass.checkRegFile();
    pass.setReg();
    EXPECT_EQ(rows(), quiet);
    EXPECT_EQ(page.TreeView1.nodes()[page.TreeView1.nodeIndex("!ULIRO")].children, 3u);
    EXPECT_EQ(line("CU/RO", "TvB").substr(0, 7), "%%SHA1:");
    putText(HKEY_CURRENT_USER, kRunOnceKey, "TvC", std::string(600, 'p') + "2");
    pass.setReg();
    EXPECT_EQ(rows(), Rows{"HKEY_CURRENT_USER|Loaded in \\TvC (" + std::string(600, 'p') + "2) Entry Modified!"});
}

// A Refresh clicked while a pass runs (here a recording one) starts nothing.
TEST_F(EvasionTest, ASecondRefreshDuringAPassStartsNoSecondPass) {
    pass.checkRegFile();
    putText(HKEY_CURRENT_USER, kRunKey, "TvA", "C:\\a.exe");
    putText(HKEY_CURRENT_USER, kRunKey, "TvB", "C:\\b.exe");
    page.Command1.userClick();
    int clicks = 0;
    loop.onPump = [&] {
        if (clicks++ < 3) page.Command1.userClick();
    };
    page.Command1.userClick();
    EXPECT_EQ(rows().size(), 2u);
    clicks = 0;
    page.cScnUpd.userClick();
    EXPECT_EQ(warnings(), (Rows{kWarningsHeading, kNoWarnings}));
    EXPECT_FALSE(page.cScnUpd.enabled());
    loop.onPump = nullptr;
    pass.setReg();
    EXPECT_EQ(rows(), quiet);
}

TEST_F(EvasionTest, PendingOperationsAreReadWholeWhateverTheirLength) {
    PendingSources sources(getWinDir(ctx));
    const std::string first = path(std::string(200, 'l') + ".tmp"), second = path("b.tmp");
    sources.pendingValue("\\??\\" + first + "\0\0\\??\\"s + second + "\0\0"s);
    page.cMod.userClick();
    EXPECT_EQ(page.List6.items(), (Rows{kPendingHeading, first, second}));
}

}  // namespace
}  // namespace tv::test
