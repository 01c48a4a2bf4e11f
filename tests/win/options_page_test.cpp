// What the Options page's actions need of the real system: shortcuts made
// through the shell-link object and the scripting host and read back as
// Windows reads them, and the update utility found through the registry.
#include "platform/win32/win32_base.h"

#include <objbase.h>
#include <ole2.h>
#include <shlobj.h>

#include <cstring>

#include "core/text.h"
#include "tests/win/win_fixture.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"
#include "ui/settings_actions.h"
#include "ui/shortcut_maker.h"

namespace tv::test {
namespace {

// A shortcut file's parts as the shell reads them, "|" between them; empty when it is none.
std::string readLink(const std::string& file) {
    IShellLinkA* link = nullptr;
    IPersistFile* persist = nullptr;
    std::string parts;
    const std::wstring wide(file.begin(), file.end());
    if (SUCCEEDED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                     reinterpret_cast<void**>(&link))) &&
        SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist))) &&
        SUCCEEDED(persist->Load(wide.c_str(), STGM_READ))) {
        char text[1024] = {};
        int number = -1;
        link->GetPath(text, sizeof text, nullptr, SLGP_RAWPATH);
        parts = upperCase(text);
        link->GetArguments(text, sizeof text);
        parts += std::string("|") + text;
        link->GetDescription(text, sizeof text);
        parts += std::string("|") + text;
        link->GetWorkingDirectory(text, sizeof text);
        parts += std::string("|") + text;
        link->GetIconLocation(text, sizeof text, &number);
        parts += "|" + upperCase(text) + "," + std::to_string(number);
        link->GetShowCmd(&number);
        parts += "|" + std::to_string(number);
    }
    if (persist) persist->Release();
    if (link) link->Release();
    return parts;
}

class OptionsPage : public WinTest {
protected:
    OptionsPage() {
        ::OleInitialize(nullptr);
        ctx.appPath = path("");
        processes.path = program;
        writeFile("TarvelonLow.exe", "MZ");
    }
    ~OptionsPage() override {
        ::OleUninitialize();
        ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, kUtilityKey);
    }

    static constexpr const char* kUtilityKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Orbexa_is1";
    AppContext ctx{set()};
    const std::string program = path("TarvelonLow.exe");
};

TEST_F(OptionsPage, EachWayMakesItsShortcutAndNoneInAFolderThatIsMissing) {
    createAutoLoad(ctx, path("Tarvelon.lnk"));
    const std::string target = upperCase(program);
    EXPECT_EQ(readLink(path("Tarvelon.lnk")),
              target + "| /r|Access Shortcut||" + target + ",0|" + std::to_string(SW_SHOWNORMAL));

    ctx.useWsh = 1;
    writeFile("Tarvelon.lnk", "not a shortcut");  // the scripting way writes over it
    createAutoLoad(ctx, path("Tarvelon.lnk"));
    EXPECT_EQ(readLink(path("Tarvelon.lnk")).substr(0, target.size() + 13), target + "|/r|Tarvelon|");
    EXPECT_TRUE(makeShortcutWsh(ctx, path("Scan.url"), "d", program, "/s"));
    EXPECT_TRUE(files.canRead(path("Scan.url")) && !files.canRead(path("Scan.url.lnk")));

    EXPECT_FALSE(makeShortcut(ctx, path("Gone\\Tarvelon.lnk"), program, "", " /r", program, 0, 5));
    EXPECT_FALSE(makeShortcutWsh(ctx, path("Gone\\Tarvelon.lnk"), "Tarvelon", program, "/r"));
    EXPECT_FALSE(files.canRead(path("Gone\\Tarvelon.lnk")));
}

// A shortcut that cannot be removed (a read-only one) stays as it is, ticked
// or not, and the save says saved all the same.
TEST_F(OptionsPage, ReadOnlyAutoLoadShortcutStaysWhateverTheSettingsPageSaves) {
    FixedShell startup;
    startup.special[24] = path("");
    AppContext withStartup{{files, profiles, startup, boxes, processes, loop, renderer, registry, clock, windows, power,
                            shortcuts}};
    withStartup.appPath = path("");
    withStartup.settFile = path("Tarvelon.dat");
    ui::MainWindow window;
    ui::SettingsActions actions{withStartup, window, [] {}, [] {}};
    writeFile("Tarvelon.lnk", "kept");
    ::SetFileAttributesA(path("Tarvelon.lnk").c_str(), FILE_ATTRIBUTE_READONLY);
    for (const int ticked : {1, 0}) {
        window.settings.Check1.setValue(ticked);
        boxes.answers.push_back(box::Ok);
        window.settings.cSave.userClick();
    }
    ::SetFileAttributesA(path("Tarvelon.lnk").c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(readFile("Tarvelon.lnk"), "kept");
    EXPECT_EQ(boxes.shown.size(), 2u);
}

// The scripting host's name taken from the machine's registry for a moment.
TEST_F(OptionsPage, ScriptingHostThatIsMissingMakesNoShortcut) {
    char clsid[64] = {};
    LONG size = sizeof clsid;
    ASSERT_EQ(::RegQueryValueA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID", clsid, &size), ERROR_SUCCESS);
    ::RegDeleteKeyA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID");
    const bool made = makeShortcutWsh(ctx, path("Scan.lnk"), "SecureShutDown", program, "/s");
    ::RegSetValueA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID", REG_SZ, clsid, static_cast<DWORD>(std::strlen(clsid)));
    EXPECT_FALSE(made || files.canRead(path("Scan.lnk")));
}

// The update utility's uninstall record, as its installer leaves it.
TEST_F(OptionsPage, InstalledUpdateUtilityStartsMinimisedForThisProduct) {
    HKEY key = nullptr;
    const std::string folder = "C:\\Program Files\\Orbexa";
    ::RegCreateKeyExA(HKEY_LOCAL_MACHINE, kUtilityKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    ::RegSetValueExA(key, "Inno Setup: App Path", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                     static_cast<DWORD>(folder.size() + 1));
    ::RegCloseKey(key);
    ui::MainWindow window;
    ui::MainActions actions{ctx, window, [] {}};
    window.options.cUpdates.userClick();
    processes.refuse = true;  // a utility that does not start ends the action quietly
    window.options.cUpdates.userClick();
    EXPECT_EQ(processes.started, (std::vector<std::pair<std::string, int>>{
                                     {"C:\\Program Files\\Orbexa\\Orbexa.exe Tarvelon2", show::MinimizedFocus}}));
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace tv::test
