#include "hash/read_buffer.h"

#include <cstdlib>
#if defined(_WIN32)
#include <malloc.h>
#endif

namespace tv::hash {
namespace {

constexpr std::size_t kPage = 4096;

void* allocatePages(std::size_t size) {
#if defined(_WIN32)
    return _aligned_malloc(size, kPage);
#else
    return std::aligned_alloc(kPage, size);
#endif
}

void freePages(void* p) {
#if defined(_WIN32)
    _aligned_free(p);
#else
    std::free(p);
#endif
}

}  // namespace

ReadBuffer::~ReadBuffer() { freePages(data_); }

std::uint8_t* ReadBuffer::get(std::size_t size) {
    if (size <= capacity_) return data_;
    const std::size_t rounded = (size + kPage - 1) / kPage * kPage;
    void* fresh = allocatePages(rounded);
    if (!fresh) return nullptr;
    freePages(data_);
    data_ = static_cast<std::uint8_t*>(fresh);
    capacity_ = rounded;
    return data_;
}

}  // namespace tv::hash
