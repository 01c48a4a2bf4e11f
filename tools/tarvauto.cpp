// tarvauto: drives the program's windows from another process for the
// end-to-end tests. Every wait has a deadline (--timeout milliseconds, default
// 20000); a command that does not find what it waits for exits with 1 and says
// why on standard error.
//
//   tarvauto start "<command line>"          start it as typed; prints the process id
//   tarvauto wait-exit <pid> [<title>]       wait for the process to end; prints its exit code
//                                            (with a title: fails as soon as the process shows such a window)
//   tarvauto wait-window <title>             wait for a visible top-level window
//   tarvauto wait-no-window <title>          wait until no visible window has that title
//   tarvauto box-text <title>                the prompt of a message box
//   tarvauto press <title> <caption>         press a button of a window by its caption
//   tarvauto caption <title> <name>          caption of the control named <name>
//   tarvauto wait-caption <title> <name> <text>  wait until that caption reads <text>
//   tarvauto click <title> <name>            press the control named <name>
//   tarvauto items <title> <name>            the items of a list or drop-down list, one per line
//   tarvauto shown <title> <name>            1 when the control and its frames are visible, else 0
//   tarvauto settle <title>                  repaint the window now; prints its client area on the screen, "W H X Y"
//   tarvauto restore <title>                 bring a minimised window back to its normal size
//   tarvauto move <title> <x> <y>            put the window's top left corner there on the screen
//   tarvauto close <title>                   press the window's close box
//   tarvauto tab-order <title>               the names of the controls the Tab key walks, in its order
//   tarvauto choose <title> <name> <index>   choose an item of a list or drop-down list, as a click does
//   tarvauto tick <title> <name> <index>     flip the box of a check list's item
//   tarvauto browse <prompt> <folder>        answer the folder dialog showing <prompt> with <folder>
//   tarvauto open-file <title> <file>        answer the open-file dialog titled <title>: type <file> and
//                                            press Open, or press Cancel when <file> is empty
//   tarvauto tree <title> <name>             the full path of every node of a tree, one per line
//   tarvauto tree-select <title> <name> <path>  choose the node with that full path, as a click does
//   tarvauto tree-open <title> <name> <path> <0|1>  choose the node and close (0) or open (1) it by the keyboard
//   tarvauto key <title> <name> <code> [down|up]  a key pressed and released (or only pressed or released)
//                                            on the control; a <name> of "-" stands for the window itself
//   tarvauto type <title> <name> <text>      replace the text of a text box, as typing does
//   tarvauto mouse <title> <name> move|down|up  the mouse moving, or its left button, over the control
//   tarvauto show-window <title> [hidden]    a window of its own (class TarvautoWindow) with that title, shown
//                                            or hidden; exits with 0 once it is asked to close, with 1 at the deadline
//
//   tarvauto link <file>                     the target and the arguments of a shortcut file, one per line,
//                                            as the system's shell-link object reads them
//
// A <title> of the form @name stands for the window whose TarvelonName is name.
//   tarvauto kill <pid>                      end a process left running by a failed test
//   tarvauto windows                         list visible top-level windows (for diagnosis)
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>
#include <commctrl.h>
#include <objbase.h>
#include <shlobj.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tools/file_dialog_answer.h"

namespace {

DWORD g_timeoutMs = 20000;

std::string windowText(HWND hwnd) {
    const int length = ::GetWindowTextLengthA(hwnd);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(::GetWindowTextA(hwnd, text.data(), length + 1)));
    return text;
}

std::string className(HWND hwnd) {
    char name[256] = {};
    ::GetClassNameA(hwnd, name, sizeof name);
    return name;
}

std::string controlName(HWND hwnd) {
    const auto atom = static_cast<ATOM>(reinterpret_cast<ULONG_PTR>(::GetPropA(hwnd, "TarvelonName")));
    if (!atom) return {};
    char name[256] = {};
    ::GlobalGetAtomNameA(atom, name, sizeof name);
    return name;
}

std::string withoutAccelerator(const std::string& caption) {
    std::string out;
    for (char c : caption)
        if (c != '&') out += c;
    return out;
}

std::vector<HWND> topLevelWindows() {
    std::vector<HWND> found;
    ::EnumWindows([](HWND hwnd, LPARAM out) -> BOOL {
        if (::IsWindowVisible(hwnd)) reinterpret_cast<std::vector<HWND>*>(out)->push_back(hwnd);
        return TRUE;
    }, reinterpret_cast<LPARAM>(&found));
    return found;
}

std::vector<HWND> childWindows(HWND parent) {
    std::vector<HWND> found;
    ::EnumChildWindows(parent, [](HWND hwnd, LPARAM out) -> BOOL {
        reinterpret_cast<std::vector<HWND>*>(out)->push_back(hwnd);
        return TRUE;
    }, reinterpret_cast<LPARAM>(&found));
    return found;
}

// Polls `probe` until it yields a window or the deadline passes.
HWND waitFor(const std::function<HWND()>& probe) {
    const DWORD start = ::GetTickCount();
    for (;;) {
        if (HWND hwnd = probe()) return hwnd;
        if (::GetTickCount() - start > g_timeoutMs) return nullptr;
        ::Sleep(50);
    }
}

HWND findTopLevel(const std::string& title) {
    const bool byName = !title.empty() && title[0] == '@';
    for (HWND hwnd : topLevelWindows())
        if (byName ? controlName(hwnd) == title.substr(1) : windowText(hwnd) == title) return hwnd;
    return nullptr;
}

HWND waitTopLevel(const std::string& title) {
    HWND hwnd = waitFor([&] { return findTopLevel(title); });
    if (!hwnd) std::fprintf(stderr, "tarvauto: no window titled \"%s\"\n", title.c_str());
    return hwnd;
}

HWND waitChild(const std::string& title, const std::function<bool(HWND)>& match,
               const std::string& what) {
    HWND hwnd = waitFor([&]() -> HWND {
        HWND top = findTopLevel(title);
        if (!top) return nullptr;
        for (HWND child : childWindows(top))
            if (match(child)) return child;
        return nullptr;
    });
    if (!hwnd) std::fprintf(stderr, "tarvauto: no %s in \"%s\"\n", what.c_str(), title.c_str());
    return hwnd;
}

// Every failure says why: a failure without a word is Wine not starting the
// helper at all, which the scenarios try again.
int fail(const char* why) {
    std::fprintf(stderr, "tarvauto: %s\n", why);
    return 1;
}
int fail() { return 1; }  // the reason is already written

// Does what a click on a button does: its parent hears BN_CLICKED. Posting the
// notification does not depend on where the mouse is or whether the window has
// been activated yet, as a simulated click would.
void pressButton(HWND button) {
    ::PostMessageA(::GetParent(button), WM_COMMAND,
                   MAKEWPARAM(::GetDlgCtrlID(button), BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// Asks a list or tree of another process, without hanging on a window that does
// not answer.
LRESULT askWindow(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (!::SendMessageTimeoutW(window, message, wParam, lParam, SMTO_ABORTIFHUNG, g_timeoutMs, &result)) return LB_ERR;
    return static_cast<LRESULT>(result);
}

// Texts are asked in UTF-16, which the system copies across processes as it
// is (Wine hands a narrow request the wide text), then put in the ANSI code page.
std::string ansiText(const std::vector<wchar_t>& wide) {
    const int size = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text.data(), size, nullptr, nullptr);
    return text.c_str();
}

// A control's text, asked of its window: a text box of another process keeps
// its text where the plain window text call does not look.
std::string controlText(HWND control) {
    const LRESULT length = askWindow(control, WM_GETTEXTLENGTH, 0, 0);
    if (length <= 0) return {};
    std::vector<wchar_t> wide(static_cast<std::size_t>(length) + 1, L'\0');
    askWindow(control, WM_GETTEXT, wide.size(), reinterpret_cast<LPARAM>(wide.data()));
    return ansiText(wide);
}

std::vector<std::string> listItems(HWND list) {
    const bool combo = className(list) == "ComboBox";
    std::vector<std::string> items;
    const LRESULT count = askWindow(list, combo ? CB_GETCOUNT : LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = askWindow(list, combo ? CB_GETLBTEXTLEN : LB_GETTEXTLEN, static_cast<WPARAM>(i), 0);
        if (length == LB_ERR) break;
        std::vector<wchar_t> wide(static_cast<std::size_t>(length) + 1, L'\0');
        askWindow(list, combo ? CB_GETLBTEXT : LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide.data()));
        items.push_back(ansiText(wide));
    }
    return items;
}

// Chooses, ticks or unticks an item the way a click does: the list changes and
// its parent hears the list's notification.
int chooseItem(HWND list, int index, bool tick) {
    const bool combo = className(list) == "ComboBox";
    LRESULT done = 0;
    if (combo)
        done = askWindow(list, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    else if (tick)
        done = askWindow(list, LB_SETSEL, askWindow(list, LB_GETSEL, static_cast<WPARAM>(index), 0) <= 0,
                       static_cast<LPARAM>(index));
    else
        done = askWindow(list, LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (done == LB_ERR) {
        std::fprintf(stderr, "tarvauto: no item %d\n", index);
        return fail();
    }
    const WORD code = combo ? CBN_SELCHANGE : LBN_SELCHANGE;
    ::PostMessageA(::GetParent(list), WM_COMMAND, MAKEWPARAM(::GetDlgCtrlID(list), code),
                   reinterpret_cast<LPARAM>(list));
    return 0;
}

// Memory inside another process, for messages whose answers are written
// through pointers.
class RemoteBuffer {
public:
    RemoteBuffer(HWND window, std::size_t bytes) : bytes_(bytes) {
        DWORD pid = 0;
        ::GetWindowThreadProcessId(window, &pid);
        process_ = ::OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, pid);
        if (process_) address_ = ::VirtualAllocEx(process_, nullptr, bytes, MEM_COMMIT, PAGE_READWRITE);
    }
    ~RemoteBuffer() {
        if (address_) ::VirtualFreeEx(process_, address_, 0, MEM_RELEASE);
        if (process_) ::CloseHandle(process_);
    }
    RemoteBuffer(const RemoteBuffer&) = delete;
    RemoteBuffer& operator=(const RemoteBuffer&) = delete;
    bool valid() const { return address_ != nullptr; }
    char* at(std::size_t offset) const { return static_cast<char*>(address_) + offset; }
    bool write(std::size_t offset, const void* data, std::size_t size) const {
        return ::WriteProcessMemory(process_, at(offset), data, size, nullptr) != 0;
    }
    bool read(std::size_t offset, void* data, std::size_t size) const {
        return ::ReadProcessMemory(process_, at(offset), data, size, nullptr) != 0;
    }

private:
    std::size_t bytes_;
    HANDLE process_ = nullptr;
    void* address_ = nullptr;
};

// The text of a tree item of another process.
std::string treeItemText(HWND tree, HTREEITEM item, const RemoteBuffer& remote) {
    constexpr std::size_t kChars = 260;
    TVITEMW request{};
    request.mask = TVIF_TEXT;
    request.hItem = item;
    request.pszText = reinterpret_cast<LPWSTR>(remote.at(sizeof request));
    request.cchTextMax = kChars;
    std::wstring text(kChars, L'\0');
    remote.write(sizeof request, text.data(), kChars * sizeof(wchar_t));
    remote.write(0, &request, sizeof request);
    askWindow(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(remote.at(0)));
    remote.read(sizeof request, text.data(), kChars * sizeof(wchar_t));
    char narrow[kChars * 2] = {};
    ::WideCharToMultiByte(CP_ACP, 0, text.c_str(), -1, narrow, sizeof narrow, nullptr, nullptr);
    return narrow;
}

// The first child of `parent` (expanded first) whose text `matches`; with
// `depth` 2 the grandchildren are searched as well.
HTREEITEM findTreeItem(HWND tree, HTREEITEM parent, const std::function<bool(const std::string&)>& matches,
                       const RemoteBuffer& remote, int depth = 1) {
    askWindow(tree, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
    for (auto child = reinterpret_cast<HTREEITEM>(askWindow(tree, TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(parent)));
         child; child = reinterpret_cast<HTREEITEM>(askWindow(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(child)))) {
        if (matches(treeItemText(tree, child, remote))) return child;
        if (depth > 1)
            if (HTREEITEM found = findTreeItem(tree, child, matches, remote, depth - 1)) return found;
    }
    return nullptr;
}

// Every node of a tree of another process, depth first, with its full path.
void walkTree(HWND tree, HTREEITEM parent, const std::string& path, const RemoteBuffer& remote,
              const std::function<void(HTREEITEM, const std::string&)>& visit) {
    const WPARAM first = parent ? TVGN_CHILD : TVGN_ROOT;
    for (auto item = reinterpret_cast<HTREEITEM>(askWindow(tree, TVM_GETNEXTITEM, first, reinterpret_cast<LPARAM>(parent)));
         item; item = reinterpret_cast<HTREEITEM>(askWindow(tree, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)))) {
        const std::string full = (path.empty() ? "" : path + "\\") + treeItemText(tree, item, remote);
        visit(item, full);
        walkTree(tree, item, full, remote, visit);
    }
}

HTREEITEM treeItemAt(HWND tree, const std::string& fullPath, const RemoteBuffer& remote) {
    HTREEITEM found = nullptr;
    walkTree(tree, nullptr, "", remote, [&](HTREEITEM item, const std::string& path) {
        if (!found && path == fullPath) found = item;
    });
    if (!found) std::fprintf(stderr, "tarvauto: no node %s\n", fullPath.c_str());
    return found;
}

// A point in the middle of a control, as a mouse message carries it.
LPARAM middleOf(HWND window) {
    RECT area{};
    ::GetClientRect(window, &area);
    return MAKELPARAM(area.right / 2, area.bottom / 2);
}

// The folder dialog of another process: its tree is opened down to `folder`
// ("C:\\A\\B"), the folder is selected, and OK is pressed. The drive is the
// item whose text holds "(C:)", below the desktop or one level further down.
int answerFolderDialog(HWND dialog, const std::string& folder) {
    HWND tree = nullptr;
    for (HWND child : childWindows(dialog))
        if (className(child) == "SysTreeView32") tree = child;
    RemoteBuffer remote(dialog, sizeof(TVITEMW) + 260 * sizeof(wchar_t));
    if (!tree || !remote.valid() || folder.size() < 2) return fail("the folder dialog has no tree to open");
    auto item = reinterpret_cast<HTREEITEM>(askWindow(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
    const std::string drive = "(" + folder.substr(0, 2) + ")";
    item = findTreeItem(tree, item, [&](const std::string& text) { return text.find(drive) != std::string::npos; },
                        remote, 2);
    std::size_t start = 3;
    while (item && start < folder.size()) {
        const std::size_t end = std::min(folder.find('\\', start), folder.size());
        const std::string name = folder.substr(start, end - start);
        item = findTreeItem(tree, item, [&](const std::string& text) { return ::lstrcmpiA(text.c_str(), name.c_str()) == 0; },
                            remote);
        start = end + 1;
    }
    if (!item) {
        std::fprintf(stderr, "tarvauto: %s is not in the folder dialog\n", folder.c_str());
        return fail();
    }
    askWindow(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
    HWND ok = ::GetDlgItem(dialog, IDOK);
    if (!ok) return fail("the folder dialog has no OK button");
    pressButton(ok);
    return 0;
}

// A window that closes when asked (WM_CLOSE), as an ordinary program's does,
// and gives up by itself at the deadline.
int showWindow(const std::string& title, bool hidden) {
    constexpr UINT_PTR kDeadline = 1;
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = [](HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == WM_TIMER && wParam == kDeadline) {
            ::SetPropA(hwnd, "expired", reinterpret_cast<HANDLE>(1));
            ::DestroyWindow(hwnd);
            return 0;
        }
        if (message == WM_DESTROY) {
            const bool expired = ::GetPropA(hwnd, "expired") != nullptr;
            if (expired) std::fprintf(stderr, "tarvauto: nobody closed the window\n");
            ::PostQuitMessage(expired ? 1 : 0);
        }
        return ::DefWindowProcA(hwnd, message, wParam, lParam);
    };
    windowClass.hInstance = ::GetModuleHandleA(nullptr);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "TarvautoWindow";
    ::RegisterClassA(&windowClass);
    HWND window = ::CreateWindowExA(0, windowClass.lpszClassName, title.c_str(),
                                    WS_OVERLAPPEDWINDOW | (hidden ? 0 : WS_VISIBLE), 700, 40, 240, 120, nullptr,
                                    nullptr, windowClass.hInstance, nullptr);
    if (!window) return fail("cannot make the window");
    ::SetTimer(window, kDeadline, g_timeoutMs, nullptr);
    MSG message;
    while (::GetMessageA(&message, nullptr, 0, 0) > 0) ::DispatchMessageA(&message);
    return static_cast<int>(message.wParam);
}

int start(const std::string& commandLine) {
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    if (!::CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                          &startup, &started)) {
        std::fprintf(stderr, "tarvauto: cannot start %s (error %lu)\n", commandLine.c_str(),
                     ::GetLastError());
        return fail();
    }
    std::printf("%lu\n", started.dwProcessId);
    ::CloseHandle(started.hThread);
    ::CloseHandle(started.hProcess);
    return 0;
}

// Whether a process shows a top-level window with that title.
bool showsWindow(DWORD pid, const std::string& title) {
    for (HWND hwnd : topLevelWindows()) {
        DWORD owner = 0;
        ::GetWindowThreadProcessId(hwnd, &owner);
        if (owner == pid && windowText(hwnd) == title) return true;
    }
    return false;
}

int waitExit(DWORD pid, const std::string& neverShown) {
    HANDLE process = ::OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, pid);
    if (!process) {
        std::printf("gone\n");  // already ended and reaped
        return 0;
    }
    const DWORD start = ::GetTickCount();
    DWORD waited = WAIT_TIMEOUT;
    while (waited == WAIT_TIMEOUT && ::GetTickCount() - start <= g_timeoutMs) {
        if (!neverShown.empty() && showsWindow(pid, neverShown)) {
            std::fprintf(stderr, "tarvauto: process %lu shows \"%s\"\n", pid, neverShown.c_str());
            ::CloseHandle(process);
            return fail();
        }
        waited = ::WaitForSingleObject(process, neverShown.empty() ? g_timeoutMs : 20);
    }
    DWORD code = 0;
    ::GetExitCodeProcess(process, &code);
    ::CloseHandle(process);
    if (waited != WAIT_OBJECT_0) {
        std::fprintf(stderr, "tarvauto: process %lu still running\n", pid);
        return fail();
    }
    std::printf("%lu\n", code);
    return 0;
}

// Reads a shortcut file through the shell-link object, as Explorer does
// before it starts one.
int printLink(const std::string& file) {
    ::CoInitialize(nullptr);
    IShellLinkA* link = nullptr;
    IPersistFile* persist = nullptr;
    char target[MAX_PATH + 1] = {}, arguments[1024] = {};
    const std::wstring wide(file.begin(), file.end());
    const bool read =
        SUCCEEDED(::CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkA,
                                     reinterpret_cast<void**>(&link))) &&
        SUCCEEDED(link->QueryInterface(IID_IPersistFile, reinterpret_cast<void**>(&persist))) &&
        SUCCEEDED(persist->Load(wide.c_str(), STGM_READ)) &&
        SUCCEEDED(link->GetPath(target, sizeof target, nullptr, SLGP_RAWPATH)) &&
        SUCCEEDED(link->GetArguments(arguments, sizeof arguments));
    if (persist) persist->Release();
    if (link) link->Release();
    if (!read) {
        std::fprintf(stderr, "tarvauto: %s is no shortcut\n", file.c_str());
        return 1;
    }
    std::printf("%s\n%s\n", target, arguments);
    return 0;
}

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() >= 2 && args[0] == "--timeout") {
        g_timeoutMs = static_cast<DWORD>(std::strtoul(args[1].c_str(), nullptr, 10));
        args.erase(args.begin(), args.begin() + 2);
    }
    if (args.empty()) return fail("no command given");
    const std::string& command = args[0];
    auto arg = [&](std::size_t i) { return i < args.size() ? args[i] : std::string(); };

    if (command == "start") return start(arg(1));
    if (command == "wait-exit") return waitExit(std::strtoul(arg(1).c_str(), nullptr, 10), arg(2));
    if (command == "kill") {
        HANDLE process = ::OpenProcess(PROCESS_TERMINATE, FALSE, std::strtoul(arg(1).c_str(), nullptr, 10));
        if (process) {
            ::TerminateProcess(process, 99);
            ::CloseHandle(process);
        }
        return 0;
    }
    if (command == "windows") {
        for (HWND hwnd : topLevelWindows())
            std::printf("%s\t%s\n", className(hwnd).c_str(), windowText(hwnd).c_str());
        return 0;
    }
    if (command == "wait-window") return waitTopLevel(arg(1)) ? 0 : fail();
    if (command == "show-window") return showWindow(arg(1), arg(2) == "hidden");
    if (command == "wait-no-window") {
        const std::string title = arg(1);
        HWND none = waitFor([&]() -> HWND {
            return findTopLevel(title) ? nullptr : reinterpret_cast<HWND>(1);
        });
        return none ? 0 : fail();
    }
    if (command == "box-text") {
        HWND prompt = waitChild(arg(1), [](HWND h) { return ::GetDlgCtrlID(h) == 0xFFFF; },
                                "message box prompt");
        if (!prompt) return fail();
        std::fwrite(windowText(prompt).data(), 1, windowText(prompt).size(), stdout);
        return 0;
    }
    if (command == "press") {
        const std::string caption = arg(2);
        HWND button = waitChild(arg(1), [&](HWND h) {
            return className(h) == "Button" && withoutAccelerator(windowText(h)) == caption;
        }, "button \"" + caption + "\"");
        if (!button) return fail();
        HWND box = ::GetAncestor(button, GA_ROOT);
        pressButton(button);
        // A message box closes on its answer: wait for it, so that the next box
        // looked for is not this one.
        if (className(box) == "#32770" &&
            !waitFor([&]() -> HWND { return ::IsWindow(box) && ::IsWindowVisible(box) ? nullptr : box; })) {
            std::fprintf(stderr, "tarvauto: \"%s\" did not close\n", arg(1).c_str());
            return fail();
        }
        return 0;
    }
    if (command == "wait-caption") {
        const std::string name = arg(2), text = arg(3);
        HWND control = waitChild(arg(1), [&](HWND h) { return controlName(h) == name && controlText(h) == text; },
                                 "control " + name + " reading \"" + text + "\"");
        return control ? 0 : fail();
    }
    if (command == "tab-order") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        HWND first = ::GetNextDlgTabItem(window, nullptr, FALSE);
        int count = 0;
        for (HWND at = first; at && count < 500; ++count) {
            std::printf("%s\n", controlName(at).c_str());
            at = ::GetNextDlgTabItem(window, at, FALSE);
            if (at == first) break;
        }
        return 0;
    }
    if (command == "close") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        ::PostMessageA(window, WM_CLOSE, 0, 0);
        return 0;
    }
    if (command == "move") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        ::SetWindowPos(window, nullptr, std::atoi(arg(2).c_str()), std::atoi(arg(3).c_str()), 0, 0,
                       SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        return 0;
    }
    if (command == "restore") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        ::ShowWindow(window, SW_RESTORE);
        return 0;
    }
    if (command == "choose" || command == "tick") {
        const std::string name = arg(2);
        HWND list = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "list " + name);
        if (!list) return fail();
        return chooseItem(list, std::atoi(arg(3).c_str()), command == "tick");
    }
    if (command == "browse") {
        const std::string prompt = arg(1);
        HWND dialog = waitFor([&]() -> HWND {
            for (HWND top : topLevelWindows())
                for (HWND child : childWindows(top))
                    if (className(child) == "Static" && windowText(child) == prompt) return top;
            return nullptr;
        });
        if (!dialog) {
            std::fprintf(stderr, "tarvauto: no folder dialog showing \"%s\"\n", prompt.c_str());
            return fail();
        }
        return answerFolderDialog(dialog, arg(2));
    }
    if (command == "open-file") {
        const std::string title = arg(1);
        HWND dialog = waitFor([&]() -> HWND {
            HWND top = findTopLevel(title);
            return top && className(top) == "#32770" ? top : nullptr;
        });
        if (!dialog) {
            std::fprintf(stderr, "tarvauto: no open-file dialog titled \"%s\"\n", title.c_str());
            return fail();
        }
        return tv::testing::answerFileDialog(dialog, arg(2)) ? 0 : fail();
    }
    if (command == "tree" || command == "tree-select" || command == "tree-open") {
        const std::string name = arg(2);
        HWND tree = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "tree " + name);
        if (!tree) return fail();
        RemoteBuffer remote(tree, sizeof(TVITEMW) + 260 * sizeof(wchar_t));
        if (!remote.valid()) return fail("cannot reach the tree's memory");
        if (command == "tree") {
            walkTree(tree, nullptr, "", remote,
                     [](HTREEITEM, const std::string& path) { std::printf("%s\n", path.c_str()); });
            return 0;
        }
        HTREEITEM item = treeItemAt(tree, arg(3), remote);
        if (!item) return fail();
        askWindow(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
        if (command == "tree-open") {
            const WPARAM key = arg(4) == "0" ? VK_LEFT : VK_RIGHT;
            ::PostMessageA(tree, WM_KEYDOWN, key, 0);
            ::PostMessageA(tree, WM_KEYUP, key, 0xC0000000);
        }
        return 0;
    }
    if (command == "key" || command == "type" || command == "mouse") {
        const std::string name = arg(2);
        HWND target = name == "-" ? waitTopLevel(arg(1))
                                  : waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "control " + name);
        if (!target) return fail();
        if (command == "type") {
            const std::string text = arg(3);
            DWORD_PTR ignored = 0;
            ::SendMessageTimeoutA(target, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()), SMTO_ABORTIFHUNG,
                                  g_timeoutMs, &ignored);
            return 0;
        }
        if (command == "mouse") {
            const std::string what = arg(3);
            const UINT message = what == "move" ? WM_MOUSEMOVE : what == "down" ? WM_LBUTTONDOWN : WM_LBUTTONUP;
            ::PostMessageA(target, message, what == "down" ? MK_LBUTTON : 0, middleOf(target));
            return 0;
        }
        const auto code = static_cast<WPARAM>(std::strtoul(arg(3).c_str(), nullptr, 10));
        if (arg(4) != "up") ::PostMessageA(target, WM_KEYDOWN, code, 1);
        if (arg(4) != "down") ::PostMessageA(target, WM_KEYUP, code, 0xC0000001);
        return 0;
    }
    if (command == "items") {
        const std::string name = arg(2);
        HWND list = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "list " + name);
        if (!list) return fail();
        for (const std::string& item : listItems(list)) std::printf("%s\n", item.c_str());
        return 0;
    }
    if (command == "settle") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        // The repaint is sent to the window's thread and done before the call returns.
        ::RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN | RDW_UPDATENOW);
        DWORD_PTR ignored = 0;
        ::SendMessageTimeoutA(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, g_timeoutMs, &ignored);
        RECT area{};
        ::GetClientRect(window, &area);
        POINT origin{0, 0};
        ::ClientToScreen(window, &origin);
        std::printf("%ld %ld %ld %ld", area.right, area.bottom, origin.x, origin.y);
        return 0;
    }
    if (command == "shown") {
        const std::string name = arg(2);
        HWND control = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "control " + name);
        if (!control) return fail();
        std::printf("%d", ::IsWindowVisible(control) ? 1 : 0);
        return 0;
    }
    if (command == "caption" || command == "click") {
        const std::string name = arg(2);
        HWND control = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; },
                                 "control " + name);
        if (!control) return fail();
        if (command == "click") {
            pressButton(control);
            return 0;
        }
        const std::string text = controlText(control);
        std::fwrite(text.data(), 1, text.size(), stdout);
        return 0;
    }
    if (command == "link") return printLink(arg(1));
    std::fprintf(stderr, "tarvauto: unknown command %s\n", command.c_str());
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    ::_setmode(::_fileno(stdout), _O_BINARY);  // texts go out byte for byte, CR LF kept
    const int code = run(argc, argv);
    std::fflush(stdout);
    return code;
}
