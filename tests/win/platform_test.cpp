// The real system under the program's small rules: files and folders, the settings
// file through the profile calls, checksums of files changing while read, scanner
// processes, the DLL search, the renderer driven through real window messages,
// shortcuts as Windows reads them and the top windows AppWatch works on.
#include <objbase.h>
#include <ole2.h>
#include <shlobj.h>

#include <set>
#include <thread>

#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "hash/checksum.h"
#include "hash/crc32.h"
#include "platform/win32/dll_search.h"
#include "platform/win32/win32_base.h"
#include "tests/win/win_fixture.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"
#include "ui/settings_actions.h"
#include "ui/shortcut_maker.h"
#include "ui/startup_folder.h"

namespace tv::test {
namespace {

class Platform : public WinTest {
protected:
    std::string crcOf(const std::string& content) {
        return hash::hexText(~hash::crc32Update(0xFFFFFFFFu, reinterpret_cast<const std::uint8_t*>(content.data()),
                                                content.size()));
    }
    AppContext ctx{set()};
};

// A held file is no file; the listing shows hidden and system files and folders,
// many in a row.
TEST_F(Platform, FilesFoldersAndListingsWhateverTheirAttributes) {
    writeFile("empty.txt", "");
    writeFile("held.txt", "x");
    files.makeFolder(path("folder"));
    FileLock lock(path("held.txt"));
    ASSERT_TRUE(lock.held());
    EXPECT_TRUE(fileThere(ctx, path("empty.txt")));
    for (const char* absent : {"folder", "missing.txt", "held.txt"}) EXPECT_FALSE(fileThere(ctx, path(absent))) << absent;
    for (const std::string& folder : {getSysDir(ctx), getWinDir(ctx), getSpecialFolder(ctx)})
        EXPECT_TRUE(folder.back() == '\\' && files.isFolder(folder)) << folder;
    EXPECT_TRUE(files.canRead(getSysDir(ctx) + "kernel32.dll"));
    EXPECT_EQ(getSpecialFolder(ctx, 0x7FFF), "\\");  // a folder number the system does not know
    EXPECT_EQ(autoLoadShortcutPath(ctx).substr(getStartupFolder(ctx).size()), "\\Tarvelon.lnk");

    files.makeFolder(path("walk"));
    std::set<std::string> expected{".", "..", "Sub.DLL", "Hidden", "a.dll", "system.dll", "b.exe"};
    for (int i = 0; i < 200; ++i) expected.insert("hidden" + std::to_string(i) + ".dll");
    for (const std::string& name : expected) {
        if (name == "Sub.DLL" || name == "Hidden") files.makeFolder(path("walk\\" + name));
        else if (name[0] != '.') writeFile("walk\\" + name, "x");
        if (name.starts_with("hidden"))
            ::SetFileAttributesA(path("walk\\" + name).c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    }
    ::SetFileAttributesA(path("walk\\system.dll").c_str(), FILE_ATTRIBUTE_SYSTEM);
    ::SetFileAttributesA(path("walk\\Hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    // Names the code page cannot spell, one of them as a look-alike of its neighbour's ("Tvi.dll"), come by
    // names that open, with their extension.
    const std::string walk = path("walk\\");
    writeFile("walk\\Tvi.dll", "x");
    expected.insert("Tvi.dll");
    for (const wchar_t* name : {L"Tv\u0F40.dll", L"Tv\u0131.dll"}) {
        const std::wstring unspellable = std::wstring(walk.begin(), walk.end()) + name;
        ::CloseHandle(::CreateFileW(unspellable.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr));
    }
    std::multiset<std::string> names;
    for (std::string name = files.firstName(walk); !name.empty(); name = files.nextName())
        if (!expected.erase(name)) names.insert(name);
    EXPECT_TRUE(expected.empty());
    EXPECT_EQ(names.size(), 2u);
    for (const std::string& name : names) EXPECT_TRUE(files.canRead(walk + name) && name.ends_with(".DLL")) << name;
    EXPECT_EQ(files.firstName(path("no-such-folder\\")) + files.nextName(), "");  // a failed start ends the listing
}

// The profile calls; the writer keeps a data file's entries in memory (the primary
// scan's, written to disk, are its own test's).
TEST_F(Platform, SettingsFileThroughTheProfileCalls) {
    ctx.appPath = path("");
    ctx.settFile = path("Tarvelon.dat");
    writeFile("Tarvelon.dat", "[Tarvelon]\r\nalgo=md5\r\n");
    {
        FileLock lock(ctx.settFile);
        ASSERT_TRUE(lock.held());
        EXPECT_FALSE(checkSettFile(ctx));
        EXPECT_EQ(getSetting(ctx, "ALGO"), std::nullopt);
    }
    EXPECT_EQ(readFile("Tarvelon.dat"), "[Tarvelon]\r\nalgo=md5\r\n");  // a locked file keeps its content
    files.remove(ctx.settFile);
    checkSettFile(ctx);
    EXPECT_EQ(writeEntry(ctx, ctx.settFile, "settings2", "1,1,1,0,1,1", "Tarvelon"), WriteOutcome::WrittenToDisk);
    const std::string text = readFile("Tarvelon.dat");
    EXPECT_LT(text.find("settings2=1,1,1,0,1,1\r\n"), text.find("[1]"));  // inside its section
    EXPECT_EQ(getSetting(ctx, "GETSETT2"), "1,1,1,0,1,1");
    writeEntry(ctx, ctx.settFile, "path", "C:\\Docs\\", "3");
    writeEntry(ctx, ctx.settFile, "path", std::string(300, 'x'), "4");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "PATH", 3), "C:\\Docs\\");
    EXPECT_EQ(readIni(ctx, ctx.settFile, "path", 4), std::string(249, 'x'));  // cut to the read buffer
    EXPECT_EQ(readIni(ctx, ctx.settFile, "nokey", 3) + readIni(ctx, ctx.settFile, "path", 21), "");

    ctx.section.name[0] = "DLL";
    ctx.section.text[0] = BaselineBlock("[DLL]\r\nNULL*E\r\n");
    const std::string baseline = path("Integrity.dat");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.DLL", "1*E", "DLL"), WriteOutcome::StoredInMemory);
    EXPECT_FALSE(files.canRead(baseline));
    EXPECT_EQ(ctx.section.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.EXE", "1*E", "EXE"), WriteOutcome::NoSuchSection);
}

TEST_F(Platform, ChecksumsOfFilesThatAreLockedGrowPastFourGigabytesOrChangeWhileRead) {
    ctx.readBuffer = 65536;
    ctx.algoName = "CRC32";
    loop.queueAnswer = queue::MouseButton << 16 | queue::MouseButton;  // a click waits at every full buffer
    writeFile("locked.dll", "content");
    {
        FileLock lock(path("locked.dll"));
        EXPECT_EQ(hash::getChecksum(ctx, path("locked.dll")), "0");
    }
    writeFile("going.dll", std::string(200000, 'x'));
    loop.onPump = [&] { files.remove(path("going.dll")); };
    EXPECT_EQ(hash::getChecksum(ctx, path("going.dll")), crcOf(std::string(200000, 'x')));  // hashed as opened
    writeFile("shrinking.dll", std::string(200000, 'y'));
    loop.onPump = [&] {
        HANDLE file = ::CreateFileA(path("shrinking.dll").c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
        ::SetFilePointer(file, 100000, nullptr, FILE_BEGIN);
        ::SetEndOfFile(file);
        ::CloseHandle(file);
    };  // the bytes lost count as zeros
    EXPECT_EQ(hash::getChecksum(ctx, path("shrinking.dll")), crcOf(std::string(100000, 'y') + std::string(100000, '\0')));
    loop.onPump = nullptr;

    HANDLE big = ::CreateFileA(path("big.bin").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    LARGE_INTEGER at{.QuadPart = (1LL << 32) + 5};
    DWORD written = 0;
    ::SetFilePointerEx(big, at, nullptr, FILE_BEGIN);
    ::WriteFile(big, "tail bytes", 10, &written, nullptr);
    ::CloseHandle(big);
    ctx.readBuffer = 524288;
    EXPECT_EQ(hash::getChecksum(ctx, path("big.bin")), "ABA4D7B4");  // zlib's CRC-32 of 2^32 + 5 zeros and the tail
    files.remove(path("big.bin"));
}

// Scanners are real processes started from one command line with no command
// interpreter between, and only the program the line names: not one planted
// where the system would look first for an unquoted path with blanks, nor one
// at a shorter beginning of it with an extension ("Scan 7.5").
TEST_F(Platform, ScannerGetsItsCommandLineUnchangedAndAPlantedProgramNeverRuns) {
    win32::Win32Processes real;
    AppContext launching{{files, profiles, shell, boxes, real, loop, renderer, registry, clock, windows, power, shortcuts}};
    files.makeFolder(path("Scan 7.5 Tools"));
    const std::string scanner = path("Scan 7.5 Tools\\fakescan.exe");
    char self[MAX_PATH] = {};  // the build's fake scanner, which logs its command line, is in tools\ beside tests\.
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string tests = std::string(self).substr(0, std::string(self).find_last_of('\\'));
    for (const std::string& copy : {scanner, path("Scan.exe"), path("Scan 7.5")})
        ASSERT_TRUE(files.copy(tests.substr(0, tests.find_last_of('\\')) + "\\tools\\fakescan.exe", copy)) << copy;
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    const char* planted[] = {"TARVELON_FAKESCAN_LOG_SCAN", "TARVELON_FAKESCAN_LOG_SCAN 7"};
    for (const char* name : planted) ::SetEnvironmentVariableA(name, path("planted.log").c_str());
    const std::string batch = "\"C:\\x|y&z^w%PATH%.dll\" C:\\plain.dll ";
    ASSERT_TRUE(startScanners(launching, {scanner, "/a", " ", "ignored"}, {batch}));  // a blank second exe is none
    for (const DWORD start = ::GetTickCount(); !files.length(path("scans.log")).value_or(0); ::Sleep(20))
        ASSERT_LT(::GetTickCount() - start, 20000u) << "the scanner never wrote";
    EXPECT_EQ(readFile("scans.log"), scanner + " /a " + batch + "\r\n");
    files.remove(path("Scan 7.5"));  // the longest beginning left once the scanner is gone: not tried here
    for (const DWORD start = ::GetTickCount(); !files.remove(scanner); ::Sleep(20))
        ASSERT_LT(::GetTickCount() - start, 20000u) << "the scanner still runs";
    EXPECT_FALSE(runScanner(launching, scanner + "  \"C:\\a b.dll\" "));  // the scanner gone: nothing in its place
    EXPECT_FALSE(files.length(path("planted.log")));
    for (const char* name : planted) ::SetEnvironmentVariableA(name, nullptr);

    writeFile("A Long File Name.dll", "x");
    const std::string shortName = toShortPath(ctx, path("A Long File Name.dll"));
    EXPECT_TRUE(shortName.find(' ') == std::string::npos && files.canRead(shortName)) << shortName;
    ctx.shortPaths = true;
    ctx.quoteChar = "\"";
    EXPECT_EQ(batchItem(ctx, path("absent.dll")), "\"\" ");  // a vanished file still makes an item
}

// The start's narrowing of the DLL search: a DLL in the current folder is no
// longer loaded by its bare name, while the system's own still are.
TEST_F(Platform, DllSearchLeavesTheCurrentFolderOut) {
    ASSERT_TRUE(files.copy(getSysDir(ctx) + "msacm32.dll", path("tvprobe.dll")));
    char previous[MAX_PATH + 1] = {};
    ::GetCurrentDirectoryA(MAX_PATH, previous);
    ASSERT_TRUE(::SetCurrentDirectoryA(path("").c_str()));
    const auto loads = [](const char* name) {
        HMODULE module = ::LoadLibraryA(name);
        return module && ::FreeLibrary(module);
    };
    EXPECT_TRUE(loads("tvprobe.dll"));  // found in the current folder, as the system searches by default
    const win32::DllSearch done = win32::narrowDllSearch();
    EXPECT_TRUE(done.currentFolderLeftOut && done.systemFolderOnly && !loads("tvprobe.dll") && loads("msacm32.dll"));
    ::SetCurrentDirectoryA(previous);
}

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
        char path[1024] = {}, arguments[1024] = {}, description[1024] = {}, folder[1024] = {}, icon[1024] = {};
        int iconNumber = -1, show = -1;
        link->GetPath(path, sizeof path, nullptr, SLGP_RAWPATH);
        link->GetArguments(arguments, sizeof arguments);
        link->GetDescription(description, sizeof description);
        link->GetWorkingDirectory(folder, sizeof folder);
        link->GetIconLocation(icon, sizeof icon, &iconNumber);
        link->GetShowCmd(&show);
        parts = upperCase(path) + "|" + arguments + "|" + description + "|" + folder + "|" + upperCase(icon) + "," +
                std::to_string(iconNumber) + "|" + std::to_string(show);
    }
    if (persist) persist->Release();
    if (link) link->Release();
    return parts;
}

// What the Options page needs of the real system: shortcuts made through the
// shell-link object and the scripting host.
class OptionsPage : public WinTest {
protected:
    OptionsPage() {
        ::OleInitialize(nullptr);
        ctx.appPath = path("");
        ctx.settFile = path("Tarvelon.dat");
        processes.path = program;
        writeFile("TarvelonLow.exe", "MZ");
    }
    ~OptionsPage() override { ::OleUninitialize(); }
    AppContext ctx{set()};
    const std::string program = path("TarvelonLow.exe");
};

// Both ways over a file that is no shortcut are the end-to-end journey's; here what
// the shell-link way writes, and neither way in a missing folder. A read-only
// Auto-Load shortcut stays as it is, ticked or not, and the save says saved all the same.
TEST_F(OptionsPage, ShortcutsHoldTheirPartsAndNoneIsMadeOrRemovedWhereTheSystemRefuses) {
    createAutoLoad(ctx, path("Tarvelon.lnk"));
    const std::string target = upperCase(program);
    EXPECT_EQ(readLink(path("Tarvelon.lnk")),
              target + "| /r|Access Shortcut||" + target + ",0|" + std::to_string(SW_SHOWNORMAL));
    EXPECT_FALSE(makeShortcut(ctx, path("Gone\\Tarvelon.lnk"), program, "", " /r", program, 0, 5) ||
                 makeShortcutWsh(ctx, path("Gone\\Tarvelon.lnk"), "Tarvelon", program, "/r") ||
                 files.canRead(path("Gone\\Tarvelon.lnk")));

    FixedShell startup;
    startup.special[24] = path("");
    AppContext withStartup{{files, profiles, startup, boxes, processes, loop, renderer, registry, clock, windows, power,
                            shortcuts}};
    withStartup.appPath = path("");
    withStartup.settFile = ctx.settFile;
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
    EXPECT_EQ(readFile("Tarvelon.lnk") + std::to_string(boxes.shown.size()), "kept2");
}

// The update utility, where its set-up recorded its folder, is started for this
// product; one that does not start ends the action without a word.
TEST_F(OptionsPage, InstalledUpdateUtilityStartsMinimisedForThisProduct) {
    const char* utilityKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Orbexa_is1";
    const std::string folder = "C:\\Program Files\\Orbexa";
    HKEY key = nullptr;
    ASSERT_EQ(::RegCreateKeyExA(HKEY_LOCAL_MACHINE, utilityKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr), 0);
    ::RegSetValueExA(key, "Inno Setup: App Path", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                     static_cast<DWORD>(folder.size() + 1));
    ::RegCloseKey(key);
    ui::MainWindow window;
    ui::MainActions actions{ctx, window, [] {}};
    window.options.cUpdates.userClick();
    processes.refuse = true;
    window.options.cUpdates.userClick();
    ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, utilityKey);
    EXPECT_EQ(processes.started, (std::vector<std::pair<std::string, int>>{
                                     {"C:\\Program Files\\Orbexa\\Orbexa.exe Tarvelon2", show::MinimizedFocus}}));
    EXPECT_TRUE(boxes.shown.empty());
}

// AppWatch's window calls over windows of the test's own: one brought to the top,
// one that refuses to close, one gone, and one that never answers and holds the
// program only for the answer time. Listing and closing another program's window
// are the end-to-end journey's.
LRESULT CALLBACK testWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE && ::GetPropA(window, "refuses")) return 0;
    return ::DefWindowProcA(window, message, wParam, lParam);
}
HWND makeWindow(const char* title) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = testWindowProc;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "TarvelonTestWindow";
    ::RegisterClassA(&windowClass);  // once; later calls fail harmlessly
    return ::CreateWindowExA(0, windowClass.lpszClassName, title, WS_OVERLAPPEDWINDOW, 0, 0, 120, 80, nullptr, nullptr,
                             windowClass.hInstance, nullptr);
}
NativeWindow number(HWND window) { return reinterpret_cast<NativeWindow>(window); }

TEST(AppWatchWindows, TopWindowsAsTheSystemHasThem) {
    win32::Win32TopWindows windows;
    HWND older = makeWindow("Tarvelon Test Older"), newer = makeWindow("Tarvelon Test Newer");
    windows.bringToTop(number(older));  // down the stacking order: above the one made after it
    NativeWindow first = windows.relative(windows.desktop(), 5);
    while (first && first != number(older) && first != number(newer)) first = windows.relative(first, 2);
    EXPECT_EQ(first, number(older));
    ::SetPropA(older, "refuses", reinterpret_cast<HANDLE>(1));
    windows.askToClose(number(older));
    EXPECT_TRUE(::IsWindow(older));  // it may refuse
    ::RemovePropA(older, "refuses");
    windows.askToClose(number(older));
    EXPECT_FALSE(::IsWindow(older));
    // A window that has gone: empty texts, no process, and nothing done.
    EXPECT_EQ(windows.titleBuffer(number(older), 255) + windows.classBuffer(0, 255), std::string(510, '\0'));
    EXPECT_EQ(windows.processId(number(older)) + windows.relative(number(older), 2), 0u);
    windows.bringToTop(0);
    windows.askToClose(0);
    ::DestroyWindow(newer);

    win32::Win32TopWindows impatient(200);  // the window's thread takes no messages until let go
    HANDLE release = ::CreateEventA(nullptr, TRUE, FALSE, nullptr), made = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HWND stuck = nullptr;
    std::thread owner([&] {
        stuck = makeWindow("Tarvelon Test Stuck");
        ::SetEvent(made);
        ::WaitForSingleObject(release, 20000);  // no message loop meanwhile
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageA(&message);
        ::DestroyWindow(stuck);
    });
    ::WaitForSingleObject(made, 20000);
    impatient.askToClose(number(stuck));
    EXPECT_TRUE(::IsWindow(stuck));
    ::SetEvent(release);
    owner.join();
    ::CloseHandle(release);
    ::CloseHandle(made);
}

}  // namespace
}  // namespace tv::test
