// Naming the scanners against the real system: the open-file dialog answered
// as a user answers it, the catalogue's search over real folders, the test
// started as a real process, and the saves of the selection and of the Setup
// Wizard compared byte for byte with what the system's profile writer makes.
#include "platform/win32/win32_base.h"

#include <ole2.h>
#include <shellapi.h>

#include <atomic>
#include <thread>

#include "avshell/scanner_catalogue.h"
#include "avshell/scanner_catalogue_form.h"
#include "avshell/scanner_choice.h"
#include "avshell/scanner_choice_form.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/settings_text.h"
#include "tests/win/win_fixture.h"
#include "tools/file_dialog_answer.h"
#include "ui/application.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"
#include "ui/setup_wizard_form.h"

namespace tv::test {
namespace {

using ui::Control;

constexpr const char* kBoxTitle = "Choose Anti-Virus Executable File";

// The real shell, but with a Startup folder of the test's own.
struct TestShell final : Shell {
    win32::Win32Shell real;
    std::string startup;
    std::string systemDirectory(std::size_t n) const override { return real.systemDirectory(n); }
    std::string windowsDirectoryBuffer(std::size_t n) const override { return real.windowsDirectoryBuffer(n); }
    std::string specialFolder(int csidl, std::size_t n) const override {
        return csidl == 24 ? startup : real.specialFolder(csidl, n);
    }
    std::string openFileDialog(NativeWindow o, const std::string& t, const std::string& f, std::size_t n) override {
        return real.openFileDialog(o, t, f, n);
    }
    std::string browseForFolder(const std::string& title) override { return real.browseForFolder(title); }
    std::string shortPathBuffer(const std::string& p, std::size_t n) const override { return real.shortPathBuffer(p, n); }
    int openDocument(const std::string& v, const std::string& f, const std::string& d) override {
        return real.openDocument(v, f, d);
    }
};

// Answers the next file dialog from another thread while the test's thread
// waits in it, as the user would: `file` typed and Open pressed, or Cancel
// for an empty `file`.
class FileBoxAnswer {
public:
    explicit FileBoxAnswer(std::string file)
        : thread_([this, file = std::move(file)] {
              const DWORD start = ::GetTickCount();
              while (::GetTickCount() - start < 20000) {
                  HWND dialog = ::FindWindowA("#32770", kBoxTitle);
                  if (dialog && ::IsWindowVisible(dialog)) {
                      answered_ = tv::testing::answerFileDialog(dialog, file);
                      return;
                  }
                  ::Sleep(20);
              }
          }) {}
    ~FileBoxAnswer() {
        if (thread_.joinable()) thread_.join();
    }
    // Whether the dialog was found and answered, once the answer is given.
    bool answered() {
        if (thread_.joinable()) thread_.join();
        return answered_;
    }

private:
    std::atomic<bool> answered_{false};
    std::thread thread_;
};

// A folder of the test's own below the system's Program Files, removed afterwards.
class ProgramFilesFolder {
public:
    explicit ProgramFilesFolder(const AppContext& ctx)
        : path_(getSpecialFolder(ctx) + "tarvelon-test-" + std::to_string(::GetCurrentProcessId()) + "\\") {
        ::CreateDirectoryA(path_.c_str(), nullptr);
        ::CreateDirectoryA((path_ + "Eset\\").c_str(), nullptr);
    }
    ~ProgramFilesFolder() {
        std::string from = path_.substr(0, path_.size() - 1) + '\0' + '\0';
        SHFILEOPSTRUCTA remove{};
        remove.wFunc = FO_DELETE;
        remove.pFrom = from.c_str();
        remove.fFlags = FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
        ::SHFileOperationA(&remove);
    }
    const std::string& path() const { return path_; }

private:
    std::string path_;
};

// The program's own process, except that a test may let its scanners start for real.
struct TestProcesses final : Processes {
    FixedProcesses fixed;
    win32::Win32Processes real;
    bool startReally = false;
    std::string commandLine() const override { return fixed.commandLine(); }
    std::string modulePath() const override { return fixed.modulePath(); }
    bool start(const std::string& line, int style) override {
        return startReally ? real.start(line, style) : fixed.start(line, style);
    }
    bool anotherInstanceRunning() const override { return false; }
    std::string versionNumbers() const override { return fixed.versionNumbers(); }
};

class ScannerSetup : public WinTest {
protected:
    ScannerSetup() {
        ::OleInitialize(nullptr);
        shell.startup = path("Startup");
        files.makeFolder(path("Startup"));
        files.makeFolder(path("Data"));
        writeFile("TarvelonLow.exe", "MZ");
        testProcesses.fixed.path = path("TarvelonLow.exe");
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.intFile = path("Data\\Integrity.dat");
        checkSettFile(ctx);
        ui::loadSettings(ctx, app.mainForm(), app.scannerChoice());
    }
    ~ScannerSetup() override { ::OleUninitialize(); }

    std::string settingsFile() const { return readFile("Data\\Tarvelon.dat"); }
    // Clicks a button that shows message boxes, answering each with OK, and
    // gives their prompts.
    std::vector<std::string> click(Control& button, std::size_t boxCount) {
        const std::size_t before = boxes.shown.size();
        boxes.answers.insert(boxes.answers.end(), boxCount, box::Ok);
        button.userClick();
        std::vector<std::string> prompts;
        for (std::size_t i = before; i < boxes.shown.size(); ++i) prompts.push_back(boxes.shown[i].prompt);
        return prompts;
    }
    // Chooses `file` in the real file box opened by `button`.
    void choose(Control& button, const std::string& file) {
        FileBoxAnswer answer(file);
        const auto prompts = click(button, file.empty() ? 0 : 1);
        ASSERT_TRUE(answer.answered());
        const std::vector<std::string> wanted = file.empty() ? std::vector<std::string>{}
                                                             : std::vector<std::string>{"Don't forget to Save!"};
        EXPECT_EQ(prompts, wanted);
    }

    TestShell shell;
    TestProcesses testProcesses;
    ui::Application app{{files, profiles, shell, boxes, testProcesses, loop, renderer, registry, clock, windows, power,
                         shortcuts}};
    AppContext& ctx = app.context();
    ui::ScannerChoiceForm& choice = app.scannerChoice();
};

TEST_F(ScannerSetup, FilesChosenInTheBoxAreSavedAsTheProfileWriterWritesThem) {
    std::string text = settingsFile();
    EXPECT_EQ(click(choice.cButton3, 2), (std::vector<std::string>{ui::kNoScannerMessage, "Save Success!"}));
    EXPECT_EQ(settingsFile(), text = expected(text, {{"antivirus", "Anti-Virus Software| "}, {"av2", "|"}}));
    EXPECT_FALSE(choice.visible());

    // A program path of 250 characters, with blanks and Norton's mark in a folder's name.
    files.makeFolder(path("Anti Virus"));
    files.makeFolder(path("Anti Virus\\NAVW tools"));
    const std::string prefix = path("Anti Virus\\NAVW tools\\scan ");
    const std::string first = prefix + std::string(250 - prefix.size() - 4, 'x') + ".exe";
    ASSERT_EQ(first.size(), 250u);
    ASSERT_TRUE(files.writeAll(first, "MZ"));
    choose(choice.cChoose, first);
    EXPECT_EQ(choice.Text5.caption(), first);
    EXPECT_EQ(choice.Text6.caption(), "/HEUR:3");
    EXPECT_EQ(app.setupWizard().varg.caption(), "/HEUR:3");
    EXPECT_EQ(click(choice.cButton3, 1), std::vector<std::string>{"Save Success!"});
    EXPECT_EQ(settingsFile(), text = expected(text, {{"antivirus", first + "|/HEUR:3"}, {"av2", "|"}}));

    // The second scanner takes the arguments the first one's program calls for.
    writeFile("second.com", "MZ");
    choose(choice.cButton10, path("second.com"));
    EXPECT_EQ(choice.Text1.caption(), path("second.com"));
    EXPECT_EQ(choice.Text2.caption(), "/HEUR:3");
    click(choice.cButton3, 1);
    EXPECT_EQ(settingsFile(), text = expected(text, {{"antivirus", first + "|/HEUR:3"},
                                                     {"av2", path("second.com") + "|/HEUR:3"}}));

    // A cancelled box leaves everything as it was, without a word.
    choose(choice.cChoose, "");
    choose(choice.cButton10, "");
    EXPECT_EQ(choice.Text5.caption(), first);
    EXPECT_EQ(choice.Text1.caption(), path("second.com"));

    // Programs that have vanished since: the first becomes the placeholder
    // with a word, the second nothing without one.
    ASSERT_TRUE(files.remove(first));
    ASSERT_TRUE(files.remove(path("second.com")));
    EXPECT_EQ(click(choice.cButton3, 2), (std::vector<std::string>{ui::kNoScannerMessage, "Save Success!"}));
    EXPECT_EQ(settingsFile(), expected(text, {{"antivirus", "Anti-Virus Software| "}, {"av2", "|"}}));
    EXPECT_EQ(choice.Text5.caption(), "Anti-Virus Software");
    EXPECT_EQ(choice.Text1.caption(), "");
}

TEST_F(ScannerSetup, SearchFindsTheScannerBelowProgramFilesAndTheTestStartsIt) {
    const std::string fakescan = fakeScannerPath();
    ASSERT_TRUE(files.canRead(fakescan)) << fakescan;
    ProgramFilesFolder folder(ctx);
    const std::string scanner = folder.path() + "Eset\\nod32.exe";
    ASSERT_TRUE(files.copy(fakescan, scanner));
    const std::string log = path("scans.log");
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", log.c_str());

    choice.chlpFind.userClick();
    ui::ScannerCatalogueForm& catalogue = app.scannerCatalogue();
    catalogue.List1.userSetValue(11);
    EXPECT_EQ(catalogue.List1.selectedText(), "NOD32 (All Operating Systems)");
    EXPECT_EQ(click(catalogue.Command4, 1), std::vector<std::string>{"Success!"});
    EXPECT_EQ(catalogue.Text2.caption(), scanner);

    testProcesses.startReally = true;
    EXPECT_EQ(click(catalogue.Command2, 1).size(), 1u);
    const DWORD start = ::GetTickCount();
    while (!files.length(log).value_or(0) && ::GetTickCount() - start < 20000) ::Sleep(20);
    // The program part goes out unquoted, blank and all, and arrives so.
    EXPECT_EQ(readFile("scans.log"), scanner + " \"" + ctx.settFile + "\" \"" + ctx.intFile + "\"\r\n");

    catalogue.Command3.userClick();
    EXPECT_EQ(choice.Text5.caption(), scanner);
    EXPECT_EQ(choice.Text6.caption(), " ");
    EXPECT_EQ(app.setupWizard().vpath.caption(), scanner);
}

TEST_F(ScannerSetup, WizardSavesTheSettingsTheScannerAndAutoLoad) {
    std::string text = settingsFile();
    files.makeFolder(path("Scan Tools"));
    writeFile("Scan Tools\\avgse.exe", "MZ");
    app.mainForm().options.cSetW.userClick();
    ui::SetupWizardForm& wizard = app.setupWizard();
    ASSERT_TRUE(wizard.visible());
    EXPECT_EQ(wizard.vpath.caption(), "Anti-Virus Path");  // a new file names no scanner
    wizard.vpath.userEditText(path("Scan Tools\\avgse.exe"));
    wizard.varg.userEditText("/all");
    wizard.aload.userSetValue(1);
    for (Control* box : {&wizard.Check2, &wizard.Check8, &wizard.Check6}) box->userSetValue(1);
    EXPECT_EQ(click(wizard.Command2, 1), std::vector<std::string>{"Settings Saved Successfully!"});
    EXPECT_FALSE(wizard.visible());
    EXPECT_EQ(settingsFile(), text = expected(text, {{"settings", "0,1,0,0,0,1,1,0"},
                                                     {"antivirus", path("Scan Tools\\avgse.exe") + "|/all"}}));
    EXPECT_TRUE(readFile("Startup\\Tarvelon.lnk").starts_with(std::string("L\0\0\0", 4)));
    EXPECT_TRUE(ctx.autoScanFailed);

    // Opened again it shows what was saved. Auto-Load kept on leaves a file in
    // the shortcut's place as it is; a vanished scanner becomes the placeholder.
    writeFile("Startup\\Tarvelon.lnk", "kept");
    app.mainForm().options.cSetW.userClick();
    EXPECT_EQ(wizard.aload.value(), 1);
    EXPECT_EQ(wizard.Check8.value(), 1);
    EXPECT_EQ(wizard.varg.caption(), "/all");
    ASSERT_TRUE(files.remove(path("Scan Tools\\avgse.exe")));
    ASSERT_TRUE(files.remove(ctx.settFile));  // made anew before the writes
    EXPECT_EQ(click(wizard.Command2, 2), (std::vector<std::string>{ui::kNoScannerMessage, "Settings Saved Successfully!"}));
    EXPECT_EQ(readFile("Startup\\Tarvelon.lnk"), "kept");
    EXPECT_EQ(settingsFile(), expected(newSettingsFileText(),
                                       {{"settings", "0,1,0,0,0,1,1,0"}, {"antivirus", "Anti-Virus Software| "}}));

    // Auto-Load cleared: the shortcut goes.
    app.mainForm().options.cSetW.userClick();
    wizard.aload.userSetValue(0);
    click(wizard.Command2, 2);
    EXPECT_FALSE(files.canRead(path("Startup\\Tarvelon.lnk")));
}

}  // namespace
}  // namespace tv::test
