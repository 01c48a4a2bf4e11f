#include "platform/win32/display_scale.h"

#include "platform/win32/system_function.h"

namespace tv::win32 {
namespace {

// DPI_AWARENESS_CONTEXT values and PROCESS_PER_MONITOR_DPI_AWARE.
const HANDLE kPerMonitorV2 = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-4));
const HANDLE kPerMonitor = reinterpret_cast<HANDLE>(static_cast<INT_PTR>(-3));
constexpr int kProcessPerMonitor = 2;

}  // namespace

void declareDpiAwareness() {
    using SetContext = BOOL(WINAPI*)(HANDLE);
    using SetProcessAwareness = HRESULT(WINAPI*)(int);
    using SetAware = BOOL(WINAPI*)();
    // Each fails where the manifest has already said the same; then nothing more is asked.
    if (const auto setContext = systemFunction<SetContext>("user32.dll", "SetProcessDpiAwarenessContext")) {
        if (setContext(kPerMonitorV2) || setContext(kPerMonitor)) return;
        if (::GetLastError() == ERROR_ACCESS_DENIED) return;
    }
    if (const auto setAwareness = systemFunction<SetProcessAwareness>("shcore.dll", "SetProcessDpiAwareness")) {
        const HRESULT result = setAwareness(kProcessPerMonitor);
        if (result == S_OK || result == E_ACCESSDENIED) return;
    }
    if (const auto setAware = systemFunction<SetAware>("user32.dll", "SetProcessDPIAware")) setAware();
}

int systemDpi() {
    static const int dpi = [] {
        HDC screen = ::GetDC(nullptr);
        const int found = screen ? ::GetDeviceCaps(screen, LOGPIXELSY) : 0;
        if (screen) ::ReleaseDC(nullptr, screen);
        return found > 0 ? found : kDesignDpi;
    }();
    return dpi;
}

int windowDpi(HWND window) {
    using GetDpiForWindow = UINT(WINAPI*)(HWND);
    static const auto forWindow = systemFunction<GetDpiForWindow>("user32.dll", "GetDpiForWindow");
    const int dpi = forWindow && window ? static_cast<int>(forWindow(window)) : 0;
    return dpi > 0 ? dpi : systemDpi();
}

RECT frameFor(RECT client, DWORD style, DWORD exStyle, int dpi) {
    using AdjustForDpi = BOOL(WINAPI*)(RECT*, DWORD, BOOL, DWORD, UINT);
    static const auto adjustForDpi = systemFunction<AdjustForDpi>("user32.dll", "AdjustWindowRectExForDpi");
    if (!adjustForDpi || !adjustForDpi(&client, style, FALSE, exStyle, static_cast<UINT>(dpi)))
        ::AdjustWindowRectEx(&client, style, FALSE, exStyle);
    return client;
}

}  // namespace tv::win32
