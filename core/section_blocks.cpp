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
    blocks.text[n - 1].write(key, value);
    return true;
}

}  // namespace tv
