#include "regwatch/pending_boot.h"

#include "core/text.h"
#include "regwatch/reg_class.h"

namespace tv {
namespace {

constexpr std::string_view kRenamePrefix = "\\??\\";

}  // namespace

std::vector<WininitEntry> parseWininit(std::string_view text) {
    std::vector<WininitEntry> entries;
    for (std::string& line : splitText(text, "\r\n")) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos) continue;
        const bool deletes = upperCase(std::string_view(line).substr(0, equals)) == "NUL";
        // Behind the first "=" up to the first "*!*": the mark put behind the
        // line ends it when the line itself holds none.
        line += "*!*";
        const std::size_t end = line.find("*!*", equals + 1);
        entries.push_back({line.substr(equals + 1, end - equals - 1), deletes});
    }
    return entries;
}

std::string readPendingRenames(Registry& registry) {
    RegClass reg(registry);
    reg.openRegistry(hive::LocalMachine, kPendingRenameKey, RegView::Native, RegAccess::Read);
    std::string value = reg.getValue(RegText(kPendingRenameValue)).text;
    reg.closeRegistry();
    return value;
}

std::vector<std::string> pendingRenameParts(std::string_view value) {
    std::vector<std::string> parts = splitText(value, kRenamePrefix);
    if (parts.size() < 2) parts.clear();
    return parts;
}

std::string pendingRenameFile(std::string_view part) {
    const std::size_t nul = part.find('\0');
    return nul == std::string_view::npos ? std::string() : trimBlanks(part.substr(0, nul));
}

std::vector<std::string> parsePendingRenames(std::string_view value) {
    std::vector<std::string> files;
    for (const std::string& part : pendingRenameParts(value))
        if (!trimBlanks(part).empty()) files.push_back(pendingRenameFile(part));
    return files;
}

std::string pendingRow(const WininitEntry& entry) {
    return entry.file + (entry.deletes ? kDeletedSuffix : kOverwrittenSuffix);
}

}  // namespace tv
