#include "core/section_blocks.h"

#include "core/text.h"

namespace tv {

int findSectionNumber(const SectionBlocks& blocks, std::string_view name) {
    const std::string wanted = upperCase(name);
    for (int n = 1; n <= kSectionCount; ++n)
        if (upperCase(blocks.name[n - 1]) == wanted) return n;
    return 0;
}

bool writeEntryToBlocks(SectionBlocks& blocks, std::string_view section, std::string_view key,
                        std::string_view value) {
    const int n = findSectionNumber(blocks, section);
    if (n == 0) return false;
    std::string& block = blocks.text[n - 1];
    const std::string lineStart = "\r\n" + std::string(key);

    if (inStr(1, block, lineStart, Compare::Exact) == 0) {
        block = replaceText(block, "\r\nNULL*E\r\n",
                            lineStart + "=" + std::string(value) + "\r\nNULL*E\r\n",
                            Compare::IgnoreCase);
        return true;
    }
    const std::string old = getBetween(block, 1, lineStart + "=", "*E\r\n");
    block = replaceText(block, lineStart + "=" + old + "*E\r\n",
                        lineStart + "=" + std::string(value) + "\r\n", Compare::IgnoreCase);
    return true;
}

}  // namespace tv
