#include "integrity/pending_list_index.h"

#include <string>

namespace tv {

PendingListIndex::PendingListIndex(std::string_view list, char mark) : list_(list), mark_(mark) {
    for (std::size_t comma = list_.find(','); comma != std::string_view::npos; comma = list_.find(',', comma + 1)) {
        const std::size_t next = list_.find(mark_, comma + 1);
        if (next == std::string_view::npos) break;
        firstComma_.emplace(list_.substr(comma + 1, next - comma - 1), comma);
    }
}

// A path without the mark is found at a comma exactly when the text from there
// to the next mark is the path itself. A path holding the mark is searched.
std::size_t PendingListIndex::afterComma(std::string_view path) const {
    if (path.find(mark_) != std::string_view::npos) {
        const std::size_t at = list_.find("," + std::string(path) + mark_);
        return at == std::string_view::npos ? 0 : at + 1;
    }
    const auto found = firstComma_.find(path);
    return found == firstComma_.end() ? 0 : found->second + 1;
}

}  // namespace tv
