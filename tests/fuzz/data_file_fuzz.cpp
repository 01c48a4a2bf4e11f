// The data-file loader on any text: at most nine blocks that are, in order, the text from its first "[" on; and in
// one of them, look-ups and writes of the indexed block exactly as the plain text search gives them.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/baseline_text.h"
#include "integrity/data_file_text.h"

namespace {

// Tricky pieces and raw bytes; a name one short of the longest the index orders by, which one more piece passes.
std::string text(FuzzedDataProvider& in, int maxPieces) {
    static const std::string kLong(tv::BaselineBlock::kLongestIndexedKey - 1, 'K');
    static const std::string kPieces[] = {"[DLL]", "\r\n", "NULL*E", "null*e", "=", "*E", "*e", "[", "]",
                                          "KERNEL32.DLL", "kernel32.dll", "A", "A=B", " ", "\r", "\n", kLong};
    std::string out;
    for (int count = in.ConsumeIntegralInRange(0, maxPieces); count > 0; --count)
        out += in.ConsumeBool() ? in.ConsumeRandomLengthString(12)
                                : kPieces[in.ConsumeIntegralInRange<std::size_t>(0, std::size(kPieces) - 1)];
    return out;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::string file = text(in, 60);
    auto split = tv::splitDataFile(file);
    if (split.blockCount > tv::kSectionCount) __builtin_trap();
    std::string joined;
    for (int n = 0; n < split.blockCount; ++n) joined += split.blocks.text[n].text();
    if (split.blockCount > 0 && file.compare(file.find('['), joined.size(), joined) != 0) __builtin_trap();
    tv::BaselineBlock& block = split.blocks.text[in.ConsumeIntegralInRange(0, tv::kSectionCount - 1)];
    std::string literal = block.text();
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
