// MD4 (RFC 1320). The majority function is written as a sum of disjoint bit
// sets, which compiles to fewer dependent operations.
#include "hash/digests.h"

namespace tv::hash {

void md4Blocks(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count) {
    std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    for (; count > 0; --count, blocks += 64) {
        std::uint32_t x[16];
        for (int i = 0; i < 16; ++i) x[i] = loadLittle32(blocks + 4 * i);
        const std::uint32_t a0 = a, b0 = b, c0 = c, d0 = d;
#define TV_F(b, c, d) ((d) ^ ((b) & ((c) ^ (d))))
#define TV_G(b, c, d) (((c) & (d)) + ((b) & ((c) ^ (d))))
#define TV_H(b, c, d) ((b) ^ (c) ^ (d))
#define TV_R1(a, b, c, d, k, s) a = rotl(a + TV_F(b, c, d) + x[k], s)
#define TV_R2(a, b, c, d, k, s) a = rotl(a + TV_G(b, c, d) + x[k] + 0x5A827999u, s)
#define TV_R3(a, b, c, d, k, s) a = rotl(a + TV_H(b, c, d) + x[k] + 0x6ED9EBA1u, s)
        for (int k = 0; k < 16; k += 4) {
            TV_R1(a, b, c, d, k, 3);
            TV_R1(d, a, b, c, k + 1, 7);
            TV_R1(c, d, a, b, k + 2, 11);
            TV_R1(b, c, d, a, k + 3, 19);
        }
        for (int k = 0; k < 4; ++k) {
            TV_R2(a, b, c, d, k, 3);
            TV_R2(d, a, b, c, k + 4, 5);
            TV_R2(c, d, a, b, k + 8, 9);
            TV_R2(b, c, d, a, k + 12, 13);
        }
        for (int k : {0, 2, 1, 3}) {
            TV_R3(a, b, c, d, k, 3);
            TV_R3(d, a, b, c, k + 8, 9);
            TV_R3(c, d, a, b, k + 4, 11);
            TV_R3(b, c, d, a, k + 12, 15);
        }
#undef TV_F
#undef TV_G
#undef TV_H
#undef TV_R1
#undef TV_R2
#undef TV_R3
        a += a0;
        b += b0;
        c += c0;
        d += d0;
    }
    state[0] = a;
    state[1] = b;
    state[2] = c;
    state[3] = d;
}

}  // namespace tv::hash
