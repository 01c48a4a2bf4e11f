// The settings page and the advanced page saving to a real settings file, with
// the Auto-Load shortcut made in a Startup folder of the test's own.
#include "platform/win32/win32_base.h"

#include <ole2.h>

#include "avshell/scanner_choice_form.h"
#include "core/settings_store.h"
#include "core/settings_text.h"
#include "tests/win/win_fixture.h"
#include "ui/advanced_actions.h"
#include "ui/load_settings.h"
#include "ui/main_window.h"
#include "ui/settings_actions.h"
#include "ui/shortcut_maker.h"

namespace tv::test {
namespace {

using namespace std::string_literals;
using ui::Control;

// The scripting host's name taken from the machine's registry for the time
// of a test, and given back afterwards.
class ScriptingHostMissing {
public:
    ScriptingHostMissing() {
        char clsid[64] = {};
        LONG size = sizeof clsid;
        if (::RegQueryValueA(HKEY_CLASSES_ROOT, kKey, clsid, &size) == ERROR_SUCCESS) clsid_ = clsid;
        ::RegDeleteKeyA(HKEY_CLASSES_ROOT, kKey);
    }
    ~ScriptingHostMissing() {
        if (!clsid_.empty())
            ::RegSetValueA(HKEY_CLASSES_ROOT, kKey, REG_SZ, clsid_.c_str(), static_cast<DWORD>(clsid_.size()));
    }
    bool wasThere() const { return !clsid_.empty(); }

private:
    static constexpr const char* kKey = "WScript.Shell\\CLSID";
    std::string clsid_;
};

class SettingsPages : public WinTest {
protected:
    SettingsPages() {
        ::OleInitialize(nullptr);
        startupShell.special[24] = path("Startup");
        files.makeFolder(path("Startup"));
        files.makeFolder(path("Data"));
        writeFile("TarvelonLow.exe", "MZ");
        processes.path = path("TarvelonLow.exe");
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        checkSettFile(ctx);
    }
    ~SettingsPages() override { ::OleUninitialize(); }

    std::string settingsFile() const { return readFile("Data\\Tarvelon.dat"); }
    std::string link() const { return path("Startup\\Tarvelon.lnk"); }
    bool isShortcut(const std::string& file) const { return files.readAll(file).value_or("").starts_with("L\0\0\0"s); }
    void save(Control& button, const char* message) {
        boxes.answers.push_back(box::Ok);
        button.userClick();
        ASSERT_FALSE(boxes.shown.empty());
        EXPECT_EQ(boxes.shown.back().prompt, message);
    }

    FixedShell startupShell;
    AppContext ctx{{files, profiles, startupShell, boxes, processes, loop, renderer, registry, clock, windows, power,
                    shortcuts}};
    ui::MainWindow window;
    ui::ScannerChoiceForm scanners;
    ui::SettingsPage& page = window.settings;
    ui::AdvancedPage& advanced = window.advanced;
    std::function<void()> reload = [this] { ui::loadSettings(ctx, window, scanners); };
    ui::SettingsActions settingsActions{ctx, window, reload, [] {}};
    ui::AdvancedActions advancedActions{ctx, window, reload};
};

TEST_F(SettingsPages, SaveWritesBothListsAndTheShortcutIsTheAutoLoadSetting) {
    const std::string fresh = settingsFile();
    window.options.cSettings.userClick();
    EXPECT_EQ(page.Check1.value(), 0);
    for (Control* box : {&page.Check1, &page.Check2, &page.Check9, &page.Check7, &page.Check15, &page.Check17})
        box->userSetValue(1);
    save(page.cSave, "Settings Saved Successfully");
    std::string text = expected(fresh, {{"settings", "1,0,0,0,0,1,0,1"}, {"settings2", "1,0,0,0,0,1"}});
    EXPECT_EQ(settingsFile(), text);
    EXPECT_TRUE(isShortcut(link()));
    EXPECT_FALSE(ctx.autoScanFailed);
    EXPECT_TRUE(page.qSett.shown());  // the page stays open

    // A file in the shortcut's place is replaced by a shortcut.
    writeFile("Startup\\Tarvelon.lnk", "not a shortcut");
    page.Check8.userSetValue(1);
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_EQ(settingsFile(), text = expected(text, {{"settings", "1,0,0,0,0,1,1,1"}, {"settings2", "1,0,0,0,0,1"}}));
    EXPECT_TRUE(isShortcut(link()));
    EXPECT_TRUE(ctx.autoScanFailed);

    page.Check1.userSetValue(0);
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_FALSE(files.canRead(link()));

    window.options.cSettings.userClick();
    EXPECT_EQ(page.Check1.value(), 0);
}

TEST_F(SettingsPages, ShortcutThatCannotBeMadeOrRemovedIsPassedOverInSilence) {
    const std::string fresh = settingsFile();
    window.options.cSettings.userClick();
    page.Check1.userSetValue(1);
    startupShell.special[24] = path("Gone");
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_EQ(settingsFile(), expected(fresh, {{"settings", "0,0,0,0,0,0,0,0"}, {"settings2", "0,0,0,0,0,0"}}));
    window.options.cSettings.userClick();
    EXPECT_EQ(page.Check1.value(), 0);

    // A read-only shortcut stays as it is, whether the box is ticked or not.
    startupShell.special[24] = path("Startup");
    writeFile("Startup\\Tarvelon.lnk", "kept");
    ::SetFileAttributesA(link().c_str(), FILE_ATTRIBUTE_READONLY);
    page.Check1.userSetValue(1);
    save(page.cSave, "Settings Saved Successfully");
    page.Check1.userSetValue(0);
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_EQ(readFile("Startup\\Tarvelon.lnk"), "kept");
    ::SetFileAttributesA(link().c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(SettingsPages, ScriptingHostThatIsMissingStillSaysSaved) {
    ScriptingHostMissing missing;
    ASSERT_TRUE(missing.wasThere());
    EXPECT_FALSE(makeShortcutWsh(ctx, path("Scan.lnk"), "SecureShutDown", path("TarvelonLow.exe"), "/s"));
    window.options.cSettings.userClick();
    ctx.useWsh = 1;  // as the advanced page leaves it
    page.Check1.userSetValue(1);
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_FALSE(files.canRead(link()));
    window.options.cSettings.userClick();
    EXPECT_EQ(page.Check1.value(), 0);
}

TEST_F(SettingsPages, SettingsFileDeletedWhileThePageIsOpenIsMadeAgain) {
    const std::string fresh = settingsFile();
    window.options.cSettings.userClick();
    ASSERT_TRUE(files.remove(ctx.settFile));
    page.Check3.userSetValue(1);
    save(page.cSave, "Settings Saved Successfully");
    EXPECT_EQ(settingsFile(), expected(fresh, {{"settings", "0,1,0,0,0,0,0,0"}, {"settings2", "0,0,0,0,0,0"}}));

    ASSERT_TRUE(files.remove(ctx.settFile));
    save(advanced.cSave2, "Save Success!");
    EXPECT_EQ(settingsFile(),
              expected(fresh, {{"advanced", "65536,500,0"}, {"antivirus2", "1,0,0"}, {"algo", "crc32"}}));
}

TEST_F(SettingsPages, AdvancedSaveTakesTheChosenOptionsAtOnce) {
    const std::string fresh = settingsFile();
    window.options.cButton2.userClick();
    advanced.bufferOptions[3]->userSetValue(1);
    advanced.batchOptions[1]->userSetValue(1);
    advanced.algorithmOptions[1]->userSetValue(1);
    advanced.Check10.userSetValue(0);
    advanced.Check11.userSetValue(1);
    advanced.avfocus.userSetValue(1);
    advanced.wsh.userSetValue(1);
    save(advanced.cSave2, "Save Success!");
    std::string text = expected(fresh, {{"advanced", "524288,50,1"}, {"antivirus2", "0,1,1"}, {"algo", "MD5"}});
    EXPECT_EQ(settingsFile(), text);
    EXPECT_EQ(ctx.readBuffer, 524288);
    EXPECT_EQ(ctx.passCount, 50);
    EXPECT_EQ(ctx.useWsh, 1);
    EXPECT_EQ(ctx.intFile, path("Data\\Integrity-md5.dat"));
    EXPECT_EQ(ctx.quoteChar, "");  // the scanner options are in force at once
    EXPECT_TRUE(ctx.shortPaths);

    // A value none of the options stands for is kept and written back as it is.
    ::WritePrivateProfileStringA("Tarvelon", "advanced", "100000,7,1", ctx.settFile.c_str());
    window.options.cButton2.userClick();
    for (Control* option : advanced.bufferOptions) EXPECT_EQ(option->value(), 0);
    save(advanced.cSave2, "Save Success!");
    EXPECT_EQ(settingsFile(), expected(text, {{"advanced", "100000,7,1"}, {"antivirus2", "0,1,1"}, {"algo", "MD5"}}));
    advanced.cButton1.userClick();
    EXPECT_TRUE(window.setFq.shown());
}

}  // namespace
}  // namespace tv::test
