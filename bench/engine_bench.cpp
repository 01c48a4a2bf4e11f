// In-memory speed of every checksum form, one core, on a buffer the size of the
// largest read buffer (it stays in the second-level cache, as a read buffer does).
#include <benchmark/benchmark.h>

#include <cstdint>
#include <vector>

#include "hash/crc16.h"
#include "hash/crc32.h"
#include "hash/digests.h"

namespace {

const std::vector<std::uint8_t>& data() {
    static const std::vector<std::uint8_t> buffer = [] {
        std::vector<std::uint8_t> b(256 * 1024);
        std::uint32_t x = 12345;
        for (auto& byte : b) byte = static_cast<std::uint8_t>((x = x * 1103515245 + 12345) >> 16);
        return b;
    }();
    return buffer;
}

void crc32Form(benchmark::State& state, tv::hash::Crc32Function form) {
    if (!form) return state.SkipWithError("not on this processor");
    std::uint32_t crc = 0xFFFFFFFFu;
    for (auto _ : state) benchmark::DoNotOptimize(crc = form(crc, data().data(), data().size()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * data().size()));
}

void blocks(benchmark::State& state, tv::hash::BlockFunction form) {
    if (!form) return state.SkipWithError("not on this processor");
    std::uint32_t chaining[5] = {1, 2, 3, 4, 5};
    for (auto _ : state) {
        form(chaining, data().data(), data().size() / 64);
        benchmark::DoNotOptimize(chaining);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * data().size()));
}

void crc16(benchmark::State& state) {
    std::uint32_t crc = 0;
    for (auto _ : state) benchmark::DoNotOptimize(crc = tv::hash::crc16Update(crc, data().data(), data().size()));
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * data().size()));
}

BENCHMARK_CAPTURE(crc32Form, bytewise, tv::hash::crc32Bytewise);
BENCHMARK_CAPTURE(crc32Form, slice16, tv::hash::crc32Slice16);
BENCHMARK_CAPTURE(crc32Form, pclmul_xmm, tv::hash::crc32FoldXmm());
BENCHMARK_CAPTURE(crc32Form, vpclmul_ymm, tv::hash::crc32FoldYmm());
BENCHMARK(crc16);
BENCHMARK_CAPTURE(blocks, md4, tv::hash::md4Blocks);
BENCHMARK_CAPTURE(blocks, md5, tv::hash::md5Blocks);
BENCHMARK_CAPTURE(blocks, sha1_portable, tv::hash::sha1BlocksPortable);
BENCHMARK_CAPTURE(blocks, sha1_shani, tv::hash::sha1BlocksShaNi());

}  // namespace

BENCHMARK_MAIN();
