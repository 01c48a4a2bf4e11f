#include "platform/win32/win32_system.h"

namespace tv::win32 {
namespace {

HWND handleOf(NativeWindow window) { return reinterpret_cast<HWND>(window); }
NativeWindow numberOf(HWND window) { return reinterpret_cast<NativeWindow>(window); }

}  // namespace

Win32TopWindows::Win32TopWindows(unsigned answerMs) : answerMs_(answerMs) {}

NativeWindow Win32TopWindows::desktop() const { return numberOf(::GetDesktopWindow()); }

NativeWindow Win32TopWindows::relative(NativeWindow window, int relation) const {
    return numberOf(::GetWindow(handleOf(window), static_cast<UINT>(relation)));
}

std::string Win32TopWindows::titleBuffer(NativeWindow window, std::size_t charCount) const {
    std::string buffer(charCount, '\0');
    ::GetWindowTextA(handleOf(window), buffer.data(), static_cast<int>(charCount));
    return buffer;
}

std::string Win32TopWindows::classBuffer(NativeWindow window, std::size_t charCount) const {
    std::string buffer(charCount, '\0');
    ::GetClassNameA(handleOf(window), buffer.data(), static_cast<int>(charCount));
    return buffer;
}

std::uint32_t Win32TopWindows::processId(NativeWindow window) const {
    DWORD process = 0;
    ::GetWindowThreadProcessId(handleOf(window), &process);
    return process;
}

NativeWindow Win32TopWindows::find(const std::optional<std::string>& className, const std::string& title) const {
    return numberOf(::FindWindowA(className ? className->c_str() : nullptr, title.c_str()));
}

void Win32TopWindows::bringToTop(NativeWindow window) {
    if (window) ::BringWindowToTop(handleOf(window));
}

// A window that does not answer at all would hold the program's one thread for
// good; the system gives up on a hung one at once, and on any other after the
// answer time.
void Win32TopWindows::askToClose(NativeWindow window) {
    DWORD_PTR ignored = 0;
    if (window) ::SendMessageTimeoutA(handleOf(window), WM_CLOSE, 0, 0, SMTO_ABORTIFHUNG, answerMs_, &ignored);
}

}  // namespace tv::win32
