// Threads on the system's own calls, all present since Windows 95: critical
// sections, semaphores and _beginthreadex. The 32-bit program's runtime has
// no std::thread, and this keeps it loading on every system it ever ran on.
#pragma once

#include "platform/threads.h"

namespace tv::win32 {

class Win32Threads final : public Threads {
public:
    int processorCount() const override;
    std::unique_ptr<Mutex> makeMutex() override;
    std::unique_ptr<Semaphore> makeSemaphore() override;
    std::unique_ptr<Thread> start(std::function<void()> body) override;
};

}  // namespace tv::win32
