// Template part of data_file_text.h.
#include "core/text.h"

namespace tv {

// The blocks are cut from views of the text, so that no copy of what remains
// of a large file is made for each block.
template <class AfterBlock>
SplitDataFile splitDataFile(std::string_view text, AfterBlock&& afterBlock) {
    SplitDataFile out;
    std::string_view rest = text;
    std::string_view cut[kSectionCount];
    for (int turn = 0; turn < kSectionCount; ++turn) {
        const std::size_t p = inStr(1, rest, "[");
        if (p == 0) continue;
        std::size_t q = inStr(p + 1, rest, "\r\n[");
        std::string_view& block = cut[out.blockCount];
        BaselineBlock& into = out.blocks.text[out.blockCount++];
        if (q == 0) {
            block = rest.substr(p - 1);
            into = BaselineBlock(block);
            afterBlock();
            break;
        }
        q += 2;  // the next section's "["
        block = rest.substr(p - 1, q - p);
        into = BaselineBlock(block);
        rest = rest.substr(q - 2);  // keeps the line feed ahead of that "["
        afterBlock();
    }
    for (int n = 0; n < out.blockCount; ++n) {
        const std::size_t close = inStr(1, cut[n], "]");
        if (close == 0) {
            out.named = false;
            break;
        }
        out.blocks.name[n] = midText(cut[n], 2, close - 2);
    }
    return out;
}

}  // namespace tv
