// Move-only owners of system handles, each kind with its own invalid value.
#pragma once

#include <utility>

#include "platform/win32/win32_base.h"

namespace tv::win32 {

template <class Traits>
class UniqueHandle {
public:
    using Handle = typename Traits::Handle;
    UniqueHandle() = default;
    explicit UniqueHandle(Handle h) : h_(h) {}
    UniqueHandle(UniqueHandle&& o) noexcept : h_(o.release()) {}
    UniqueHandle& operator=(UniqueHandle&& o) noexcept {
        reset(o.release());
        return *this;
    }
    UniqueHandle(const UniqueHandle&) = delete;
    UniqueHandle& operator=(const UniqueHandle&) = delete;
    ~UniqueHandle() { reset(); }

    Handle get() const { return h_; }
    Handle release() { return std::exchange(h_, Traits::invalid()); }
    void reset(Handle h = Traits::invalid()) {
        if (valid()) Traits::close(h_);
        h_ = h;
    }
    bool valid() const { return h_ != Traits::invalid(); }

private:
    Handle h_ = Traits::invalid();
};

struct FileTraits {
    using Handle = HANDLE;
    static HANDLE invalid() { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE h) { ::CloseHandle(h); }
};
struct KernelObjectTraits {  // processes, threads, events: NULL when invalid
    using Handle = HANDLE;
    static HANDLE invalid() { return nullptr; }
    static void close(HANDLE h) { ::CloseHandle(h); }
};
struct FindTraits {
    using Handle = HANDLE;
    static HANDLE invalid() { return INVALID_HANDLE_VALUE; }
    static void close(HANDLE h) { ::FindClose(h); }
};
struct KeyTraits {
    using Handle = HKEY;
    static HKEY invalid() { return nullptr; }
    static void close(HKEY h) { ::RegCloseKey(h); }
};

using UniqueFile = UniqueHandle<FileTraits>;
using UniqueSnapshot = UniqueHandle<FileTraits>;  // a process list, INVALID_HANDLE_VALUE when none
using UniqueKernelObject = UniqueHandle<KernelObjectTraits>;
using UniqueFind = UniqueHandle<FindTraits>;
using UniqueKey = UniqueHandle<KeyTraits>;

}  // namespace tv::win32
