// tarvauto: drives the program's windows from another process for the
// end-to-end tests. Every wait has a deadline (--timeout milliseconds, default
// 20000); a command that does not find what it waits for exits with 1 and says
// why on standard error.
//
//   tarvauto start "<command line>"          start it as typed; prints the process id
//   tarvauto wait-exit <pid>                 wait for the process to end; prints its exit code
//   tarvauto wait-window <title>             wait for a visible top-level window
//   tarvauto wait-no-window <title>          wait until no visible window has that title
//   tarvauto box-text <title>                the prompt of a message box
//   tarvauto press <title> <caption>         press a button of a window by its caption
//   tarvauto caption <title> <name>          caption of the control named <name>
//   tarvauto wait-caption <title> <name> <text>  wait until that caption reads <text>
//   tarvauto click <title> <name>            press the control named <name>
//   tarvauto items <title> <name>            the items of a list, one per line
//   tarvauto restore <title>                 bring a minimised window back to its normal size
//
// A <title> of the form @name stands for the window whose TarvelonName is name.
//   tarvauto kill <pid>                      end a process left running by a failed test
//   tarvauto windows                         list visible top-level windows (for diagnosis)
#define WIN32_LEAN_AND_MEAN
#define NOMINMAX
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

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

int fail() { return 1; }

// Does what a click on a button does: its parent hears BN_CLICKED. Posting the
// notification does not depend on where the mouse is or whether the window has
// been activated yet, as a simulated click would.
void pressButton(HWND button) {
    ::PostMessageA(::GetParent(button), WM_COMMAND,
                   MAKEWPARAM(::GetDlgCtrlID(button), BN_CLICKED), reinterpret_cast<LPARAM>(button));
}

// Asks a list box of another process, without hanging on a window that does
// not answer.
LRESULT askList(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (!::SendMessageTimeoutW(list, message, wParam, lParam, SMTO_ABORTIFHUNG, g_timeoutMs, &result)) return LB_ERR;
    return static_cast<LRESULT>(result);
}

std::vector<std::string> listItems(HWND list) {
    std::vector<std::string> items;
    const LRESULT count = askList(list, LB_GETCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
        const LRESULT length = askList(list, LB_GETTEXTLEN, static_cast<WPARAM>(i), 0);
        if (length == LB_ERR) break;
        // Asked in UTF-16, which the system copies across processes as it is
        // (Wine hands a narrow request the wide text), then put in the ANSI code page.
        std::vector<wchar_t> wide(static_cast<std::size_t>(length) + 1, L'\0');
        askList(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(wide.data()));
        const int size = ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, nullptr, 0, nullptr, nullptr);
        std::string text(static_cast<std::size_t>(size), '\0');
        ::WideCharToMultiByte(CP_ACP, 0, wide.data(), -1, text.data(), size, nullptr, nullptr);
        items.emplace_back(text.c_str());
    }
    return items;
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

int waitExit(DWORD pid) {
    HANDLE process = ::OpenProcess(SYNCHRONIZE | PROCESS_QUERY_INFORMATION, FALSE, pid);
    if (!process) {
        std::printf("gone\n");  // already ended and reaped
        return 0;
    }
    const DWORD waited = ::WaitForSingleObject(process, g_timeoutMs);
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

int run(int argc, char** argv) {
    std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() >= 2 && args[0] == "--timeout") {
        g_timeoutMs = static_cast<DWORD>(std::strtoul(args[1].c_str(), nullptr, 10));
        args.erase(args.begin(), args.begin() + 2);
    }
    if (args.empty()) return fail();
    const std::string& command = args[0];
    auto arg = [&](std::size_t i) { return i < args.size() ? args[i] : std::string(); };

    if (command == "start") return start(arg(1));
    if (command == "wait-exit") return waitExit(std::strtoul(arg(1).c_str(), nullptr, 10));
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
        HWND control = waitChild(arg(1), [&](HWND h) { return controlName(h) == name && windowText(h) == text; },
                                 "control " + name + " reading \"" + text + "\"");
        return control ? 0 : fail();
    }
    if (command == "restore") {
        HWND window = waitTopLevel(arg(1));
        if (!window) return fail();
        ::ShowWindow(window, SW_RESTORE);
        return 0;
    }
    if (command == "items") {
        const std::string name = arg(2);
        HWND list = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; }, "list " + name);
        if (!list) return fail();
        for (const std::string& item : listItems(list)) std::printf("%s\n", item.c_str());
        return 0;
    }
    if (command == "caption" || command == "click") {
        const std::string name = arg(2);
        HWND control = waitChild(arg(1), [&](HWND h) { return controlName(h) == name; },
                                 "control " + name);
        if (!control) return fail();
        if (command == "click")
            pressButton(control);
        else
            std::fwrite(windowText(control).data(), 1, windowText(control).size(), stdout);
        return 0;
    }
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
