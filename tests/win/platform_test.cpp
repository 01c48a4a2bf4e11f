// The real system under the program's small rules: files and folders, the
// settings file through the system's profile calls, checksums of files that
// change while they are read, scanner processes, the DLL search, and the
// renderer driven through real window messages.
#include <set>

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
    files.makeFolder(path("a"));
    files.makeFolder(path("a\\b"));
    writeFile("a\\b\\scanner.exe", "MZ");
    files.makeFolder(path("a\\absent.exe"));  // a folder is no program
    int entered = 0;
    FolderSearch search(ctx, [&](const std::string&) { return ++entered, true; });
    EXPECT_TRUE(sameText(search.findInTree(path(""), "SCANNER.EXE"), path("a\\b\\scanner.exe")));
    const int walked = entered;
    EXPECT_EQ(search.findInTree(path("A\\B"), "scanner.exe"), "");  // the same folder spelled otherwise: searched
    EXPECT_EQ(entered, walked);
    EXPECT_EQ(FolderSearch(ctx, [](const std::string&) { return true; }).findInTree(path(""), "absent.exe"), "");
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
    const std::vector<std::uint8_t> zeros(1 << 20, 0);
    std::uint32_t state = 0xFFFFFFFFu;
    for (int i = 0; i < 4096; ++i) state = hash::crc32Update(state, zeros.data(), zeros.size());
    state = hash::crc32Update(hash::crc32Update(state, zeros.data(), 5), reinterpret_cast<const std::uint8_t*>("tail bytes"), 10);
    ctx.readBuffer = 524288;
    EXPECT_EQ(hash::getChecksum(ctx, path("big.bin")), hash::hexText(~state));
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
    HMODULE planted = ::LoadLibraryA("tvprobe.dll");
    EXPECT_NE(planted, nullptr);  // found in the current folder, as the system searches by default
    if (planted) ::FreeLibrary(planted);
    const win32::DllSearch done = win32::narrowDllSearch();
    EXPECT_TRUE(done.currentFolderLeftOut && done.systemFolderOnly);
    EXPECT_EQ(::LoadLibraryA("tvprobe.dll"), nullptr);
    HMODULE system = ::LoadLibraryA("msacm32.dll");
    EXPECT_NE(system, nullptr);
    if (system) ::FreeLibrary(system);
    ::SetCurrentDirectoryA(previous);
}

class Renderer : public WinTest {
protected:
    Renderer() : form("testForm", "Renderer Test", {0, 0, 300, 200}) {}
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

TEST_F(Renderer, FlatCheckLightsUnderTheMouseAndCheckListTicksAreItsRowsSelections) {
    auto& box = form.add(ui::Kind::FlatCheck, "Check1", {10, 10, 150, 24}, "Tick");
    auto& list = form.add(ui::Kind::CheckList, "List2", {10, 40, 150, 100});
    list.addItem("Scan DLL Files");
    list.addItem("Scan DRV Files");
    int clicks = 0;
    list.onClick = [&] { ++clicks; };
    show();
    HWND check = childNamed("Check1");
    const auto look = [&] { return std::make_pair(box.foreColour(), box.underlined()); };
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
    EXPECT_EQ(clicks, 1);
    list.setItem(0, "Scan 386, SYS Files");  // new texts keep the ticks
    EXPECT_GT(::SendMessageA(rows, LB_GETSEL, 0, 0) + ::SendMessageA(rows, LB_GETSEL, 1, 0), 1);
}

// A check box given colours of its own is drawn by the renderer (an owner-drawn
// button, which no visual style draws), so that its colours show with styles
// and without: white on dark blue and black on red stand in its pixels.
TEST_F(Renderer, CheckBoxInColoursOfItsOwnIsDrawnInThem) {
    auto& box = form.add(ui::Kind::CheckBox, "Check1", {10, 10, 240, 24}, "Scan this Folder at Startup (AutoLoad)");
    int clicks = 0;
    box.onClick = [&] { ++clicks; };
    show();
    HWND hwnd = childNamed("Check1");
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
    EXPECT_TRUE(seen.count(0x800000) && seen.count(0xFFFFFF));
    box.setLook(ui::kBlack);
    box.setBackColour(0x0000FF);
    box.setValue(0);
    seen = captionColours();
    EXPECT_TRUE(seen.count(0x0000FF) && seen.count(0x000000) && !seen.count(0x800000));
    command(hwnd, BN_CLICKED);
    EXPECT_EQ(std::make_pair(box.value(), clicks), std::make_pair(1, 1));
    box.setBackColour(ui::kSystemColour);
    EXPECT_EQ(type(), BS_3STATE);
    EXPECT_EQ(::SendMessageA(hwnd, BM_GETCHECK, 0, 0), BST_CHECKED);
}

TEST_F(Renderer, EnterPressesTheFocusedButtonOrTheDefaultAndEscClosesWhereTheFormSaysSo) {
    form.add(ui::Kind::ListBox, "List1", {10, 10, 100, 60});
    auto& other = form.add(ui::Kind::FlatButton, "cOther", {10, 80, 80, 24}, "Other");
    auto& save = form.add(ui::Kind::FlatButton, "cSave", {100, 80, 80, 24}, "Save");
    std::string pressed;
    save.onClick = [&] { pressed += "save "; };
    other.onClick = [&] { pressed += "other "; };
    form.onUnload = [&] { pressed += "close "; };
    form.defaultButton = &save;
    show();
    HWND top = reinterpret_cast<HWND>(form.nativeWindow());
    const auto key = [top](int id) { ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), 0); };
    ::SetFocus(childNamed("List1"));
    key(IDOK);
    ::SetFocus(childNamed("cOther"));
    key(IDOK);
    key(IDCANCEL);
    form.closesOnEscape = true;
    key(IDCANCEL);
    EXPECT_EQ(pressed, "save other close ");
}

TEST_F(Renderer, QueueStatusSeesPaintAndIsAskedAtMostOnceAMillisecond) {
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
}

}  // namespace
}  // namespace tv::test
