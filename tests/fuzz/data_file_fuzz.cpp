// The data-file loader on any bytes: at most nine blocks that are, in order, the
// text from its first "[" on, names cut from them, and look-ups in every block
// as the plain text search gives them.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/baseline_text.h"
#include "integrity/data_file_text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::string file = in.ConsumeRandomLengthString(4096);
    const auto split = tv::splitDataFile(file);
    if (split.blockCount > tv::kSectionCount) __builtin_trap();
    std::string joined;
    for (int n = 0; n < split.blockCount; ++n) joined += split.blocks.text[n].text();
    const auto first = file.find('[');
    if (split.blockCount > 0 && file.compare(first, joined.size(), joined) != 0) __builtin_trap();
    while (in.remaining_bytes() > 0) {
        const std::string key = in.ConsumeRandomLengthString(16);
        for (int n = 0; n < split.blockCount; ++n)
            if (split.blocks.text[n].entry(key) != tv::literalEntry(split.blocks.text[n].text(), key)) __builtin_trap();
    }
    return 0;
}
