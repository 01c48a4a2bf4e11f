#include "core/text.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace tv {
namespace {

// Letter pairs of the Western code page 1252, the code page the program's data
// files are written in on the machines it serves.
struct CaseTables {
    std::array<unsigned char, 256> lower{};
    std::array<unsigned char, 256> upper{};
    CaseTables() {
        for (int c = 0; c < 256; ++c) lower[c] = upper[c] = static_cast<unsigned char>(c);
        auto pair = [this](int up, int low) {
            lower[up] = static_cast<unsigned char>(low);
            upper[low] = static_cast<unsigned char>(up);
        };
        for (int c = 'A'; c <= 'Z'; ++c) pair(c, c + 32);
        for (int c = 0xC0; c <= 0xDE; ++c)
            if (c != 0xD7) pair(c, c + 32);
        pair(0x8A, 0x9A);
        pair(0x8C, 0x9C);
        pair(0x8E, 0x9E);
        pair(0x9F, 0xFF);
    }
};

const CaseTables& tables() {
    static const CaseTables t;
    return t;
}

bool equalAt(std::string_view text, std::size_t at, std::string_view find, Compare how) {
    if (how == Compare::Exact) return text.compare(at, find.size(), find) == 0;
    const auto& low = tables().lower;
    for (std::size_t i = 0; i < find.size(); ++i)
        if (low[static_cast<unsigned char>(text[at + i])] != low[static_cast<unsigned char>(find[i])])
            return false;
    return true;
}

// Zero-based offset of `find` at or after `from`, or npos.
std::size_t findFrom(std::string_view text, std::string_view find, std::size_t from, Compare how) {
    if (how == Compare::Exact) return text.find(find, from);
    if (find.size() > text.size()) return std::string_view::npos;
    const auto& low = tables().lower;
    const unsigned char first = low[static_cast<unsigned char>(find[0])];
    const unsigned char firstUp = tables().upper[first];
    for (std::size_t i = from; i + find.size() <= text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        if ((c == first || c == firstUp || low[c] == first) && equalAt(text, i, find, how)) return i;
    }
    return std::string_view::npos;
}

}  // namespace

char foldCase(char c) { return static_cast<char>(tables().lower[static_cast<unsigned char>(c)]); }
const unsigned char* foldTable() { return tables().lower.data(); }
char upperChar(char c) { return static_cast<char>(tables().upper[static_cast<unsigned char>(c)]); }

std::string upperCase(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = upperChar(c);
    return out;
}

std::string lowerCase(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = foldCase(c);
    return out;
}

bool sameText(std::string_view a, std::string_view b) {
    return a.size() == b.size() && equalAt(a, 0, b, Compare::IgnoreCase);
}

std::size_t inStr(std::size_t start, std::string_view text, std::string_view find, Compare how) {
    if (start < 1 || text.empty() || start > text.size()) return 0;
    if (find.empty()) return start;
    const std::size_t at = findFrom(text, find, start - 1, how);
    return at == std::string_view::npos ? 0 : at + 1;
}

std::string midText(std::string_view text, std::size_t start, std::size_t count) {
    if (start < 1 || start > text.size()) return {};
    return std::string(text.substr(start - 1, count));
}

std::string leftText(std::string_view text, std::size_t count) {
    return std::string(text.substr(0, count));
}

std::string rightText(std::string_view text, std::size_t count) {
    return std::string(text.substr(text.size() - std::min(count, text.size())));
}

std::string trimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    const auto last = text.find_last_not_of(' ');
    return std::string(text.substr(first, last - first + 1));
}

std::string replaceText(std::string_view text, std::string_view find, std::string_view with,
                        Compare how) {
    if (find.empty()) return std::string(text);
    std::string out;
    out.reserve(text.size());
    std::size_t from = 0;
    for (;;) {
        const std::size_t at = findFrom(text, find, from, how);
        if (at == std::string_view::npos) break;
        out.append(text, from, at - from).append(with);
        from = at + find.size();
    }
    out.append(text.substr(from));
    return out;
}

std::vector<std::string> splitText(std::string_view text, std::string_view separator) {
    std::vector<std::string> parts;
    if (text.empty()) return parts;
    std::size_t from = 0;
    for (;;) {
        const std::size_t at = separator.empty() ? std::string_view::npos : text.find(separator, from);
        if (at == std::string_view::npos) break;
        parts.emplace_back(text.substr(from, at - from));
        from = at + separator.size();
    }
    parts.emplace_back(text.substr(from));
    return parts;
}

std::string getBetween(std::string_view text, std::size_t start, std::string_view left,
                       std::string_view right) {
    const std::size_t p = inStr(start, text, left, Compare::IgnoreCase);
    if (p == 0) return {};
    const std::size_t valueStart = p + left.size();
    const std::size_t q = inStr(valueStart, text, right, Compare::IgnoreCase);
    if (q < valueStart) return {};  // right delimiter missing: the cut fails, nothing
    return midText(text, valueStart, q - valueStart);
}

std::string shiftText(std::string_view mode, std::string_view text, bool apply) {
    std::string out(text);
    if (!apply) return out;
    const int step = mode == "ABC" ? 21 : mode == "CBA" ? -21 : 0;
    for (char& c : out) c = static_cast<char>(static_cast<unsigned char>(c) + step);
    return out;
}

std::string withTrailingBackslash(std::string_view path) {
    std::string out(path);
    if (out.empty() || out.back() != '\\') out += '\\';
    return out;
}

std::string withLastThree(std::string_view path, std::string_view ending) {
    return leftText(path, path.size() - std::min<std::size_t>(3, path.size())) + std::string(ending);
}

}  // namespace tv
