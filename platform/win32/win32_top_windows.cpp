#include "platform/win32/win32_system.h"

namespace tv::win32 {
namespace {

HWND handleOf(NativeWindow window) { return reinterpret_cast<HWND>(window); }
NativeWindow numberOf(HWND window) { return reinterpret_cast<NativeWindow>(window); }

// How long a window may take to answer before it counts as hung.
constexpr UINT kAnswerMs = 10000;

}  // namespace

NativeWindow Win32TopWindows::desktop() const { return numberOf(::GetDesktopWindow()); }

NativeWindow Win32TopWindows::relative(NativeWindow window, int relation) const {
    return numberOf(::GetWindow(handleOf(window), static_cast<UINT>(relation)));
}

std::string Win32TopWindows::titleBuffer(NativeWindow window, std::size_t charCount) const {
    std::string buffer(charCount, ' ');
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

void Win32TopWindows::bringToTop(NativeWindow window) { ::BringWindowToTop(handleOf(window)); }

// A window that does not answer at all would hold the program's one thread for
// good; the system gives up on a hung one, and on any after ten seconds.
void Win32TopWindows::askToClose(NativeWindow window) {
    DWORD_PTR ignored = 0;
    ::SendMessageTimeoutA(handleOf(window), WM_CLOSE, 0, 0, SMTO_ABORTIFHUNG, kAnswerMs, &ignored);
}

}  // namespace tv::win32
