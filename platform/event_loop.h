// The one thread's message handling. Long work keeps the thread and calls pump()
// now and then, which is how clicks reach it while it runs.
#pragma once

#include <cstdint>

namespace tv {

namespace queue {
inline constexpr std::uint32_t Key = 0x0001;
inline constexpr std::uint32_t MouseButton = 0x0004;
inline constexpr std::uint32_t Paint = 0x0020;
inline constexpr std::uint32_t HotKey = 0x0080;
inline constexpr std::uint32_t InputOrPaint = Key | MouseButton | Paint | HotKey;  // 165
}  // namespace queue

class EventLoop {
public:
    virtual ~EventLoop() = default;

    // Lets every pending window message run once, then returns. Called again
    // within the same tick of the system clock (10-16 ms), it may return at
    // once: a loop that pumps after every small step lets messages run at most
    // that much later.
    virtual void pump() = 0;

    // The system's queue status word for the message kinds in `flags`: the kinds
    // now in the queue in the high word, those added since the last question in
    // the low word. Asked again within a
    // millisecond of the last time, it may answer 0: a long loop that asks after
    // every small step notices input at most that much later.
    virtual std::uint32_t queueStatus(std::uint32_t flags) = 0;

    // Waits until a message arrives, then lets pending messages run: how a long
    // loop holds still (a paused scan) without spinning the processor.
    virtual void waitForInput() = 0;

    // Runs until quit(); gives the exit code.
    virtual int run() = 0;

    // Ends run() (and the process) with this exit code.
    virtual void quit(int exitCode) = 0;
};

}  // namespace tv
