// One section of a baseline in memory, as lines with an index, so that a scan's
// look-up and entry write cost about the same per file at any size, and memory
// and time stay in proportion to the text whatever it holds (a damaged disk or a
// hostile edit can leave anything in a data file). Every answer is the one the
// plain text search of baseline_text.h gives on text(); keys the index does not
// cover (empty, longer than any file name, or holding a line break) and blocks
// whose end line is doubled are served by that text search itself.
#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tv {

class BaselineBlock {
public:
    // A file name has at most 255 characters: 510 bytes in a double-byte code
    // page. Longer keys are looked up by the text search.
    static constexpr std::size_t kLongestIndexedKey = 510;

    BaselineBlock() { rebuild({}); }
    explicit BaselineBlock(std::string_view text) { rebuild(text); }

    // The block as text, exactly as loaded and changed.
    std::string text() const;
    bool empty() const { return lineCount() == 1 && line(0).empty(); }

    // The untrimmed value of `key` (see literalEntry).
    std::string entry(std::string_view key) const;

    // Stores `key` with `value` (see literalWrite).
    void write(std::string_view key, std::string_view value);

private:
    // Loaded line n has the number n; a line added later has the loaded count
    // plus its place among the added ones.
    using LineId = std::size_t;

    // A line changed or added since the load, under the case-folded beginning
    // of its present text, then its place in the block.
    struct Changed {
        std::string folded;
        int group;  // 0 ahead of the added lines, 1 added, 2 behind them
        LineId id;
    };
    struct ChangedOrder {
        using is_transparent = void;
        bool operator()(const Changed& a, const Changed& b) const;
        bool operator()(const Changed& a, std::string_view folded) const { return a.folded < folded; }
        bool operator()(std::string_view folded, const Changed& b) const { return folded < b.folded; }
    };

    void rebuild(std::string_view text);
    std::size_t loadedCount() const { return starts_.size() - 1; }
    std::size_t lineCount() const { return loadedCount() + added_.size(); }
    std::string_view loadedLine(LineId id) const;
    std::string_view line(LineId id) const;  // its present text
    // New lines go ahead of the one end line; without exactly one, nowhere.
    LineId insertPoint() const { return endLines_ == 1 ? endLine_ : loadedCount(); }
    int group(LineId id) const;
    std::size_t position(LineId id) const;  // from 0, in block order
    LineId idAt(std::size_t position) const;
    bool terminated(LineId id) const { return position(id) + 1 < lineCount(); }

    // Every line from the second on whose case-folded text begins with
    // `folded`, in no particular order, until `visit` answers true.
    template <class Visit>
    void forEachBeginning(std::string_view folded, Visit visit) const;
    std::optional<LineId> firstBeginning(std::string_view folded) const;
    bool startsSomeLine(std::string_view key) const;
    // The first terminated line behind `id` whose text closes a value.
    std::optional<LineId> valueEndAfter(LineId id) const;

    void setLine(LineId id, std::string text);
    void addLine(std::string text);

    // The loaded lines' texts one after the other, line breaks left out; loaded
    // line n runs from starts_[n] to starts_[n + 1].
    std::string loaded_;
    std::vector<std::size_t> starts_;
    // The non-empty loaded lines from the second on, by the case-folded
    // beginning of their loaded text, then by number. Lines changed since keep
    // their place here and are skipped; changed_ holds them.
    std::vector<LineId> order_;
    std::unordered_map<LineId, std::string> replaced_;  // new texts of loaded lines
    std::vector<std::string> added_;                    // lines added ahead of the end line
    std::set<Changed, ChangedOrder> changed_;
    std::size_t endLines_ = 0;  // terminated "NULL*E" lines from the second on
    LineId endLine_ = 0;        // the last of them
    // Replaced lines that close a value where their loaded text did not, or the
    // other way round: while there are any, valueEnds_ cannot be trusted.
    std::size_t endingsChanged_ = 0;
    // Loaded lines that close a value, by number: made at the first value that
    // runs on over a line, which a healthy baseline never has.
    mutable std::vector<LineId> valueEnds_;
    mutable bool valueEndsMade_ = false;
};

}  // namespace tv
