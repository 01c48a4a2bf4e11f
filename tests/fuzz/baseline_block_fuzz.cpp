// Look-ups and writes of the indexed baseline block against the plain text
// search, on blocks the fuzzer builds from tricky pieces and from raw bytes.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/baseline_block.h"
#include "core/baseline_text.h"

namespace {

std::string piece(FuzzedDataProvider& in) {
    // A name one short of the longest the index orders by: with one more
    // piece a key or a line reaches past it.
    static const std::string kLong(tv::BaselineBlock::kLongestIndexedKey - 1, 'K');
    static const std::string kPieces[] = {"[DLL]", "\r\n", "NULL*E", "null*e", "=", "*E", "*e", "[", "]",
                                          "KERNEL32.DLL", "kernel32.dll", "A", "A=B", " ", "\r", "\n", kLong};
    if (in.ConsumeBool()) return in.ConsumeRandomLengthString(12);
    return kPieces[in.ConsumeIntegralInRange<std::size_t>(0, sizeof kPieces / sizeof *kPieces - 1)];
}

std::string text(FuzzedDataProvider& in, int maxPieces) {
    std::string out;
    const int count = in.ConsumeIntegralInRange(0, maxPieces);
    for (int i = 0; i < count; ++i) out += piece(in);
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    std::string literal = text(in, 40);
    tv::BaselineBlock block(literal);
    if (block.text() != literal) __builtin_trap();
    while (in.remaining_bytes() > 0) {
        const std::string key = text(in, 3);
        if (in.ConsumeBool()) {
            const std::string value = text(in, 2) + "*E";
            literal = tv::literalWrite(literal, key, value);
            block.write(key, value);
            if (block.text() != literal) __builtin_trap();
        } else if (block.entry(key) != tv::literalEntry(literal, key)) {
            __builtin_trap();
        }
    }
    return 0;
}
