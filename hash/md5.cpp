// MD5 (RFC 1321). The step function G is added to `a` as two separate terms,
// (~d & c) and (d & b): the additions overlap in the pipeline where the usual
// single expression waits on d.
#include "hash/digests.h"

namespace tv::hash {

#define TV_STEP_F(a, b, c, d, x, t, s) a += ((d) ^ ((b) & ((c) ^ (d)))) + (x) + (t); a = rotl(a, s) + (b)
#define TV_STEP_G(a, b, c, d, x, t, s) a += (x) + (t); a += (~(d) & (c)); a += ((d) & (b)); a = rotl(a, s) + (b)
#define TV_STEP_H(a, b, c, d, x, t, s) a += ((b) ^ (c) ^ (d)) + (x) + (t); a = rotl(a, s) + (b)
#define TV_STEP_I(a, b, c, d, x, t, s) a += ((c) ^ ((b) | ~(d))) + (x) + (t); a = rotl(a, s) + (b)

void md5Blocks(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count) {
    std::uint32_t a = state[0], b = state[1], c = state[2], d = state[3];
    for (; count > 0; --count, blocks += 64) {
        std::uint32_t x[16];
        for (int i = 0; i < 16; ++i) x[i] = loadLittle32(blocks + 4 * i);
        const std::uint32_t a0 = a, b0 = b, c0 = c, d0 = d;
        TV_STEP_F(a, b, c, d, x[0], 0xd76aa478u, 7);
        TV_STEP_F(d, a, b, c, x[1], 0xe8c7b756u, 12);
        TV_STEP_F(c, d, a, b, x[2], 0x242070dbu, 17);
        TV_STEP_F(b, c, d, a, x[3], 0xc1bdceeeu, 22);
        TV_STEP_F(a, b, c, d, x[4], 0xf57c0fafu, 7);
        TV_STEP_F(d, a, b, c, x[5], 0x4787c62au, 12);
        TV_STEP_F(c, d, a, b, x[6], 0xa8304613u, 17);
        TV_STEP_F(b, c, d, a, x[7], 0xfd469501u, 22);
        TV_STEP_F(a, b, c, d, x[8], 0x698098d8u, 7);
        TV_STEP_F(d, a, b, c, x[9], 0x8b44f7afu, 12);
        TV_STEP_F(c, d, a, b, x[10], 0xffff5bb1u, 17);
        TV_STEP_F(b, c, d, a, x[11], 0x895cd7beu, 22);
        TV_STEP_F(a, b, c, d, x[12], 0x6b901122u, 7);
        TV_STEP_F(d, a, b, c, x[13], 0xfd987193u, 12);
        TV_STEP_F(c, d, a, b, x[14], 0xa679438eu, 17);
        TV_STEP_F(b, c, d, a, x[15], 0x49b40821u, 22);
        TV_STEP_G(a, b, c, d, x[1], 0xf61e2562u, 5);
        TV_STEP_G(d, a, b, c, x[6], 0xc040b340u, 9);
        TV_STEP_G(c, d, a, b, x[11], 0x265e5a51u, 14);
        TV_STEP_G(b, c, d, a, x[0], 0xe9b6c7aau, 20);
        TV_STEP_G(a, b, c, d, x[5], 0xd62f105du, 5);
        TV_STEP_G(d, a, b, c, x[10], 0x02441453u, 9);
        TV_STEP_G(c, d, a, b, x[15], 0xd8a1e681u, 14);
        TV_STEP_G(b, c, d, a, x[4], 0xe7d3fbc8u, 20);
        TV_STEP_G(a, b, c, d, x[9], 0x21e1cde6u, 5);
        TV_STEP_G(d, a, b, c, x[14], 0xc33707d6u, 9);
        TV_STEP_G(c, d, a, b, x[3], 0xf4d50d87u, 14);
        TV_STEP_G(b, c, d, a, x[8], 0x455a14edu, 20);
        TV_STEP_G(a, b, c, d, x[13], 0xa9e3e905u, 5);
        TV_STEP_G(d, a, b, c, x[2], 0xfcefa3f8u, 9);
        TV_STEP_G(c, d, a, b, x[7], 0x676f02d9u, 14);
        TV_STEP_G(b, c, d, a, x[12], 0x8d2a4c8au, 20);
        TV_STEP_H(a, b, c, d, x[5], 0xfffa3942u, 4);
        TV_STEP_H(d, a, b, c, x[8], 0x8771f681u, 11);
        TV_STEP_H(c, d, a, b, x[11], 0x6d9d6122u, 16);
        TV_STEP_H(b, c, d, a, x[14], 0xfde5380cu, 23);
        TV_STEP_H(a, b, c, d, x[1], 0xa4beea44u, 4);
        TV_STEP_H(d, a, b, c, x[4], 0x4bdecfa9u, 11);
        TV_STEP_H(c, d, a, b, x[7], 0xf6bb4b60u, 16);
        TV_STEP_H(b, c, d, a, x[10], 0xbebfbc70u, 23);
        TV_STEP_H(a, b, c, d, x[13], 0x289b7ec6u, 4);
        TV_STEP_H(d, a, b, c, x[0], 0xeaa127fau, 11);
        TV_STEP_H(c, d, a, b, x[3], 0xd4ef3085u, 16);
        TV_STEP_H(b, c, d, a, x[6], 0x04881d05u, 23);
        TV_STEP_H(a, b, c, d, x[9], 0xd9d4d039u, 4);
        TV_STEP_H(d, a, b, c, x[12], 0xe6db99e5u, 11);
        TV_STEP_H(c, d, a, b, x[15], 0x1fa27cf8u, 16);
        TV_STEP_H(b, c, d, a, x[2], 0xc4ac5665u, 23);
        TV_STEP_I(a, b, c, d, x[0], 0xf4292244u, 6);
        TV_STEP_I(d, a, b, c, x[7], 0x432aff97u, 10);
        TV_STEP_I(c, d, a, b, x[14], 0xab9423a7u, 15);
        TV_STEP_I(b, c, d, a, x[5], 0xfc93a039u, 21);
        TV_STEP_I(a, b, c, d, x[12], 0x655b59c3u, 6);
        TV_STEP_I(d, a, b, c, x[3], 0x8f0ccc92u, 10);
        TV_STEP_I(c, d, a, b, x[10], 0xffeff47du, 15);
        TV_STEP_I(b, c, d, a, x[1], 0x85845dd1u, 21);
        TV_STEP_I(a, b, c, d, x[8], 0x6fa87e4fu, 6);
        TV_STEP_I(d, a, b, c, x[15], 0xfe2ce6e0u, 10);
        TV_STEP_I(c, d, a, b, x[6], 0xa3014314u, 15);
        TV_STEP_I(b, c, d, a, x[13], 0x4e0811a1u, 21);
        TV_STEP_I(a, b, c, d, x[4], 0xf7537e82u, 6);
        TV_STEP_I(d, a, b, c, x[11], 0xbd3af235u, 10);
        TV_STEP_I(c, d, a, b, x[2], 0x2ad7d2bbu, 15);
        TV_STEP_I(b, c, d, a, x[9], 0xeb86d391u, 21);
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

#undef TV_STEP_F
#undef TV_STEP_G
#undef TV_STEP_H
#undef TV_STEP_I

}  // namespace tv::hash
