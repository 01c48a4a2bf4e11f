#include "tests/memory/counted_memory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

// Each block carries its size ahead of what the caller gets.
constexpr std::size_t kHeader = alignof(std::max_align_t);
std::atomic<std::size_t> held{0};
std::atomic<std::size_t> peak{0};

void* take(std::size_t size) noexcept {
    void* block = std::malloc(size + kHeader);
    if (!block) return nullptr;
    *static_cast<std::size_t*>(block) = size;
    const std::size_t now = held.fetch_add(size) + size;
    for (std::size_t seen = peak.load(); now > seen && !peak.compare_exchange_weak(seen, now);) {
    }
    return static_cast<char*>(block) + kHeader;
}

void give(void* user) noexcept {
    if (!user) return;
    void* block = static_cast<char*>(user) - kHeader;
    held.fetch_sub(*static_cast<std::size_t*>(block));
    std::free(block);
}

void* takeOrThrow(std::size_t size) {
    if (void* user = take(size)) return user;
    throw std::bad_alloc();
}

}  // namespace

void* operator new(std::size_t size) { return takeOrThrow(size); }
void* operator new[](std::size_t size) { return takeOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return take(size); }
void operator delete(void* user) noexcept { give(user); }
void operator delete[](void* user) noexcept { give(user); }
void operator delete(void* user, std::size_t) noexcept { give(user); }
void operator delete[](void* user, std::size_t) noexcept { give(user); }
void operator delete(void* user, const std::nothrow_t&) noexcept { give(user); }
void operator delete[](void* user, const std::nothrow_t&) noexcept { give(user); }

namespace tv::test {

std::size_t peakHeldBytes() { return peak.load(); }
std::size_t startPeak() { return peak = held.load(); }

}  // namespace tv::test
