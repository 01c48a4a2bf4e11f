// The thread interface on the standard library's threads, for native tests.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "platform/threads.h"

namespace tv::test {

class StdThreads final : public Threads {
public:
    int started = 0;  // threads started so far
    int processorCount() const override { return 2; }

    std::unique_ptr<Mutex> makeMutex() override {
        struct StdMutex final : Mutex {
            std::mutex m;
            void lock() override { m.lock(); }
            void unlock() override { m.unlock(); }
        };
        return std::make_unique<StdMutex>();
    }

    std::unique_ptr<Semaphore> makeSemaphore() override {
        struct Counted final : Semaphore {
            std::mutex m;
            std::condition_variable cv;
            int count = 0;
            void release(int n) override {
                std::lock_guard hold(m);
                count += n;
                cv.notify_all();
            }
            bool wait(unsigned ms) override {
                std::unique_lock hold(m);
                const auto ready = [this] { return count > 0; };
                if (ms == kForever) cv.wait(hold, ready);
                else if (!cv.wait_for(hold, std::chrono::milliseconds(ms), ready)) return false;
                --count;
                return true;
            }
        };
        return std::make_unique<Counted>();
    }

    std::unique_ptr<Thread> start(std::function<void()> body) override {
        struct Joined final : Thread {
            std::thread t;
            ~Joined() override { t.join(); }
        };
        auto thread = std::make_unique<Joined>();
        thread->t = std::thread(std::move(body));
        ++started;
        return thread;
    }
};

}  // namespace tv::test
