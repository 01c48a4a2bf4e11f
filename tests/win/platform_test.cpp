// The real system under the program's small rules: files and folders, the settings
// file through the profile calls, checksums of files changing while read, scanner
// processes, the DLL search, the renderer driven through real window messages,
// shortcuts as Windows reads them and the top windows AppWatch works on.
#include <objbase.h>
#include <ole2.h>
#include <shlobj.h>

#include <cstring>
#include <set>
#include <thread>

#include "avshell/scanner_launch.h"
#include "core/file_utils.h"
#include "core/folder_search.h"
#include "core/settings_store.h"
#include "core/text.h"
#include "hash/checksum.h"
#include "hash/crc32.h"
#include "platform/win32/dll_search.h"
#include "platform/win32/pending_texts.h"
#include "platform/win32/win32_base.h"
#include "platform/win32/win32_renderer.h"
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
    // Waits for the fake scanner's record of its command line.
    std::string scannerLog(const std::string& relative) {
        const DWORD start = ::GetTickCount();
        while (!files.length(path(relative)).value_or(0) && ::GetTickCount() - start < 20000) ::Sleep(20);
        return readFile(relative);
    }
    AppContext ctx{set()};
};

TEST_F(Platform, FilesFoldersAndTheTreeSearch) {
    writeFile("empty.txt", "");
    writeFile("held.txt", "x");
    files.makeFolder(path("folder"));
    FileLock lock(path("held.txt"));
    ASSERT_TRUE(lock.held());
    EXPECT_TRUE(fileThere(ctx, path("empty.txt")));
    for (const char* absent : {"folder", "missing.txt", "held.txt"}) EXPECT_FALSE(fileThere(ctx, path(absent))) << absent;
    for (const std::string& folder : {getSysDir(ctx), getWinDir(ctx), getSpecialFolder(ctx)}) {
        EXPECT_EQ(folder.back(), '\\');
        EXPECT_TRUE(files.isFolder(folder)) << folder;
    }
    EXPECT_TRUE(files.canRead(getSysDir(ctx) + "kernel32.dll"));
    EXPECT_EQ(getSpecialFolder(ctx, 0x7FFF), "\\");  // a folder number the system does not know
    EXPECT_EQ(autoLoadShortcutPath(ctx).substr(getStartupFolder(ctx).size()), "\\Tarvelon.lnk");
    for (const char* folder : {"a", "a\\b", "a\\absent.exe"}) files.makeFolder(path(folder));  // a folder is no program
    writeFile("a\\b\\scanner.exe", "MZ");
    int entered = 0;
    FolderSearch search(ctx, [&](const std::string&) { return ++entered, true; });
    EXPECT_TRUE(sameText(search.findInTree(path(""), "SCANNER.EXE"), path("a\\b\\scanner.exe")));
    const int walked = entered;
    EXPECT_EQ(search.findInTree(path("A\\B"), "scanner.exe") + search.findInTree(path(""), "absent.exe"), "");
    EXPECT_EQ(entered, walked);  // the same folder spelled otherwise: searched already
}

TEST_F(Platform, ListingShowsEveryFileAndFolderWhateverItsAttributes) {
    files.makeFolder(path("walk"));
    std::set<std::string> expected{".", "..", "Sub.DLL", "Hidden", "a.dll", "system.dll", "b.exe"};
    for (int i = 0; i < 200; ++i) expected.insert("hidden" + std::to_string(i) + ".dll");  // many in a row
    for (const std::string& name : expected) {
        if (name == "Sub.DLL" || name == "Hidden") files.makeFolder(path("walk\\" + name));
        else if (name[0] != '.') writeFile("walk\\" + name, "x");
        if (name.starts_with("hidden"))
            ::SetFileAttributesA(path("walk\\" + name).c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
    }
    ::SetFileAttributesA(path("walk\\system.dll").c_str(), FILE_ATTRIBUTE_SYSTEM);
    ::SetFileAttributesA(path("walk\\Hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    std::set<std::string> names;
    for (std::string name = files.firstName(path("walk\\")); !name.empty(); name = files.nextName()) names.insert(name);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(files.firstName(path("no-such-folder\\")), "");
    EXPECT_EQ(files.nextName(), "");  // a failed start ends the listing before
}

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

    // The writer goes to disk for the snapshot, to memory for a data file but
    // while the primary scan runs.
    ctx.section.name[0] = "DLL";
    ctx.section.text[0] = BaselineBlock("[DLL]\r\nNULL*E\r\n");
    files.makeFolder(path("data"));
    EXPECT_EQ(writeEntry(ctx, path("data\\registry.dat"), "Run", "x", "HKLM"), WriteOutcome::WrittenToDisk);
    EXPECT_EQ(readIni(ctx, path("DATA\\REGISTRY.DAT"), "run", "hklm"), "x");
    const std::string baseline = path("Integrity.dat");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.DLL", "1*E", "DLL"), WriteOutcome::StoredInMemory);
    EXPECT_FALSE(files.canRead(baseline));
    EXPECT_EQ(ctx.section.text[0].text(), "[DLL]\r\nA.DLL=1*E\r\nNULL*E\r\n");
    EXPECT_EQ(writeEntry(ctx, baseline, "A.EXE", "1*E", "EXE"), WriteOutcome::NoSuchSection);
    ctx.primaryScan = true;
    EXPECT_EQ(writeEntry(ctx, baseline, "B.DLL", "2*E", "DLL"), WriteOutcome::WrittenToDisk);
    EXPECT_EQ(readIni(ctx, baseline, "B.DLL", "DLL"), "2*E");
}

TEST_F(Platform, ChecksumsOfFilesThatAreLockedGrowPastFourGigabytesOrChangeWhileRead) {
    ctx.readBuffer = 65536;
    ctx.algoName = "CRC32";
    loop.queueAnswer = queue::MouseButton << 16 | queue::MouseButton;  // a click waits at every full buffer
    writeFile("locked.dll", "content");
    {
        FileLock lock(path("locked.dll"));
        EXPECT_EQ(hash::getChecksum(ctx, path("locked.dll")), "0");
        ctx.algoName = "MD5";
        EXPECT_EQ(hash::getChecksum(ctx, path("locked.dll")), "");
        ctx.algoName = "CRC32";
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
    LARGE_INTEGER at;
    at.QuadPart = (1LL << 32) + 5;
    ::SetFilePointerEx(big, at, nullptr, FILE_BEGIN);
    DWORD written = 0;
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
    for (const std::string& copy : {scanner, path("Scan.exe"), path("Scan 7.5")})
        ASSERT_TRUE(files.copy(fakeScannerPath(), copy)) << copy;
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG", path("scans.log").c_str());
    for (const char* planted : {"TARVELON_FAKESCAN_LOG_SCAN", "TARVELON_FAKESCAN_LOG_SCAN 7"})
        ::SetEnvironmentVariableA(planted, path("planted.log").c_str());
    const std::string batch = "\"C:\\x|y&z^w%PATH%.dll\" C:\\plain.dll ";
    ASSERT_TRUE(startScanners(launching, {scanner, "/a", " ", "ignored"}, {batch}));  // a blank second exe is none
    EXPECT_EQ(scannerLog("scans.log"), scanner + " /a " + batch + "\r\n");
    files.remove(path("Scan 7.5"));  // the longest beginning left once the scanner is gone: not tried here
    for (const DWORD start = ::GetTickCount(); !files.remove(scanner); ::Sleep(20))
        ASSERT_LT(::GetTickCount() - start, 20000u) << "the scanner still runs";
    EXPECT_FALSE(runScanner(launching, scanner + "  \"C:\\a b.dll\" "));  // the scanner gone: nothing in its place
    EXPECT_FALSE(files.length(path("planted.log")));
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG_SCAN", nullptr);
    ::SetEnvironmentVariableA("TARVELON_FAKESCAN_LOG_SCAN 7", nullptr);

    writeFile("A Long File Name.dll", "x");
    const std::string shortName = toShortPath(ctx, path("A Long File Name.dll"));
    EXPECT_EQ(shortName.find(' '), std::string::npos) << shortName;
    EXPECT_TRUE(files.canRead(shortName)) << shortName;
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

class Renderer : public ::testing::Test {
protected:
    Renderer() : form("testForm", "Renderer Test", {0, 0, 520, 300}) {}
    void show() {
        real.attach(form);
        form.setVisible(true);
    }
    HWND childNamed(const std::string& name) {  // among every window below the form
        std::pair<std::string, HWND> wanted{name, nullptr};
        ::EnumChildWindows(reinterpret_cast<HWND>(form.nativeWindow()), [](HWND hwnd, LPARAM found) -> BOOL {
            auto& [text, window] = *reinterpret_cast<std::pair<std::string, HWND>*>(found);
            char own[64] = {};
            ::GlobalGetAtomNameA(static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropA(hwnd, "TarvelonName"))), own, 64);
            if (text == own) window = hwnd;
            return window == nullptr;
        }, reinterpret_cast<LPARAM>(&wanted));
        return wanted.second;
    }
    static void command(HWND control, int code) {
        ::SendMessageA(::GetParent(control), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(control), code),
                       reinterpret_cast<LPARAM>(control));
    }

    ui::Form form;
    win32::Win32Renderer real{::GetModuleHandleA(nullptr)};
};

// Counts the texts written into one window.
WNDPROC g_staticProc = nullptr;
int g_textWrites = 0;
LRESULT CALLBACK countingProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_SETTEXT) ++g_textWrites;
    return ::CallWindowProcA(g_staticProc, hwnd, message, wParam, lParam);
}

TEST_F(Renderer, FastChangingLabelIsWrittenAtIntervalsAndEndsOnItsLastText) {
    auto& label = form.add(ui::Kind::Label, "l_dll", {10, 10, 200, 20});
    show();
    HWND hwnd = childNamed("l_dll");
    g_staticProc = reinterpret_cast<WNDPROC>(::SetWindowLongPtrA(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(countingProc)));
    g_textWrites = 0;
    const DWORD start = ::GetTickCount();
    for (int n = 1; n <= 20000; ++n) label.setCaption(std::to_string(n));
    const DWORD spent = ::GetTickCount() - start;
    EXPECT_LE(g_textWrites, 2 + static_cast<int>(spent / win32::PendingTexts::kIntervalMs));
    win32::Win32EventLoop events;
    char text[16] = {};
    while (::GetWindowTextA(hwnd, text, sizeof text), std::string(text) != "20000" && ::GetTickCount() - start < spent + 5000) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        events.pump();
    }
    EXPECT_STREQ(text, "20000");
}

// A flat check lights under the mouse; a check list's ticks are its rows'
// selections. A check box given colours of its own is drawn by the renderer (an
// owner-drawn button, which no visual style draws), so that its colours show with
// styles and without. Enter presses the focused button or the default, Esc closes
// where the form says so. The queue status sees paint and is asked at most once a
// millisecond.
TEST_F(Renderer, ControlsAnswerTheirWindowMessages) {
    auto& flat = form.add(ui::Kind::FlatCheck, "Check1", {10, 10, 150, 24}, "Tick");
    auto& list = form.add(ui::Kind::CheckList, "List2", {10, 40, 150, 100});
    auto& box = form.add(ui::Kind::CheckBox, "Check2", {170, 10, 240, 24}, "Scan this Folder at Startup (AutoLoad)");
    form.add(ui::Kind::ListBox, "List1", {170, 40, 100, 60});
    auto& other = form.add(ui::Kind::FlatButton, "cOther", {170, 110, 80, 24}, "Other");
    auto& save = form.add(ui::Kind::FlatButton, "cSave", {260, 110, 80, 24}, "Save");
    list.addItem("Scan DLL Files");
    list.addItem("Scan DRV Files");
    std::string pressed;
    list.onClick = [&] { pressed += "list "; };
    box.onClick = [&] { pressed += "box "; };
    save.onClick = [&] { pressed += "save "; };
    other.onClick = [&] { pressed += "other "; };
    form.onUnload = [&] { pressed += "close "; };
    form.defaultButton = &save;
    show();
    win32::Win32EventLoop events;
    events.pump();
    ::InvalidateRect(reinterpret_cast<HWND>(form.nativeWindow()), nullptr, TRUE);
    EXPECT_NE(events.queueStatus(queue::InputOrPaint) & (queue::Paint << 16), 0u);
    EXPECT_EQ(events.queueStatus(queue::InputOrPaint), 0u);  // asked again at once
    const DWORD start = ::GetTickCount();
    std::uint32_t later = 0;
    while (later == 0 && ::GetTickCount() - start < 2000) later = events.queueStatus(queue::InputOrPaint);
    EXPECT_NE(later & (queue::Paint << 16), 0u);  // the paint is still waiting

    HWND check = childNamed("Check1");
    const auto look = [&] { return std::make_pair(flat.foreColour(), flat.underlined()); };
    ::SendMessageA(check, WM_MOUSEMOVE, 0, MAKELPARAM(60, 10));  // over the caption
    EXPECT_EQ(look(), std::make_pair(ui::kBlue, true));
    ::SendMessageA(check, WM_MOUSEMOVE, 0, MAKELPARAM(4, 10));  // over the box
    EXPECT_EQ(look(), std::make_pair(ui::kBlack, false));
    ::SendMessageA(check, WM_MOUSEMOVE, 0, MAKELPARAM(60, 10));
    ::SendMessageA(check, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(look(), std::make_pair(ui::kBlack, false));
    HWND rows = childNamed("List2");
    list.setTicked(1, true);
    EXPECT_GT(::SendMessageA(rows, LB_GETSEL, 1, 0), 0);
    ::SendMessageA(rows, LB_SETSEL, TRUE, 0);  // what a click on the first row does
    command(rows, LBN_SELCHANGE);
    EXPECT_TRUE(list.ticked(0));
    list.setItem(0, "Scan 386, SYS Files");  // new texts keep the ticks
    EXPECT_GT(::SendMessageA(rows, LB_GETSEL, 0, 0) + ::SendMessageA(rows, LB_GETSEL, 1, 0), 1);

    HWND hwnd = childNamed("Check2");
    const auto type = [hwnd] { return ::GetWindowLongA(hwnd, GWL_STYLE) & BS_TYPEMASK; };
    const auto captionColours = [hwnd] {  // right of the box
        ::RedrawWindow(hwnd, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
        std::set<COLORREF> seen;
        HDC dc = ::GetDC(hwnd);
        for (int x = 20; x < 240; ++x)
            for (int y = 0; y < 24; ++y) seen.insert(::GetPixel(dc, x, y));
        ::ReleaseDC(hwnd, dc);
        return seen;
    };
    EXPECT_EQ(type(), BS_3STATE);  // in the system's colours, the system's own box
    box.setLook(ui::kWhite);
    box.setBackColour(0x800000);
    box.setValue(1);
    EXPECT_EQ(type(), BS_OWNERDRAW);
    auto seen = captionColours();
    EXPECT_TRUE(seen.count(0x800000) && seen.count(0xFFFFFF));  // white on dark blue
    box.setLook(ui::kBlack);
    box.setBackColour(0x0000FF);
    box.setValue(0);
    seen = captionColours();
    EXPECT_TRUE(seen.count(0x0000FF) && seen.count(0x000000) && !seen.count(0x800000));  // black on red
    command(hwnd, BN_CLICKED);
    EXPECT_EQ(box.value(), 1);
    box.setBackColour(ui::kSystemColour);
    EXPECT_EQ(type(), BS_3STATE);
    EXPECT_EQ(::SendMessageA(hwnd, BM_GETCHECK, 0, 0), BST_CHECKED);

    HWND top = reinterpret_cast<HWND>(form.nativeWindow());
    const auto key = [top](int id) { ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); };
    ::SetFocus(childNamed("List1"));
    key(IDOK);
    ::SetFocus(childNamed("cOther"));
    key(IDOK);
    key(IDCANCEL);
    form.closesOnEscape = true;
    key(IDCANCEL);
    EXPECT_EQ(pressed, "list box save other close ");
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
// shell-link object and the scripting host, and the update utility's record.
class OptionsPage : public WinTest {
protected:
    OptionsPage() {
        ::OleInitialize(nullptr);
        ctx.appPath = path("");
        ctx.settFile = path("Tarvelon.dat");
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
    EXPECT_FALSE(makeShortcut(ctx, path("Gone\\Tarvelon.lnk"), program, "", " /r", program, 0, 5) ||
                 makeShortcutWsh(ctx, path("Gone\\Tarvelon.lnk"), "Tarvelon", program, "/r") ||
                 files.canRead(path("Gone\\Tarvelon.lnk")));

    // The scripting host's name taken from the machine's registry for a moment.
    char clsid[64] = {};
    LONG size = sizeof clsid;
    ASSERT_EQ(::RegQueryValueA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID", clsid, &size), ERROR_SUCCESS);
    ::RegDeleteKeyA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID");
    const bool made = makeShortcutWsh(ctx, path("Scan.lnk"), "SecureShutDown", program, "/s");
    ::RegSetValueA(HKEY_CLASSES_ROOT, "WScript.Shell\\CLSID", REG_SZ, clsid, static_cast<DWORD>(std::strlen(clsid)));
    EXPECT_FALSE(made || files.canRead(path("Scan.lnk")));
}

// A shortcut that cannot be removed (a read-only one) stays as it is, ticked or
// not, and the save says saved all the same.
TEST_F(OptionsPage, ReadOnlyAutoLoadShortcutStaysWhateverTheSettingsPageSaves) {
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
    EXPECT_EQ(readFile("Tarvelon.lnk"), "kept");
    EXPECT_EQ(boxes.shown.size(), 2u);
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

// AppWatch's window calls over windows of the test's own, shown and hidden; one
// that refuses to close, and one that never answers and holds the program only for
// the answer time. Another program's window is the end-to-end journey's.
LRESULT CALLBACK testWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE && ::GetPropA(window, "refuses")) return 0;
    return ::DefWindowProcA(window, message, wParam, lParam);
}
constexpr const char* kClass = "TarvelonTestWindow";
HWND makeWindow(const std::string& title, bool shown) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = testWindowProc;
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.lpszClassName = kClass;
    ::RegisterClassA(&windowClass);  // once; later calls fail harmlessly
    return ::CreateWindowExA(0, kClass, title.c_str(), WS_OVERLAPPEDWINDOW | (shown ? WS_VISIBLE : 0), 0, 0, 120, 80,
                             nullptr, nullptr, ::GetModuleHandleA(nullptr), nullptr);
}
NativeWindow number(HWND window) { return reinterpret_cast<NativeWindow>(window); }

using AppWatchWindows = WinTest;

TEST_F(AppWatchWindows, TopWindowsAsTheSystemHasThem) {
    HWND shown = makeWindow("Tarvelon Test Shown", true);
    HWND hidden = makeWindow("Tarvelon Test Hidden", false);
    EXPECT_EQ(windows.titleBuffer(number(shown), 255), "Tarvelon Test Shown" + std::string(255 - 19, '\0'));
    EXPECT_EQ(windows.find(std::nullopt, "TARVELON TEST HIDDEN"), number(hidden));  // titles without regard to case
    EXPECT_EQ(windows.find(std::string(kClass), "Tarvelon Test Shown"), number(shown));
    EXPECT_EQ(windows.find(std::string("Edit"), "Tarvelon Test Shown") +
                  windows.find(std::string(), "Tarvelon Test Shown"), 0u);  // an empty class is no class
    windows.bringToTop(number(hidden));  // down the stacking order: above the one made after it
    NativeWindow first = windows.relative(windows.desktop(), 5);
    while (first && first != number(hidden) && first != number(shown)) first = windows.relative(first, 2);
    EXPECT_EQ(first, number(hidden));
    ::SetPropA(hidden, "refuses", reinterpret_cast<HANDLE>(1));
    windows.askToClose(number(hidden));
    EXPECT_TRUE(::IsWindow(hidden));  // it may refuse
    ::RemovePropA(hidden, "refuses");
    windows.askToClose(number(hidden));
    EXPECT_FALSE(::IsWindow(hidden));
    // A window that has gone: empty texts, no process, and nothing done.
    EXPECT_EQ(windows.titleBuffer(number(hidden), 255) + windows.classBuffer(0, 255), std::string(510, '\0'));
    EXPECT_EQ(windows.processId(number(hidden)) + windows.relative(number(hidden), 2), 0u);
    windows.bringToTop(0);
    windows.askToClose(0);
    ::DestroyWindow(shown);

    win32::Win32TopWindows impatient(200);  // the window's thread takes no messages until let go
    HANDLE release = ::CreateEventA(nullptr, TRUE, FALSE, nullptr), made = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HWND stuck = nullptr;
    std::thread owner([&] {
        stuck = makeWindow("Tarvelon Test Stuck", false);
        ::SetEvent(made);
        ::WaitForSingleObject(release, INFINITE);  // no message loop meanwhile
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageA(&message);
        ::DestroyWindow(stuck);
    });
    ::WaitForSingleObject(made, INFINITE);
    impatient.askToClose(number(stuck));
    EXPECT_TRUE(::IsWindow(stuck));
    ::SetEvent(release);
    owner.join();
    ::CloseHandle(release);
    ::CloseHandle(made);
}

}  // namespace
}  // namespace tv::test
