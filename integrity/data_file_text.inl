// Template part of data_file_text.h.
#include "core/text.h"

namespace tv {

template <class AfterBlock>
SplitDataFile splitDataFile(std::string_view text, AfterBlock&& afterBlock) {
    SplitDataFile out;
    std::string rest(text);
    for (int turn = 0; turn < kSectionCount; ++turn) {
        const std::size_t p = inStr(1, rest, "[");
        if (p == 0) continue;
        std::size_t q = inStr(p + 1, rest, "\r\n[");
        BaselineBlock& block = out.blocks.text[out.blockCount++];
        if (q == 0) {
            block = BaselineBlock(midText(rest, p));
            afterBlock();
            break;
        }
        q += 2;  // the next section's "["
        block = BaselineBlock(midText(rest, p, q - p));
        rest = midText(rest, q - 1);  // keeps the line feed ahead of that "["
        afterBlock();
    }
    for (int n = 0; n < out.blockCount; ++n) {
        const std::string blockText = out.blocks.text[n].text();
        const std::size_t close = inStr(1, blockText, "]");
        if (close == 0) {
            out.named = false;
            break;
        }
        out.blocks.name[n] = midText(blockText, 2, close - 2);
    }
    return out;
}

}  // namespace tv
