#include "regwatch/value_entries.h"

#include <algorithm>

#include "core/text.h"

namespace tv {
namespace {

constexpr std::string_view kListSeparator = ", ";

// The entries of `from` that `against` does not hold, each match used once.
std::vector<std::string> missingFrom(const std::vector<std::string>& from, std::vector<std::string> against) {
    std::vector<std::string> missing;
    for (const std::string& entry : from) {
        const auto match = std::find(against.begin(), against.end(), entry);
        if (match == against.end())
            missing.push_back(entry);
        else
            against.erase(match);
    }
    return missing;
}

}  // namespace

std::string stringListText(std::string_view data) {
    std::string text;
    for (std::size_t start = 0; start < data.size();) {
        const std::size_t end = std::min(data.find('\0', start), data.size());
        if (end == start) break;  // the empty string that ends the list
        if (!text.empty()) text += kListSeparator;
        text += data.substr(start, end - start);
        start = end + 1;
    }
    return text;
}

std::vector<std::string> valueEntries(std::string_view text, EntrySplit split) {
    if (split == EntrySplit::Whole) return text.empty() ? std::vector<std::string>{} : std::vector{std::string(text)};
    if (split == EntrySplit::StringList) return splitText(text, kListSeparator);
    std::vector<std::string> entries;
    std::string entry;
    for (const char c : std::string(text) + ' ') {
        if (c != ' ' && c != ',') {
            entry += c;
        } else if (!entry.empty()) {
            entries.push_back(std::move(entry));
            entry.clear();
        }
    }
    return entries;
}

EntryChanges entryChanges(std::string_view before, std::string_view now, EntrySplit split) {
    const std::vector<std::string> old = valueEntries(before, split), current = valueEntries(now, split);
    return {missingFrom(current, old), missingFrom(old, current)};
}

}  // namespace tv
