#include "core/baseline_block.h"

#include <algorithm>
#include <utility>

#include "core/baseline_text.h"
#include "core/text.h"

namespace tv {
namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr std::string_view kEndLine = "NULL*E";
// The index orders lines by this much of their beginning: a key and its "=".
constexpr std::size_t kOrderedBytes = BaselineBlock::kLongestIndexedKey + 1;

bool holdsLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

bool indexable(std::string_view key) {
    return !key.empty() && key.size() <= BaselineBlock::kLongestIndexedKey && !holdsLineBreak(key);
}

// The line closes a value: "*E" (in either case) just ahead of its CR LF.
bool endsValue(std::string_view line) {
    return line.size() >= 2 && line[line.size() - 2] == '*' && foldCase(line.back()) == 'e';
}

// The ordered beginnings of two texts, case-folded, compared byte by byte.
int compareBeginnings(std::string_view a, std::string_view b) {
    static const unsigned char* const fold = foldTable();
    const std::size_t lengthA = std::min(a.size(), kOrderedBytes), lengthB = std::min(b.size(), kOrderedBytes);
    const std::size_t common = std::min(lengthA, lengthB);
    for (std::size_t i = 0; i < common; ++i) {
        if (a[i] == b[i]) continue;
        const unsigned char x = fold[static_cast<unsigned char>(a[i])], y = fold[static_cast<unsigned char>(b[i])];
        if (x != y) return x < y ? -1 : 1;
    }
    return lengthA < lengthB ? -1 : lengthA > lengthB ? 1 : 0;
}

bool beginsWith(std::string_view text, std::string_view foldedStart) {
    static const unsigned char* const fold = foldTable();
    if (text.size() < foldedStart.size()) return false;
    for (std::size_t i = 0; i < foldedStart.size(); ++i)
        if (fold[static_cast<unsigned char>(text[i])] != static_cast<unsigned char>(foldedStart[i])) return false;
    return true;
}

std::string orderedBeginning(std::string_view text) { return lowerCase(text.substr(0, kOrderedBytes)); }

}  // namespace

bool BaselineBlock::ChangedOrder::operator()(const Changed& a, const Changed& b) const {
    if (a.folded != b.folded) return a.folded < b.folded;
    return a.group != b.group ? a.group < b.group : a.id < b.id;
}

void BaselineBlock::rebuild(std::string_view text) {
    loaded_.clear();
    starts_.clear();
    order_.clear();
    replaced_.clear();
    added_.clear();
    changed_.clear();
    endLines_ = endLine_ = endingsChanged_ = 0;
    valueEnds_.clear();
    valueEndsMade_ = false;

    std::size_t breaks = 0;
    for (std::size_t at = text.find(kCrLf); at != std::string_view::npos; at = text.find(kCrLf, at + 2)) ++breaks;
    loaded_.reserve(text.size() - 2 * breaks);
    starts_.reserve(breaks + 2);
    starts_.push_back(0);
    for (std::size_t from = 0;;) {
        const std::size_t at = text.find(kCrLf, from);
        loaded_.append(text.substr(from, at == std::string_view::npos ? std::string_view::npos : at - from));
        starts_.push_back(loaded_.size());
        if (at == std::string_view::npos) break;
        from = at + kCrLf.size();
    }

    order_.reserve(loadedCount());
    for (LineId id = 1; id < loadedCount(); ++id) {
        const std::string_view content = loadedLine(id);
        if (!content.empty()) order_.push_back(id);
        if (id + 1 < loadedCount() && sameText(content, kEndLine)) {
            ++endLines_;
            endLine_ = id;
        }
    }
    std::sort(order_.begin(), order_.end(), [this](LineId a, LineId b) {
        const int beginnings = compareBeginnings(loadedLine(a), loadedLine(b));
        return beginnings != 0 ? beginnings < 0 : a < b;
    });
}

std::string_view BaselineBlock::loadedLine(LineId id) const {
    return std::string_view(loaded_).substr(starts_[id], starts_[id + 1] - starts_[id]);
}

std::string_view BaselineBlock::line(LineId id) const {
    if (id >= loadedCount()) return added_[id - loadedCount()];
    if (!replaced_.empty())
        if (const auto found = replaced_.find(id); found != replaced_.end()) return found->second;
    return loadedLine(id);
}

int BaselineBlock::group(LineId id) const {
    if (id >= loadedCount()) return 1;
    return id < insertPoint() ? 0 : 2;
}

std::size_t BaselineBlock::position(LineId id) const {
    switch (group(id)) {
    case 0: return id;
    case 1: return insertPoint() + (id - loadedCount());
    default: return id + added_.size();
    }
}

BaselineBlock::LineId BaselineBlock::idAt(std::size_t position) const {
    const std::size_t insertAt = insertPoint();
    if (position < insertAt) return position;
    if (position < insertAt + added_.size()) return loadedCount() + (position - insertAt);
    return position - added_.size();
}

std::string BaselineBlock::text() const {
    std::size_t size = 2 * (lineCount() - 1);
    for (LineId id = 0; id < lineCount(); ++id) size += line(id).size();
    std::string out;
    out.reserve(size);
    for (std::size_t p = 0; p < lineCount(); ++p) {
        if (p > 0) out += kCrLf;
        out += line(idAt(p));
    }
    return out;
}

template <class Visit>
void BaselineBlock::forEachBeginning(std::string_view foldedStart, Visit visit) const {
    auto loaded = std::lower_bound(order_.begin(), order_.end(), foldedStart, [this](LineId id, std::string_view start) {
        return compareBeginnings(loadedLine(id), start) < 0;
    });
    for (; loaded != order_.end() && beginsWith(loadedLine(*loaded), foldedStart); ++loaded)
        if (!replaced_.contains(*loaded) && visit(*loaded)) return;
    for (auto changed = changed_.lower_bound(foldedStart);
         changed != changed_.end() && changed->folded.starts_with(foldedStart); ++changed)
        if (visit(changed->id)) return;
}

std::optional<BaselineBlock::LineId> BaselineBlock::firstBeginning(std::string_view foldedStart) const {
    std::optional<LineId> first;
    forEachBeginning(foldedStart, [&](LineId id) {
        if (!first || position(id) < position(*first)) first = id;
        return false;
    });
    return first;
}

bool BaselineBlock::startsSomeLine(std::string_view key) const {
    bool found = false;
    forEachBeginning(lowerCase(key), [&](LineId id) { return found = line(id).starts_with(key); });
    return found;
}

std::optional<BaselineBlock::LineId> BaselineBlock::valueEndAfter(LineId id) const {
    if (endingsChanged_ > 0) {
        for (std::size_t p = position(id) + 1; p + 1 < lineCount(); ++p)
            if (endsValue(line(idAt(p)))) return idAt(p);
        return std::nullopt;
    }
    if (!valueEndsMade_) {
        for (LineId loaded = 1; loaded + 1 < loadedCount(); ++loaded)
            if (endsValue(loadedLine(loaded))) valueEnds_.push_back(loaded);
        valueEndsMade_ = true;
    }
    // Loaded lines keep their order; the added ones stand ahead of the insert point.
    const auto loadedAfter = [this](LineId after) -> std::optional<LineId> {
        const auto next = std::upper_bound(valueEnds_.begin(), valueEnds_.end(), after);
        return next == valueEnds_.end() ? std::nullopt : std::optional<LineId>(*next);
    };
    const std::size_t insertAt = insertPoint();
    std::size_t firstAdded = 0;
    switch (group(id)) {
    case 2: return loadedAfter(id);
    case 1: firstAdded = id - loadedCount() + 1; break;
    default:
        if (const auto next = loadedAfter(id); next && *next < insertAt) return next;
        break;
    }
    for (std::size_t k = firstAdded; k < added_.size(); ++k)
        if (endsValue(added_[k])) return loadedCount() + k;
    return loadedAfter(insertAt - 1);
}

std::string BaselineBlock::entry(std::string_view key) const {
    if (!indexable(key)) return literalEntry(text(), key);
    const auto first = firstBeginning(lowerCase(key) + "=");
    if (!first || !terminated(*first)) return {};
    const std::string_view head = line(*first);
    const std::size_t valueStart = key.size() + 1;
    if (endsValue(head)) return std::string(head.substr(valueStart, head.size() - 2 - valueStart));
    // A line without its "*E": the value runs on to the next line that has one.
    const auto end = valueEndAfter(*first);
    if (!end) return {};
    std::string value(head.substr(valueStart));
    for (std::size_t p = position(*first) + 1;; ++p) {
        const std::string_view next = line(idAt(p));
        value += kCrLf;
        if (idAt(p) == *end) return value.append(next.substr(0, next.size() - 2));
        value += next;
    }
}

void BaselineBlock::setLine(LineId id, std::string text) {
    const std::string_view old = line(id);
    changed_.erase(Changed{orderedBeginning(old), group(id), id});
    if (id >= loadedCount()) {
        added_[id - loadedCount()] = std::move(text);
    } else {
        const bool loadedEnds = endsValue(loadedLine(id));
        endingsChanged_ -= endsValue(old) != loadedEnds;
        endingsChanged_ += endsValue(text) != loadedEnds;
        replaced_[id] = std::move(text);
    }
    changed_.insert(Changed{orderedBeginning(line(id)), group(id), id});
}

void BaselineBlock::addLine(std::string text) {
    const LineId id = lineCount();
    added_.push_back(std::move(text));
    changed_.insert(Changed{orderedBeginning(added_.back()), 1, id});
    if (line(endLine_) != kEndLine) setLine(endLine_, std::string(kEndLine));  // written anew, in capitals
}

void BaselineBlock::write(std::string_view key, std::string_view value) {
    const auto byText = [&] { rebuild(literalWrite(text(), key, value)); };
    if (!indexable(key) || holdsLineBreak(value)) return byText();
    std::string newLine = std::string(key) + "=" + std::string(value);

    if (!startsSomeLine(key)) {
        if (endLines_ == 0) return;  // no end line to go ahead of: the text stays as it is
        if (endLines_ > 1) return byText();
        return addLine(std::move(newLine));
    }

    const std::string old = entry(key);
    if (holdsLineBreak(old)) return byText();
    const std::string stored = std::string(key) + "=" + old + "*E";
    std::vector<std::pair<std::size_t, LineId>> hits;  // position, line
    forEachBeginning(lowerCase(key) + "=", [&](LineId id) {
        if (terminated(id) && sameText(line(id), stored)) hits.emplace_back(position(id), id);
        return false;
    });
    std::sort(hits.begin(), hits.end());
    std::optional<std::size_t> lastReplaced;
    for (const auto& [at, id] : hits) {
        // A replaced line took the line break in front of the next one with it.
        if (lastReplaced && at == *lastReplaced + 1) continue;
        setLine(id, newLine);
        lastReplaced = at;
    }
}

}  // namespace tv
