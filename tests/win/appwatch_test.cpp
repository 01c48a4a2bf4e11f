// AppWatch over the desktop's real windows: windows of the test's own, shown
// and hidden, read as the system has them, found again by title (and class),
// raised, and asked to close; one whose thread does not answer holds the
// program only for the answer time.
#include <thread>

#include "appwatch/appwatch_actions.h"
#include "platform/win32/unique_handle.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

constexpr const char* kClass = "TarvelonTestWindow";

// WM_CLOSE closes a window unless its "refuses" property is set.
LRESULT CALLBACK testWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE && ::GetPropA(window, "refuses")) return 0;
    return ::DefWindowProcA(window, message, wParam, lParam);
}

class TopWindowsTest : public WinTest {
protected:
    TopWindowsTest() {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = testWindowProc;
        windowClass.hInstance = ::GetModuleHandleA(nullptr);
        windowClass.lpszClassName = kClass;
        ::RegisterClassA(&windowClass);
    }
    ~TopWindowsTest() override {
        for (HWND window : made_)
            if (::IsWindow(window)) ::DestroyWindow(window);
    }
    HWND make(const std::string& title, bool shown) {
        HWND window = ::CreateWindowExA(0, kClass, title.c_str(), WS_OVERLAPPEDWINDOW | (shown ? WS_VISIBLE : 0), 0, 0,
                                        120, 80, nullptr, nullptr, ::GetModuleHandleA(nullptr), nullptr);
        made_.push_back(window);
        return window;
    }
    static NativeWindow number(HWND window) { return reinterpret_cast<NativeWindow>(window); }
    std::string row(const std::string& title) const { return std::to_string(::GetCurrentProcessId()) + ": " + title; }
    bool listed(const std::string& text) const {
        const auto& rows = page.lstOpenWindows.items();
        return std::count(rows.begin(), rows.end(), text) == 1;
    }
    void choose(const std::string& text) {
        const auto& rows = page.lstOpenWindows.items();
        const auto found = std::find(rows.begin(), rows.end(), text);
        ASSERT_NE(found, rows.end()) << text;
        page.lstOpenWindows.userSetValue(static_cast<int>(found - rows.begin()));
    }

    AppContext ctx{set()};
    ui::MainWindow mainWindow;
    ui::AppWatchPage& page = mainWindow.appWatch;
    AppWatchActions actions{ctx, page};

private:
    std::vector<HWND> made_;
};

TEST_F(TopWindowsTest, WindowCallsReadTheDesktopAsTheSystemHasIt) {
    HWND shown = make("Tarvelon Test Shown", true);
    HWND hidden = make("Tarvelon Test Hidden", false);
    const std::string title = windows.titleBuffer(number(shown), 255);
    EXPECT_EQ(title, "Tarvelon Test Shown" + std::string(255 - 19, '\0'));
    EXPECT_EQ(windows.classBuffer(number(hidden), 255).c_str(), std::string(kClass));
    EXPECT_EQ(windows.processId(number(hidden)), ::GetCurrentProcessId());
    EXPECT_EQ(windows.find(std::nullopt, "TARVELON TEST HIDDEN"), number(hidden));  // titles without regard to case
    EXPECT_EQ(windows.find(std::string(kClass), "Tarvelon Test Shown"), number(shown));
    EXPECT_EQ(windows.find(std::string("Edit"), "Tarvelon Test Shown"), 0u);
    EXPECT_EQ(windows.find(std::string(), "Tarvelon Test Shown"), 0u);  // an empty class is no class

    // The walk down the stacking order meets both, the hidden one too.
    int met = 0;
    for (NativeWindow w = windows.relative(windows.desktop(), 5); w; w = windows.relative(w, 2))
        met += w == number(shown) || w == number(hidden);
    EXPECT_EQ(met, 2);

    // A window that has gone: empty texts, no process, and nothing done.
    ::DestroyWindow(hidden);
    EXPECT_EQ(windows.titleBuffer(number(hidden), 255), std::string(255, '\0'));
    EXPECT_EQ(windows.classBuffer(0, 255), std::string(255, '\0'));
    EXPECT_EQ(windows.processId(number(hidden)), 0u);
    EXPECT_EQ(windows.relative(number(hidden), 2), 0u);
    windows.bringToTop(0);
    windows.askToClose(0);
}

// Listing, choosing and closing after "Yes" are the AppWatch scenario's.
TEST_F(TopWindowsTest, PageRaisesOurWindowAndAsksItToCloseWhichItMayRefuse) {
    HWND hidden = make("Tarvelon Test Hidden", false);
    HWND shown = make("Tarvelon Test Shown", true);
    make(std::string(255, 'L'), false);  // longer than the buffer: its cut title finds no window
    page.ref.userClick();
    EXPECT_TRUE(listed("0: " + std::string(254, 'L')));

    choose(row("Tarvelon Test Hidden"));
    page.act.userClick();  // found by class and title, and raised above the window made after it
    NativeWindow first = windows.relative(windows.desktop(), 5);
    while (first && first != number(hidden) && first != number(shown)) first = windows.relative(first, 2);
    EXPECT_EQ(first, number(hidden));

    ::SetPropA(hidden, "refuses", reinterpret_cast<HANDLE>(1));
    boxes.answers = {box::Yes, box::Yes};
    page.cl.userClick();
    EXPECT_TRUE(::IsWindow(hidden));  // it may refuse
    ::RemovePropA(hidden, "refuses");
    page.cl.userClick();
    EXPECT_FALSE(::IsWindow(hidden));
}

// The window's thread takes no messages until the test lets it go.
TEST_F(TopWindowsTest, WindowThatNeverAnswersHoldsTheProgramOnlyForTheAnswerTime) {
    win32::Win32TopWindows impatient(200);
    HANDLE release = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    HWND stuck = nullptr;
    HANDLE made = ::CreateEventA(nullptr, TRUE, FALSE, nullptr);
    std::thread owner([&] {
        stuck = make("Tarvelon Test Stuck", false);
        ::SetEvent(made);
        ::WaitForSingleObject(release, INFINITE);  // no message loop meanwhile
        MSG message;
        while (::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) ::DispatchMessageA(&message);
        ::DestroyWindow(stuck);
    });
    ::WaitForSingleObject(made, INFINITE);
    impatient.askToClose(reinterpret_cast<NativeWindow>(stuck));
    EXPECT_TRUE(::IsWindow(stuck));
    ::SetEvent(release);
    owner.join();
    ::CloseHandle(release);
    ::CloseHandle(made);
}

}  // namespace
}  // namespace tv::test
