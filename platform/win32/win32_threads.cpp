#include "platform/win32/win32_threads.h"

#include <process.h>

#include "platform/win32/system_function.h"
#include "platform/win32/unique_handle.h"

namespace tv::win32 {
namespace {

class CriticalSection final : public Mutex {
public:
    CriticalSection() { ::InitializeCriticalSection(&section_); }
    ~CriticalSection() override { ::DeleteCriticalSection(&section_); }
    void lock() override { ::EnterCriticalSection(&section_); }
    void unlock() override { ::LeaveCriticalSection(&section_); }

private:
    CRITICAL_SECTION section_;
};

class Win32Semaphore final : public Semaphore {
public:
    explicit Win32Semaphore(HANDLE handle) : handle_(handle) {}
    void release(int count) override {
        if (count > 0) ::ReleaseSemaphore(handle_.get(), count, nullptr);
    }
    bool wait(unsigned milliseconds) override {
        return ::WaitForSingleObject(handle_.get(), milliseconds) == WAIT_OBJECT_0;
    }

private:
    UniqueKernelObject handle_;
};

class Win32Thread final : public Thread {
public:
    explicit Win32Thread(std::function<void()> body) : body_(std::move(body)) {}
    ~Win32Thread() override {
        if (handle_.valid()) ::WaitForSingleObject(handle_.get(), INFINITE);
    }
    bool start() {
        // _beginthreadex rather than CreateThread: the C runtime's per-thread
        // state is then set up and freed with the thread.
        handle_.reset(reinterpret_cast<HANDLE>(::_beginthreadex(nullptr, 0, &Win32Thread::run, this, 0, nullptr)));
        return handle_.valid();
    }

private:
    static unsigned __stdcall run(void* self) {
        static_cast<Win32Thread*>(self)->body_();
        return 0;
    }
    std::function<void()> body_;
    UniqueKernelObject handle_;
};

}  // namespace

int Win32Threads::processorCount() const {
    // The Windows 9x family runs on one processor.
    OSVERSIONINFOA version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!::GetVersionExA(&version) || version.dwPlatformId != VER_PLATFORM_WIN32_NT) return 1;
    // The processors this process may use, which the user or a tool may have
    // narrowed; all of the machine's when the system cannot say.
    using AffinityFunction = BOOL(WINAPI*)(HANDLE, PDWORD_PTR, PDWORD_PTR);
    static const auto affinity = systemFunction<AffinityFunction>("kernel32.dll", "GetProcessAffinityMask");
    DWORD_PTR mine = 0, all = 0;
    if (affinity && affinity(::GetCurrentProcess(), &mine, &all) && mine != 0) {
        int count = 0;
        for (; mine != 0; mine &= mine - 1) ++count;
        return count;
    }
    SYSTEM_INFO info{};
    ::GetSystemInfo(&info);
    return info.dwNumberOfProcessors > 0 ? static_cast<int>(info.dwNumberOfProcessors) : 1;
}

std::unique_ptr<Mutex> Win32Threads::makeMutex() { return std::make_unique<CriticalSection>(); }

std::unique_ptr<Semaphore> Win32Threads::makeSemaphore() {
    HANDLE handle = ::CreateSemaphoreA(nullptr, 0, 0x7FFFFFFF, nullptr);
    if (!handle) return nullptr;
    return std::make_unique<Win32Semaphore>(handle);
}

std::unique_ptr<Thread> Win32Threads::start(std::function<void()> body) {
    auto thread = std::make_unique<Win32Thread>(std::move(body));
    if (!thread->start()) return nullptr;
    return thread;
}

}  // namespace tv::win32
