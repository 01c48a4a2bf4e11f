// SHA-1 with the SHA extensions: four rounds per sha1rnds4, the message
// schedule by sha1msg1/sha1msg2, E carried by sha1nexte.
#include "hash/cpu_features.h"
#include "hash/digests.h"

#if defined(__x86_64__) || defined(__i386__)
#include <immintrin.h>

#include <utility>

namespace tv::hash {
namespace {

#define TV_SHA_TARGET __attribute__((target("sha,ssse3,sse4.1")))

// One group of four rounds, number I (0 to 19), with its message words m[I % 4].
// Group I's words are W(4I..4I+3); from group 4 on they are made from the four
// groups before: W(i) = msg2(msg1(W(i-4), W(i-3)) ^ W(i-2), W(i-1)).
template <int I>
TV_SHA_TARGET inline __attribute__((always_inline)) void fourRounds(__m128i& abcd, __m128i& e,
                                                                    __m128i& previousAbcd, __m128i (&m)[4]) {
    if constexpr (I >= 4) {
        m[I % 4] = _mm_sha1msg2_epu32(
            _mm_xor_si128(_mm_sha1msg1_epu32(m[I % 4], m[(I + 1) % 4]), m[(I + 2) % 4]), m[(I + 3) % 4]);
    }
    const __m128i input = I == 0 ? _mm_add_epi32(e, m[0]) : _mm_sha1nexte_epu32(previousAbcd, m[I % 4]);
    previousAbcd = abcd;
    abcd = _mm_sha1rnds4_epu32(abcd, input, I / 5);
}

template <int... I>
TV_SHA_TARGET inline __attribute__((always_inline)) void eightyRounds(__m128i& abcd, __m128i& e, __m128i& previous,
                                                                      __m128i (&m)[4], std::integer_sequence<int, I...>) {
    (fourRounds<I>(abcd, e, previous, m), ...);
}

TV_SHA_TARGET void blocksShaNi(std::uint32_t* state, const std::uint8_t* blocks, std::size_t count) {
    const __m128i byteSwap = _mm_set_epi64x(0x0001020304050607LL, 0x08090a0b0c0d0e0fLL);
    __m128i abcd = _mm_shuffle_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(state)), 0x1B);
    __m128i e = _mm_set_epi32(static_cast<int>(state[4]), 0, 0, 0);
    for (; count > 0; --count, blocks += 64) {
        const __m128i abcdSaved = abcd, eSaved = e;
        __m128i m[4];
        for (int i = 0; i < 4; ++i)
            m[i] = _mm_shuffle_epi8(_mm_loadu_si128(reinterpret_cast<const __m128i*>(blocks + 16 * i)), byteSwap);
        __m128i previous = abcd;
        eightyRounds(abcd, e, previous, m, std::make_integer_sequence<int, 20>{});
        e = _mm_sha1nexte_epu32(previous, eSaved);
        abcd = _mm_add_epi32(abcd, abcdSaved);
    }
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), _mm_shuffle_epi32(abcd, 0x1B));
    state[4] = static_cast<std::uint32_t>(_mm_extract_epi32(e, 3));
}

}  // namespace

BlockFunction sha1BlocksShaNi() { return cpuFeatures().sha ? blocksShaNi : nullptr; }

}  // namespace tv::hash

#else
namespace tv::hash {
BlockFunction sha1BlocksShaNi() { return nullptr; }
}  // namespace tv::hash
#endif
