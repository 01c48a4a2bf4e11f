#include "platform/win32/win32_system.h"

#include <algorithm>

namespace tv::win32 {
namespace {

void dispatch(MSG& message) {
    HWND dialogRoot = message.hwnd ? ::GetAncestor(message.hwnd, GA_ROOT) : nullptr;
    if (dialogRoot && ::IsDialogMessageA(dialogRoot, &message)) return;
    ::TranslateMessage(&message);
    ::DispatchMessageA(&message);
}

}  // namespace

void Win32EventLoop::pump() {
    MSG message;
    while (!quitting_ && ::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            quitting_ = true;
            exitCode_ = static_cast<int>(message.wParam);
            break;
        }
        dispatch(message);
    }
}

// Under Wine every status question is a round trip to the Wine server, which
// costs more (10-50 microseconds) than reading and checksumming a whole buffer.
// A checksum asks after every buffer, so the system is asked at most once a
// millisecond; in between nothing counts as new.
std::uint32_t Win32EventLoop::queueStatus(std::uint32_t flags) {
    LARGE_INTEGER now;
    ::QueryPerformanceCounter(&now);
    if (oneMillisecond_ == 0) {
        LARGE_INTEGER frequency;
        ::QueryPerformanceFrequency(&frequency);
        oneMillisecond_ = std::max<long long>(1, frequency.QuadPart / 1000);
    } else if (now.QuadPart - lastAsked_ < oneMillisecond_) {
        return 0;
    }
    lastAsked_ = now.QuadPart;
    return ::GetQueueStatus(static_cast<UINT>(flags));
}

void Win32EventLoop::waitForInput() {
    ::WaitMessage();
    pump();
}

int Win32EventLoop::run() {
    MSG message;
    while (!quitting_) {
        const BOOL got = ::GetMessageA(&message, nullptr, 0, 0);
        if (got <= 0) {
            if (got == 0) exitCode_ = static_cast<int>(message.wParam);
            break;
        }
        dispatch(message);
    }
    return exitCode_;
}

// Ending the program ends it at once, wherever it stands: no window is asked,
// nothing is saved, even from inside a long scan's pump.
void Win32EventLoop::quit(int exitCode) {
    exitCode_ = exitCode;
    quitting_ = true;
    ::ExitProcess(static_cast<UINT>(exitCode));
}

}  // namespace tv::win32
