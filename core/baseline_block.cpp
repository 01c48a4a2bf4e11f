#include "core/baseline_block.h"

#include <algorithm>

#include "core/baseline_text.h"
#include "core/text.h"

namespace tv {
namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kEndLine = "NULL*E";

bool holdsLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

// The line closes a value: "*E" (in either case) just ahead of its CR LF.
bool endsValue(const std::string& line) {
    return line.size() >= 2 && line[line.size() - 2] == '*' && foldCase(line.back()) == 'e';
}

}  // namespace

void BaselineBlock::rebuild(std::string_view text) {
    lines_.clear();
    byKey_.clear();
    sorted_.clear();
    for (std::size_t from = 0;;) {
        const std::size_t at = text.find(kCrLf, from);
        if (at == std::string_view::npos) {
            lines_.emplace_back(text.substr(from));
            break;
        }
        lines_.emplace_back(text.substr(from, at - from));
        from = at + kCrLf.size();
    }
    const int count = static_cast<int>(lines_.size());
    for (int line = 1; line < count; ++line) index(line);

    const int endLine = count - 2;
    endsInEndLine_ = endLine >= 1 && lines_.back().empty() && sameText(lines_[endLine], kEndLine) &&
                     std::none_of(lines_.begin() + 1, lines_.begin() + endLine,
                                  [](const std::string& line) { return sameText(line, kEndLine); });
}

void BaselineBlock::index(int line) {
    const std::string& content = lines_[line];
    sorted_.insert(content);
    const std::string folded = lowerCase(content);
    for (std::size_t at = folded.find('='); at != std::string::npos; at = folded.find('=', at + 1)) {
        auto& lines = byKey_[folded.substr(0, at)];
        lines.insert(std::upper_bound(lines.begin(), lines.end(), line), line);
    }
}

void BaselineBlock::unindex(int line) {
    const std::string& content = lines_[line];
    sorted_.erase(sorted_.find(content));
    const std::string folded = lowerCase(content);
    for (std::size_t at = folded.find('='); at != std::string::npos; at = folded.find('=', at + 1)) {
        const auto found = byKey_.find(folded.substr(0, at));
        auto& lines = found->second;
        lines.erase(std::lower_bound(lines.begin(), lines.end(), line));
        if (lines.empty()) byKey_.erase(found);
    }
}

std::string BaselineBlock::text() const {
    std::string out;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (i > 0) out += kCrLf;
        out += lines_[i];
    }
    return out;
}

bool BaselineBlock::startsSomeLine(std::string_view key) const {
    const auto candidate = sorted_.lower_bound(key);
    return candidate != sorted_.end() && candidate->starts_with(key);
}

int BaselineBlock::firstLineWithKey(std::string_view key) const {
    const auto found = byKey_.find(lowerCase(key));
    return found == byKey_.end() ? -1 : found->second.front();
}

std::string BaselineBlock::entry(std::string_view key) const {
    if (holdsLineBreak(key)) return literalEntry(text(), key);
    const int line = firstLineWithKey(key);
    if (line < 0 || !terminated(line)) return {};
    const std::string& first = lines_[line];
    const std::size_t valueStart = key.size() + 1;
    if (endsValue(first)) return first.substr(valueStart, first.size() - 2 - valueStart);
    // A line without its "*E": the value runs on to the next line that has one.
    std::string value = first.substr(valueStart);
    for (int next = line + 1; terminated(next); ++next) {
        value += kCrLf;
        if (endsValue(lines_[next])) return value + lines_[next].substr(0, lines_[next].size() - 2);
        value += lines_[next];
    }
    return {};
}

void BaselineBlock::write(std::string_view key, std::string_view value) {
    const auto byText = [&] { rebuild(literalWrite(text(), key, value)); };
    if (holdsLineBreak(key) || holdsLineBreak(value)) return byText();
    const std::string newLine = std::string(key) + "=" + std::string(value);

    if (!startsSomeLine(key)) {
        if (!endsInEndLine_) return byText();
        const int endLine = static_cast<int>(lines_.size()) - 2;
        unindex(endLine);
        lines_[endLine] = kEndLine;  // the end line is written anew, in capitals
        lines_.insert(lines_.begin() + endLine, newLine);
        index(endLine);
        index(endLine + 1);
        return;
    }

    const std::string old = entry(key);
    if (holdsLineBreak(old)) return byText();
    const std::string stored = std::string(key) + "=" + old + "*E";
    const auto found = byKey_.find(lowerCase(key));
    if (found == byKey_.end()) return;
    const std::vector<int> candidates = found->second;
    int lastReplaced = -2;
    for (const int line : candidates) {
        // A replaced line took the line break in front of the next one with it.
        if (!terminated(line) || line == lastReplaced + 1 || !sameText(lines_[line], stored)) continue;
        unindex(line);
        lines_[line] = newLine;
        index(line);
        lastReplaced = line;
    }
}

}  // namespace tv
