// CRC-32 of IEEE 802.3 (reflected, polynomial 0xEDB88320) on the raw register:
// the caller starts with 0xFFFFFFFF and complements at the end. The register
// carries over from one call to the next, so a file can be fed buffer by buffer.
#pragma once

#include <cstddef>
#include <cstdint>

namespace tv::hash {

// The fastest form this processor allows, chosen once.
std::uint32_t crc32Update(std::uint32_t state, const std::uint8_t* data, std::size_t length);

// Each form on its own, for tests and benchmarks. The folding forms are null
// where the processor (or the build) lacks their instructions.
using Crc32Function = std::uint32_t (*)(std::uint32_t, const std::uint8_t*, std::size_t);
std::uint32_t crc32Bytewise(std::uint32_t state, const std::uint8_t* data, std::size_t length);
std::uint32_t crc32Slice16(std::uint32_t state, const std::uint8_t* data, std::size_t length);
Crc32Function crc32FoldXmm();  // four 128-bit accumulators, PCLMULQDQ
Crc32Function crc32FoldYmm();  // eight 256-bit accumulators, VPCLMULQDQ
const char* crc32FormName();

}  // namespace tv::hash
