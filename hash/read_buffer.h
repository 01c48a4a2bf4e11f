// The buffer every file checksum reads into, kept for the run. It starts on a
// page boundary: reads into a buffer a few bytes past one run several times
// slower on common processors.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tv::hash {

class ReadBuffer {
public:
    ReadBuffer() = default;
    ~ReadBuffer();
    ReadBuffer(const ReadBuffer&) = delete;
    ReadBuffer& operator=(const ReadBuffer&) = delete;

    // At least `size` bytes, page-aligned; nullptr when memory is short.
    std::uint8_t* get(std::size_t size);

private:
    std::uint8_t* data_ = nullptr;
    std::size_t capacity_ = 0;
};

}  // namespace tv::hash
