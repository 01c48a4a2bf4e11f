// SHA-1 (FIPS 180): the portable compression, and the choice of form.
#include "hash/digests.h"

namespace tv::hash {

void sha1BlocksPortable(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count) {
    std::uint32_t h0 = state[0], h1 = state[1], h2 = state[2], h3 = state[3], h4 = state[4];
    for (; count > 0; --count, blocks += 64) {
        std::uint32_t w[16];
        for (int i = 0; i < 16; ++i) w[i] = loadBig32(blocks + 4 * i);
        std::uint32_t a = h0, b = h1, c = h2, d = h3, e = h4;
        auto schedule = [&w](int t) {
            const std::uint32_t v = rotl(w[(t + 13) & 15] ^ w[(t + 8) & 15] ^ w[(t + 2) & 15] ^ w[t & 15], 1);
            w[t & 15] = v;
            return v;
        };
        auto round = [&](std::uint32_t f, std::uint32_t k, std::uint32_t wt) {
            const std::uint32_t temp = rotl(a, 5) + f + e + k + wt;
            e = d;
            d = c;
            c = rotl(b, 30);
            b = a;
            a = temp;
        };
        for (int t = 0; t < 16; ++t) round(d ^ (b & (c ^ d)), 0x5A827999u, w[t]);
        for (int t = 16; t < 20; ++t) round(d ^ (b & (c ^ d)), 0x5A827999u, schedule(t));
        for (int t = 20; t < 40; ++t) round(b ^ c ^ d, 0x6ED9EBA1u, schedule(t));
        for (int t = 40; t < 60; ++t) round((b & c) + (d & (b ^ c)), 0x8F1BBCDCu, schedule(t));
        for (int t = 60; t < 80; ++t) round(b ^ c ^ d, 0xCA62C1D6u, schedule(t));
        h0 += a;
        h1 += b;
        h2 += c;
        h3 += d;
        h4 += e;
    }
    state[0] = h0;
    state[1] = h1;
    state[2] = h2;
    state[3] = h3;
    state[4] = h4;
}

BlockFunction sha1Blocks() {
    static const BlockFunction chosen = sha1BlocksShaNi() ? sha1BlocksShaNi() : sha1BlocksPortable;
    return chosen;
}

const char* sha1FormName() { return sha1BlocksShaNi() ? "SHA extensions" : "portable"; }

}  // namespace tv::hash
