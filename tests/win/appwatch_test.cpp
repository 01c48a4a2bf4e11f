// AppWatch's window calls over windows of the test's own, shown and hidden:
// found again by title and class, raised, and asked to close, which a window
// may refuse and one that never answers holds the program only for the answer
// time. A window of another program listed with its class and process, and
// closed from the page, is the end-to-end scenario's.
#include <thread>

#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

constexpr const char* kClass = "TarvelonTestWindow";

// WM_CLOSE closes a window unless its "refuses" property is set.
LRESULT CALLBACK testWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE && ::GetPropA(window, "refuses")) return 0;
    return ::DefWindowProcA(window, message, wParam, lParam);
}

HWND make(const std::string& title, bool shown) {
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
    HWND shown = make("Tarvelon Test Shown", true);
    HWND hidden = make("Tarvelon Test Hidden", false);
    EXPECT_EQ(windows.titleBuffer(number(shown), 255), "Tarvelon Test Shown" + std::string(255 - 19, '\0'));
    EXPECT_EQ(windows.find(std::nullopt, "TARVELON TEST HIDDEN"), number(hidden));  // titles without regard to case
    EXPECT_EQ(windows.find(std::string(kClass), "Tarvelon Test Shown"), number(shown));
    EXPECT_EQ(windows.find(std::string("Edit"), "Tarvelon Test Shown"), 0u);
    EXPECT_EQ(windows.find(std::string(), "Tarvelon Test Shown"), 0u);  // an empty class is no class

    // Down the stacking order: the hidden window raised above the one made after it.
    windows.bringToTop(number(hidden));
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
    EXPECT_EQ(windows.titleBuffer(number(hidden), 255), std::string(255, '\0'));
    EXPECT_EQ(windows.classBuffer(0, 255), std::string(255, '\0'));
    EXPECT_EQ(windows.processId(number(hidden)) + windows.relative(number(hidden), 2), 0u);
    windows.bringToTop(0);
    windows.askToClose(0);
    ::DestroyWindow(shown);
}

// The window's thread takes no messages until the test lets it go.
TEST_F(AppWatchWindows, WindowThatNeverAnswersHoldsTheProgramOnlyForTheAnswerTime) {
    win32::Win32TopWindows impatient(200);
    HANDLE release = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HANDLE made = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HWND stuck = nullptr;
    std::thread owner([&] {
        stuck = make("Tarvelon Test Stuck", false);
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
