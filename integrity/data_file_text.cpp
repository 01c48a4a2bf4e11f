#include "integrity/data_file_text.h"

namespace tv {

SplitDataFile splitDataFile(std::string_view text) {
    return splitDataFile(text, [] {});
}

std::string dataFileText(const SectionBlocks& blocks) {
    std::string text(kDataFileHeader);
    for (const BaselineBlock& block : blocks.text) text += block.text();
    return text;
}

}  // namespace tv
