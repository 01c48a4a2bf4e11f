// CRC-32 by folding with carry-less multiplication. The data is folded, 64 or
// 256 bytes at a time, into accumulators that stay congruent to the message;
// the accumulators, laid out in order, form a short message with the same CRC,
// which is folded down to 16 bytes and finished with the table. Constants come
// from tools/derive-crc32-constants.py: a lane folded over D bits multiplies its
// low half by k(D + 32) and its high half by k(D - 32).
#include "hash/crc32.h"

#include <cstring>

#include "hash/cpu_features.h"

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>

namespace tv::hash {
namespace {

#define TV_XMM_TARGET __attribute__((target("pclmul,sse4.1")))
#define TV_YMM_TARGET __attribute__((target("vpclmulqdq,pclmul,avx2,sse4.1")))
#define TV_INLINE inline __attribute__((always_inline))

TV_XMM_TARGET TV_INLINE __m128i fold128Key() {
    return _mm_set_epi64x(0x0ccaa009eLL, 0x1751997d0LL);
}

TV_XMM_TARGET TV_INLINE __m128i fold(__m128i x, __m128i key) {
    return _mm_xor_si128(_mm_clmulepi64_si128(x, key, 0x00), _mm_clmulepi64_si128(x, key, 0x11));
}

TV_XMM_TARGET TV_INLINE __m128i load(const std::uint8_t* p) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}

// Folds the remaining whole 16-byte blocks into `x`, then finishes `x` and the
// last few bytes with the table.
TV_XMM_TARGET TV_INLINE std::uint32_t finish(__m128i x, const std::uint8_t* data, std::size_t length) {
    const __m128i key = fold128Key();
    for (; length >= 16; data += 16, length -= 16) x = _mm_xor_si128(fold(x, key), load(data));
    alignas(16) std::uint8_t last[16];
    _mm_store_si128(reinterpret_cast<__m128i*>(last), x);
    return crc32Slice16(crc32Slice16(0, last, 16), data, length);
}

// Folds a run of 16-byte blocks (accumulators written out in order) into one.
TV_XMM_TARGET TV_INLINE __m128i foldBlocks(const std::uint8_t* blocks, std::size_t count) {
    const __m128i key = fold128Key();
    __m128i x = load(blocks);
    for (std::size_t i = 1; i < count; ++i) x = _mm_xor_si128(fold(x, key), load(blocks + 16 * i));
    return x;
}

TV_XMM_TARGET std::uint32_t foldXmm(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    if (length < 64) return crc32Slice16(state, data, length);
    const __m128i key = _mm_set_epi64x(0x1c6e41596LL, 0x154442bd4LL);  // D = 512
    __m128i x0 = _mm_xor_si128(load(data), _mm_cvtsi32_si128(static_cast<int>(state)));
    __m128i x1 = load(data + 16), x2 = load(data + 32), x3 = load(data + 48);
    data += 64;
    length -= 64;
    for (; length >= 64; data += 64, length -= 64) {
        x0 = _mm_xor_si128(fold(x0, key), load(data));
        x1 = _mm_xor_si128(fold(x1, key), load(data + 16));
        x2 = _mm_xor_si128(fold(x2, key), load(data + 32));
        x3 = _mm_xor_si128(fold(x3, key), load(data + 48));
    }
    alignas(16) std::uint8_t blocks[64];
    _mm_store_si128(reinterpret_cast<__m128i*>(blocks), x0);
    _mm_store_si128(reinterpret_cast<__m128i*>(blocks + 16), x1);
    _mm_store_si128(reinterpret_cast<__m128i*>(blocks + 32), x2);
    _mm_store_si128(reinterpret_cast<__m128i*>(blocks + 48), x3);
    return finish(foldBlocks(blocks, 4), data, length);
}

TV_YMM_TARGET TV_INLINE __m256i fold256(__m256i y, __m256i key) {
    return _mm256_xor_si256(_mm256_clmulepi64_epi128(y, key, 0x00),
                            _mm256_clmulepi64_epi128(y, key, 0x11));
}

TV_YMM_TARGET TV_INLINE __m256i load256(const std::uint8_t* p) {
    return _mm256_loadu_si256(reinterpret_cast<const __m256i*>(p));
}

TV_YMM_TARGET std::uint32_t foldYmm(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    if (length < 512) return foldXmm(state, data, length);
    const __m256i key = _mm256_set_epi64x(0x1322d1430LL, 0x11542778aLL, 0x1322d1430LL,
                                          0x11542778aLL);  // D = 2048, in both lanes
    __m256i y[8];
    for (int i = 0; i < 8; ++i) y[i] = load256(data + 32 * i);
    y[0] = _mm256_xor_si256(y[0], _mm256_set_epi32(0, 0, 0, 0, 0, 0, 0, static_cast<int>(state)));
    data += 256;
    length -= 256;
    for (; length >= 256; data += 256, length -= 256)
        for (int i = 0; i < 8; ++i) y[i] = _mm256_xor_si256(fold256(y[i], key), load256(data + 32 * i));
    alignas(32) std::uint8_t blocks[256];
    for (int i = 0; i < 8; ++i) _mm256_store_si256(reinterpret_cast<__m256i*>(blocks + 32 * i), y[i]);
    _mm256_zeroupper();
    return finish(foldBlocks(blocks, 16), data, length);
}

}  // namespace

Crc32Function crc32FoldXmm() { return cpuFeatures().pclmul ? foldXmm : nullptr; }
Crc32Function crc32FoldYmm() { return cpuFeatures().vpclmul256 ? foldYmm : nullptr; }

}  // namespace tv::hash

#else
namespace tv::hash {
Crc32Function crc32FoldXmm() { return nullptr; }
Crc32Function crc32FoldYmm() { return nullptr; }
}  // namespace tv::hash
#endif

namespace tv::hash {
namespace {

struct Choice {
    Crc32Function function;
    const char* name;
};

Choice choose() {
    if (Crc32Function f = crc32FoldYmm()) return {f, "VPCLMULQDQ 8x256"};
    if (Crc32Function f = crc32FoldXmm()) return {f, "PCLMULQDQ 4x128"};
    return {crc32Slice16, "slice-by-16"};
}

const Choice& chosen() {
    static const Choice choice = choose();
    return choice;
}

}  // namespace

std::uint32_t crc32Update(std::uint32_t state, const std::uint8_t* data, std::size_t length) {
    return chosen().function(state, data, length);
}

const char* crc32FormName() { return chosen().name; }

}  // namespace tv::hash
