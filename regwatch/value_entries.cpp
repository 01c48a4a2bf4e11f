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

std::string placeValueText(std::uint32_t type, std::string_view data) {
    enum : std::uint32_t { Sz = 1, ExpandSz = 2, Dword = 4, MultiSz = 7, Qword = 11 };
    if (type == Sz || type == ExpandSz) return std::string(data.substr(0, data.find('\0')));
    if (type == MultiSz) return stringListText(data);
    if ((type == Dword && data.size() == 4) || (type == Qword && data.size() == 8)) {
        std::uint64_t number = 0;
        for (std::size_t i = data.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(data[i]);
        return std::to_string(number);
    }
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string text;
    for (const char c : data) {
        if (!text.empty()) text += ' ';
        text += kDigits[static_cast<unsigned char>(c) >> 4];
        text += kDigits[static_cast<unsigned char>(c) & 15];
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
