#include <cstring>

#include "hash/crc32.h"
#include "hash/crc32_tables.h"

namespace tv::hash {
namespace {

constexpr Crc32Tables makeTables() {
    Crc32Tables t{};
    for (std::uint32_t i = 0; i < 256; ++i) {
        std::uint32_t c = i;
        for (int bit = 0; bit < 8; ++bit) c = (c >> 1) ^ (0xEDB88320u & (0u - (c & 1u)));
        t[0][i] = c;
    }
    for (std::size_t k = 1; k < t.size(); ++k)
        for (std::size_t i = 0; i < 256; ++i) t[k][i] = (t[k - 1][i] >> 8) ^ t[0][t[k - 1][i] & 0xFF];
    return t;
}

constexpr Crc32Tables kTables = makeTables();
static_assert(kTables[0][1] == 0x77073096u);

std::uint32_t load32(const std::uint8_t* p) {
    std::uint32_t v;
    std::memcpy(&v, p, 4);
    return v;  // x86 is little-endian, as the CRC's byte order is
}

}  // namespace

const Crc32Tables& crc32Tables() { return kTables; }

std::uint32_t crc32Bytewise(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    for (std::size_t i = 0; i < length; ++i) state = crc32Byte(state, data[i]);
    return state;
}

std::uint32_t crc32Slice16(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    const auto& t = kTables;
    while (length >= 16) {
        const std::uint32_t a = load32(data) ^ state, b = load32(data + 4), c = load32(data + 8),
                            d = load32(data + 12);
        state = t[15][a & 0xFF] ^ t[14][(a >> 8) & 0xFF] ^ t[13][(a >> 16) & 0xFF] ^ t[12][a >> 24] ^
                t[11][b & 0xFF] ^ t[10][(b >> 8) & 0xFF] ^ t[9][(b >> 16) & 0xFF] ^ t[8][b >> 24] ^
                t[7][c & 0xFF] ^ t[6][(c >> 8) & 0xFF] ^ t[5][(c >> 16) & 0xFF] ^ t[4][c >> 24] ^
                t[3][d & 0xFF] ^ t[2][(d >> 8) & 0xFF] ^ t[1][(d >> 16) & 0xFF] ^ t[0][d >> 24];
        data += 16;
        length -= 16;
    }
    return crc32Bytewise(state, data, length);
}

}  // namespace tv::hash
