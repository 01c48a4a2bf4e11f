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

// Under Wine every look into the queue is a round trip to the Wine server
// (10-50 microseconds), and loops that pump after every small step (a report
// listed, a field of a report read) spent most of their time there. A pump in
// the same tick of the system clock (10-16 ms) as the end of the last one
// returns at once: nobody can tell a message that runs that much later. The
// tick count is read from memory the system keeps up to date, without a call
// into the system, as cheaply as the step itself.
void Win32EventLoop::pump() {
    if (pumped_ && ::GetTickCount() == lastPumpTick_) return;
    pumpNow();
}

void Win32EventLoop::pumpNow() {
    MSG message;
    while (!quitting_ && ::PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            quitting_ = true;
            exitCode_ = static_cast<int>(message.wParam);
            break;
        }
        dispatch(message);
    }
    lastPumpTick_ = ::GetTickCount();
    pumped_ = true;
}

// A checksum asks after every buffer whether input waits, and under Wine the
// question costs more than reading and checksumming a whole buffer: the system
// is asked at most once a millisecond; in between nothing counts as new.
std::uint32_t Win32EventLoop::queueStatus(std::uint32_t flags) {
    const long long asked = now();
    if (lastAsked_ != 0 && asked - lastAsked_ < oneMillisecond_) return 0;
    lastAsked_ = asked;
    return ::GetQueueStatus(static_cast<UINT>(flags));
}

long long Win32EventLoop::now() {
    LARGE_INTEGER counter;
    ::QueryPerformanceCounter(&counter);
    if (oneMillisecond_ == 0) {
        LARGE_INTEGER frequency;
        ::QueryPerformanceFrequency(&frequency);
        oneMillisecond_ = std::max<long long>(1, frequency.QuadPart / 1000);
    }
    return counter.QuadPart;
}

void Win32EventLoop::waitForInput() {
    ::WaitMessage();
    pumpNow();  // the message that ended the wait must run, however soon after the last pump
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
