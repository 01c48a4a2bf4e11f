// Threads beside the user-interface thread, for work that touches no window and
// no state of the run: reading and checksumming files ahead of a scan. The
// window, the run state and every handler stay on the one user-interface thread.
#pragma once

#include <functional>
#include <memory>

namespace tv {

// Mutual exclusion between threads; lock and unlock on the same thread.
class Mutex {
public:
    virtual ~Mutex() = default;
    virtual void lock() = 0;
    virtual void unlock() = 0;
};

class MutexLock {
public:
    explicit MutexLock(Mutex& mutex) : mutex_(mutex) { mutex_.lock(); }
    ~MutexLock() { mutex_.unlock(); }
    MutexLock(const MutexLock&) = delete;
    MutexLock& operator=(const MutexLock&) = delete;

private:
    Mutex& mutex_;
};

// A count of wake-ups that threads wait for: release adds, wait takes one.
class Semaphore {
public:
    static constexpr unsigned kForever = 0xFFFFFFFFu;
    virtual ~Semaphore() = default;
    virtual void release(int count) = 0;
    // Takes one when there is one within `milliseconds`; false when the time ran out.
    virtual bool wait(unsigned milliseconds) = 0;
};

// A running thread; the owner's destruction waits for its body to return.
class Thread {
public:
    virtual ~Thread() = default;
};

class Threads {
public:
    virtual ~Threads() = default;

    // The processors this program may run on at once. 1 on a system whose
    // threads all share one processor (the Windows 9x family), where work
    // beside the window's thread gains nothing.
    virtual int processorCount() const = 0;

    virtual std::unique_ptr<Mutex> makeMutex() = 0;
    // Starts at zero. nullptr when the system has none left to give.
    virtual std::unique_ptr<Semaphore> makeSemaphore() = 0;
    // Runs `body` on a new thread. nullptr when no thread could be started;
    // `body` then never runs. The body must not throw.
    virtual std::unique_ptr<Thread> start(std::function<void()> body) = 0;
};

}  // namespace tv
