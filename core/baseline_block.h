// One section of a baseline in memory, as lines with indexes, so that a scan's
// look-up and entry write cost constant time per file instead of a search
// through the whole section. Every answer is the one the plain text search of
// baseline_text.h gives on text(); shapes the indexes do not cover (a key or
// value holding a line break, a section whose end line is missing, doubled or
// not last) are served by that text search itself.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tv {

class BaselineBlock {
public:
    BaselineBlock() { rebuild({}); }
    explicit BaselineBlock(std::string_view text) { rebuild(text); }

    // The block as text, exactly as loaded and changed.
    std::string text() const;
    bool empty() const { return lines_.size() == 1 && lines_[0].empty(); }

    // The untrimmed value of `key` (see literalEntry).
    std::string entry(std::string_view key) const;

    // Stores `key` with `value` (see literalWrite).
    void write(std::string_view key, std::string_view value);

private:
    void rebuild(std::string_view text);
    void index(int line);
    void unindex(int line);
    bool startsSomeLine(std::string_view key) const;
    bool terminated(int line) const { return line + 1 < static_cast<int>(lines_.size()); }
    int firstLineWithKey(std::string_view key) const;

    // Split at every CR LF; all but the last line were followed by one.
    std::vector<std::string> lines_;
    // Lines from the second on, by the case-folded text before each "=" they hold:
    // the lines a look-up of that key can land on, in block order.
    std::unordered_map<std::string, std::vector<int>> byKey_;
    // Lines from the second on, exactly, for the writer's presence test.
    std::multiset<std::string, std::less<>> sorted_;
    // The block ends in its one "NULL*E" line, so new entries go just before it.
    bool endsInEndLine_ = false;
};

}  // namespace tv
