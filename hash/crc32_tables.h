// Lookup tables of the reflected CRC-32: table[0] is the classic byte table;
// table[k] advances a byte that stands k positions further from the end.
#pragma once

#include <array>
#include <cstdint>

namespace tv::hash {

using Crc32Tables = std::array<std::array<std::uint32_t, 256>, 16>;

const Crc32Tables& crc32Tables();

inline std::uint32_t crc32Byte(std::uint32_t state, std::uint8_t byte) {
    return (state >> 8) ^ crc32Tables()[0][(state ^ byte) & 0xFF];
}

}  // namespace tv::hash
