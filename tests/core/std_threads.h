// The thread interface on the standard library's threads, for native tests.
#pragma once

#include <chrono>
#include <mutex>
#include <semaphore>
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
            std::counting_semaphore<> count{0};
            void release(int n) override { count.release(n); }
            bool wait(unsigned ms) override {
                if (ms != kForever) return count.try_acquire_for(std::chrono::milliseconds(ms));
                count.acquire();
                return true;
            }
        };
        return std::make_unique<Counted>();
    }

    std::unique_ptr<Thread> start(std::function<void()> body) override {
        struct Joined final : Thread {
            std::jthread t;
        };
        auto thread = std::make_unique<Joined>();
        thread->t = std::jthread(std::move(body));
        ++started;
        return thread;
    }
};

}  // namespace tv::test
