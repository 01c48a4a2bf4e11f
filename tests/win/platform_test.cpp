#include <set>

#include "core/file_utils.h"
#include "core/folder_search.h"
#include "core/text.h"
#include "platform/win32/win32_base.h"
#include "platform/win32/dll_search.h"
#include "platform/win32/pending_texts.h"
#include "platform/win32/win32_renderer.h"
#include "tests/win/win_fixture.h"
#include "ui/startup_folder.h"

namespace tv::test {
namespace {

class Platform : public WinTest {
protected:
    AppContext ctx{set()};
};

TEST_F(Platform, FileThereMeansReadableNow) {
    writeFile("empty.txt", "");
    files.makeFolder(path("folder"));
    EXPECT_TRUE(fileThere(ctx, path("empty.txt")));
    EXPECT_FALSE(fileThere(ctx, path("folder")));
    EXPECT_FALSE(fileThere(ctx, path("missing.txt")));
    writeFile("held.txt", "x");
    FileLock lock(path("held.txt"));
    ASSERT_TRUE(lock.held());
    EXPECT_FALSE(fileThere(ctx, path("held.txt")));
}

TEST_F(Platform, SystemFoldersEndInBackslash) {
    const std::string system = getSysDir(ctx);
    EXPECT_EQ(system.back(), '\\');
    EXPECT_TRUE(files.isFolder(system));
    EXPECT_TRUE(files.canRead(system + "kernel32.dll"));
    const std::string windows = getWinDir(ctx);
    EXPECT_EQ(windows.back(), '\\');
    EXPECT_TRUE(files.isFolder(windows));
    const std::string programs = getSpecialFolder(ctx);
    EXPECT_EQ(programs.back(), '\\');
    EXPECT_TRUE(files.isFolder(programs)) << programs;
    EXPECT_EQ(getSpecialFolder(ctx, 0x7FFF), "\\");  // a folder number the system does not know
    EXPECT_EQ(autoLoadShortcutPath(ctx).substr(getStartupFolder(ctx).size()), "\\Tarvelon.lnk");
}

TEST_F(Platform, TreeSearchFindsNestedFile) {
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
    files.makeFolder(path("walk\\Sub.DLL"));
    files.makeFolder(path("walk\\Hidden"));
    std::set<std::string> expected{".", "..", "Sub.DLL", "Hidden"};
    for (int i = 0; i < 200; ++i) {  // many hidden ones in a row
        const std::string name = "hidden" + std::to_string(i) + ".dll";
        writeFile("walk\\" + name, "x");
        ::SetFileAttributesA(path("walk\\" + name).c_str(), FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM);
        expected.insert(name);
    }
    for (const char* name : {"a.dll", "system.dll", "b.exe"}) {
        writeFile(std::string("walk\\") + name, "x");
        expected.insert(name);
    }
    ::SetFileAttributesA(path("walk\\system.dll").c_str(), FILE_ATTRIBUTE_SYSTEM);
    ::SetFileAttributesA(path("walk\\Hidden").c_str(), FILE_ATTRIBUTE_HIDDEN);
    std::set<std::string> names;
    for (std::string name = files.firstName(path("walk\\")); !name.empty(); name = files.nextName())
        names.insert(name);
    EXPECT_EQ(names, expected);
    EXPECT_EQ(files.firstName(path("no-such-folder\\")), "");
    EXPECT_EQ(files.nextName(), "");  // a failed start ends the listing before
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
    EXPECT_TRUE(done.currentFolderLeftOut);
    EXPECT_TRUE(done.systemFolderOnly);
    EXPECT_EQ(::LoadLibraryA("tvprobe.dll"), nullptr);
    HMODULE system = ::LoadLibraryA("msacm32.dll");
    EXPECT_NE(system, nullptr);
    if (system) ::FreeLibrary(system);
    ::SetCurrentDirectoryA(previous);
}

// The real renderer, driven through real window messages.
class Renderer : public WinTest {
protected:
    Renderer() : form("testForm", "Renderer Test", {0, 0, 300, 200}) {}
    std::string nameOf(HWND hwnd) {
        const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropA(hwnd, "TarvelonName")));
        char name[64] = {};
        ::GlobalGetAtomNameA(atom, name, sizeof name);
        return name;
    }
    HWND childNamed(const std::string& name) {
        HWND top = reinterpret_cast<HWND>(form.nativeWindow());
        for (HWND child = ::FindWindowExA(top, nullptr, nullptr, nullptr); child;
             child = ::FindWindowExA(top, child, nullptr, nullptr)) {
            if (nameOf(child) == name) return child;
            for (HWND inner = ::FindWindowExA(child, nullptr, nullptr, nullptr); inner;
                 inner = ::FindWindowExA(child, inner, nullptr, nullptr))
                if (nameOf(inner) == name) return inner;
        }
        return nullptr;
    }
    std::string textOf(HWND hwnd) {
        char text[256] = {};
        ::GetWindowTextA(hwnd, text, sizeof text);
        return text;
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
    real.attach(form);
    form.setVisible(true);
    HWND hwnd = childNamed("l_dll");
    g_staticProc = reinterpret_cast<WNDPROC>(
        ::SetWindowLongPtrA(hwnd, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(countingProc)));
    g_textWrites = 0;
    const DWORD start = ::GetTickCount();
    for (int n = 1; n <= 20000; ++n) label.setCaption(std::to_string(n));
    const DWORD spent = ::GetTickCount() - start;
    EXPECT_LE(g_textWrites, 2 + static_cast<int>(spent / win32::PendingTexts::kIntervalMs));
    win32::Win32EventLoop events;
    while (textOf(hwnd) != "20000" && ::GetTickCount() - start < spent + 5000) {
        ::MsgWaitForMultipleObjects(0, nullptr, FALSE, 100, QS_ALLINPUT);
        events.pump();
    }
    EXPECT_EQ(textOf(hwnd), "20000");
}

TEST_F(Renderer, FlatCheckCaptionFollowsTheMouse) {
    auto& box = form.add(ui::Kind::FlatCheck, "Check1", {10, 10, 150, 24}, "Tick");
    real.attach(form);
    form.setVisible(true);
    HWND hwnd = childNamed("Check1");
    ::SendMessageA(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(60, 10));  // over the caption
    EXPECT_EQ(box.foreColour(), ui::kBlue);
    EXPECT_TRUE(box.underlined());
    ::SendMessageA(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(4, 10));  // over the box
    EXPECT_EQ(box.foreColour(), ui::kBlack);
    EXPECT_FALSE(box.underlined());
    ::SendMessageA(hwnd, WM_MOUSEMOVE, 0, MAKELPARAM(60, 10));
    ::SendMessageA(hwnd, WM_MOUSELEAVE, 0, 0);
    EXPECT_EQ(box.foreColour(), ui::kBlack);
    EXPECT_FALSE(box.underlined());
}

TEST_F(Renderer, CheckListTicksAreItsRowsSelections) {
    auto& list = form.add(ui::Kind::CheckList, "List2", {10, 10, 150, 100});
    list.addItem("Scan DLL Files");
    list.addItem("Scan DRV Files");
    int clicks = 0;
    list.onClick = [&] { ++clicks; };
    real.attach(form);
    form.setVisible(true);
    HWND hwnd = childNamed("List2");
    list.setTicked(1, true);
    EXPECT_GT(::SendMessageA(hwnd, LB_GETSEL, 1, 0), 0);
    ::SendMessageA(hwnd, LB_SETSEL, TRUE, 0);  // what a click on the first row does
    ::SendMessageA(::GetParent(hwnd), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(hwnd), LBN_SELCHANGE),
                   reinterpret_cast<LPARAM>(hwnd));
    EXPECT_TRUE(list.ticked(0));
    EXPECT_EQ(clicks, 1);
    list.setItem(0, "Scan 386, SYS Files");  // new texts keep the ticks
    EXPECT_GT(::SendMessageA(hwnd, LB_GETSEL, 0, 0), 0);
    EXPECT_GT(::SendMessageA(hwnd, LB_GETSEL, 1, 0), 0);
}

// A check box given colours of its own is drawn by the renderer (an owner-drawn
// button, which no visual style draws), so that its colours show with styles
// and without: white on dark blue and black on red stand in its pixels.
TEST_F(Renderer, CheckBoxInColoursOfItsOwnIsDrawnInThem) {
    auto& box = form.add(ui::Kind::CheckBox, "Check1", {10, 10, 240, 24}, "Scan this Folder at Startup (AutoLoad)");
    int clicks = 0;
    box.onClick = [&] { ++clicks; };
    real.attach(form);
    form.setVisible(true);
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
    EXPECT_TRUE(seen.count(0x800000));
    EXPECT_TRUE(seen.count(0xFFFFFF));

    box.setLook(ui::kBlack);
    box.setBackColour(0x0000FF);
    box.setValue(0);
    seen = captionColours();
    EXPECT_TRUE(seen.count(0x0000FF));
    EXPECT_TRUE(seen.count(0x000000));
    EXPECT_FALSE(seen.count(0x800000));

    ::SendMessageA(::GetParent(hwnd), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(hwnd), BN_CLICKED),
                   reinterpret_cast<LPARAM>(hwnd));
    EXPECT_EQ(box.value(), 1);
    EXPECT_EQ(clicks, 1);
    box.setBackColour(ui::kSystemColour);
    EXPECT_EQ(type(), BS_3STATE);
    EXPECT_EQ(::SendMessageA(hwnd, BM_GETCHECK, 0, 0), BST_CHECKED);
}

TEST_F(Renderer, EnterPressesTheFocusedButtonOrTheDefaultAndEscCloses) {
    form.add(ui::Kind::ListBox, "List1", {10, 10, 100, 60});
    auto& other = form.add(ui::Kind::FlatButton, "cOther", {10, 80, 80, 24}, "Other");
    auto& save = form.add(ui::Kind::FlatButton, "cSave", {100, 80, 80, 24}, "Save");
    int saves = 0, others = 0, closes = 0;
    save.onClick = [&] { ++saves; };
    other.onClick = [&] { ++others; };
    form.onUnload = [&] { ++closes; };
    form.defaultButton = &save;
    real.attach(form);
    form.setVisible(true);
    HWND top = reinterpret_cast<HWND>(form.nativeWindow());
    ::SetFocus(childNamed("List1"));
    ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    EXPECT_EQ(saves, 1);
    ::SetFocus(childNamed("cOther"));
    ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
    EXPECT_EQ(others, 1);
    EXPECT_EQ(saves, 1);
    ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_EQ(closes, 0);  // only where the form says so
    form.closesOnEscape = true;
    ::SendMessageA(top, WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED), 0);
    EXPECT_EQ(closes, 1);
}

TEST_F(Renderer, QueueStatusSeesPaintAndIsAskedAtMostOnceAMillisecond) {
    real.attach(form);
    form.setVisible(true);
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
