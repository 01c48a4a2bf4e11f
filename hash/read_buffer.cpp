#include "hash/read_buffer.h"

#include <cstdint>
#include <cstdlib>

namespace tv::hash {
namespace {

constexpr std::size_t kPage = 4096;

// Not every C runtime the program meets can align an allocation (Windows 98's
// cannot), so the buffer aligns itself: a page more than asked for is
// allocated, and the allocation's own start is kept just before the page
// boundary that is handed out.
void* allocatePages(std::size_t size) {
    if (size > SIZE_MAX - kPage - sizeof(void*)) return nullptr;
    void* block = std::malloc(size + kPage + sizeof(void*));
    if (!block) return nullptr;
    const std::uintptr_t first = reinterpret_cast<std::uintptr_t>(block) + sizeof(void*);
    void** aligned = reinterpret_cast<void**>((first + kPage - 1) / kPage * kPage);
    aligned[-1] = block;
    return aligned;
}

void freePages(void* p) {
    if (p) std::free(static_cast<void**>(p)[-1]);
}

}  // namespace

ReadBuffer::~ReadBuffer() { freePages(data_); }

std::uint8_t* ReadBuffer::get(std::size_t size) {
    if (size <= capacity_) return data_;
    if (size > SIZE_MAX - kPage) return nullptr;
    const std::size_t rounded = (size + kPage - 1) / kPage * kPage;
    void* fresh = allocatePages(rounded);
    if (!fresh) return nullptr;
    freePages(data_);
    data_ = static_cast<std::uint8_t*>(fresh);
    capacity_ = rounded;
    return data_;
}

}  // namespace tv::hash
