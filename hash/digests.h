// MD4, MD5 and SHA-1 over data fed in pieces. Each object computes one digest.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "hash/block_buffer.h"

namespace tv::hash {

// Compression of whole 64-byte blocks into the chaining state.
using BlockFunction = void (*)(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count);

void md4Blocks(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count);
void md5Blocks(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count);
void sha1BlocksPortable(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count);
BlockFunction sha1BlocksShaNi();  // null without the SHA instructions
BlockFunction sha1Blocks();       // the fastest form here
const char* sha1FormName();

enum class DigestKind { Md4, Md5, Sha1 };

class Digest {
public:
    explicit Digest(DigestKind kind, BlockFunction blocks = nullptr);
    void update(const std::uint8_t* data, std::size_t length);
    // The digest's bytes: 16 for MD4 and MD5, 20 for SHA-1. Ends the object's use.
    std::vector<std::uint8_t> finish();

private:
    DigestKind kind_;
    BlockFunction blocks_;
    std::array<std::uint32_t, 5> state_;
    BlockBuffer buffer_;
};

}  // namespace tv::hash
