#include "hash/crc16.h"

#include <array>

namespace tv::hash {
namespace {

// Entries keep the bits above the low 16 that the doubling leaves; only the low
// 16 bits take part in the checksum.
constexpr std::array<std::uint32_t, 256> makeTable() {
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t t = i << 8, c = 0;
        for (int bit = 0; bit < 8; ++bit) {
            c = ((c ^ t) & 0x8000u) ? (c * 2) ^ 0x1021u : c * 2;
            t *= 2;
        }
        table[i] = c;
    }
    return table;
}

constexpr auto kTable = makeTable();

}  // namespace

std::uint32_t crc16Update(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i)
        state = (kTable[((state >> 8) ^ data[i]) & 0xFF] ^ (state << 8)) & 0xFFFF;
    return state;
}

}  // namespace tv::hash
