// The look-ups the update makes in a scan's pending list ("<path> <value>," or
// "<path>(<slot>) <value>," per finding): where "," + path + mark first stands,
// exactly as a plain search from the list's start finds it, but at a constant
// cost per path, so that an update of many files stays linear.
#pragma once

#include <cstddef>
#include <string_view>
#include <unordered_map>

namespace tv {

class PendingListIndex {
public:
    // `list` must outlive the index. `mark` is the character behind a path.
    PendingListIndex(std::string_view list, char mark);

    // The 1-based position of the first "," + path + mark, 0 when there is none.
    std::size_t afterComma(std::string_view path) const;

private:
    std::string_view list_;
    char mark_;
    // The text between each comma and the next mark, with the first such comma.
    std::unordered_map<std::string_view, std::size_t> firstComma_;
};

}  // namespace tv
