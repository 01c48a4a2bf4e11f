// The 64-byte block framing that MD4, MD5 and SHA-1 share: whole blocks go
// straight from the caller's data to the compression function, the rest waits
// here; the end pads with 0x80, zeros and the bit length.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace tv::hash {

class BlockBuffer {
public:
    static constexpr std::size_t kBlock = 64;

    // compress(data, blockCount) consumes whole blocks.
    template <class Compress>
    void update(const std::uint8_t* data, std::size_t length, Compress&& compress) {
        total_ += length;
        if (pending_ > 0) {
            const std::size_t take = std::min(length, kBlock - pending_);
            std::memcpy(block_.data() + pending_, data, take);
            pending_ += take;
            data += take;
            length -= take;
            if (pending_ < kBlock) return;
            compress(block_.data(), 1);
            pending_ = 0;
        }
        if (length >= kBlock) {
            compress(data, length / kBlock);
            data += length - length % kBlock;
            length %= kBlock;
        }
        std::memcpy(block_.data(), data, length);
        pending_ = length;
    }

    template <class Compress>
    void finish(bool bigEndianLength, Compress&& compress) {
        const std::uint64_t bits = total_ * 8;
        block_[pending_++] = 0x80;
        if (pending_ > kBlock - 8) {
            std::memset(block_.data() + pending_, 0, kBlock - pending_);
            compress(block_.data(), 1);
            pending_ = 0;
        }
        std::memset(block_.data() + pending_, 0, kBlock - 8 - pending_);
        for (int i = 0; i < 8; ++i) {
            const int shift = bigEndianLength ? 56 - 8 * i : 8 * i;
            block_[kBlock - 8 + i] = static_cast<std::uint8_t>(bits >> shift);
        }
        compress(block_.data(), 1);
    }

private:
    std::array<std::uint8_t, kBlock> block_{};
    std::size_t pending_ = 0;
    std::uint64_t total_ = 0;
};

inline std::uint32_t rotl(std::uint32_t x, int n) { return (x << n) | (x >> (32 - n)); }

inline std::uint32_t loadLittle32(const std::uint8_t* p) {
    std::uint32_t v;
    std::memcpy(&v, p, 4);
    return v;
}

inline std::uint32_t loadBig32(const std::uint8_t* p) { return __builtin_bswap32(loadLittle32(p)); }

}  // namespace tv::hash
