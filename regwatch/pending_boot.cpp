#include "regwatch/pending_boot.h"

#include "core/text.h"

namespace tv {
namespace {

constexpr std::string_view kRenamePrefix = "\\??\\";

// The parts between the separators, as views; an empty text has none.
template <typename Visit>
void forEachPart(std::string_view text, std::string_view separator, Visit visit) {
    if (text.empty()) return;
    for (std::size_t from = 0;;) {
        const std::size_t at = text.find(separator, from);
        if (at == std::string_view::npos) {
            visit(text.substr(from));
            return;
        }
        visit(text.substr(from, at - from));
        from = at + separator.size();
    }
}

}  // namespace

std::vector<WininitEntry> parseWininit(std::string_view text) {
    std::vector<WininitEntry> entries;
    forEachPart(text, "\r\n", [&entries](std::string_view line) {
        const std::size_t equals = line.find('=');
        if (equals == std::string_view::npos) return;
        const std::string_view left = line.substr(0, equals);
        // Behind the first "=" up to the first "*!*": the mark put behind the
        // line ends it when the line itself holds none.
        const std::string marked = std::string(line) + "*!*";
        const std::size_t end = marked.find("*!*", equals + 1);
        entries.push_back({marked.substr(equals + 1, end - equals - 1), upperCase(left) == "NUL"});
    });
    return entries;
}

std::vector<std::string> parsePendingRenames(std::string_view value) {
    std::vector<std::string_view> parts;
    forEachPart(value, kRenamePrefix, [&parts](std::string_view part) { parts.push_back(part); });
    std::vector<std::string> files;
    if (parts.size() < 2) return files;
    for (std::string_view part : parts) {
        if (trimBlanks(part).empty()) continue;
        const std::size_t nul = part.find('\0');
        files.push_back(nul == std::string_view::npos ? std::string() : trimBlanks(part.substr(0, nul)));
    }
    return files;
}

std::string pendingRow(const WininitEntry& entry) {
    return entry.file + (entry.deletes ? kDeletedSuffix : kOverwrittenSuffix);
}

}  // namespace tv
