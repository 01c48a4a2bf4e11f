#include "core/primary_scan_file.h"

#include "core/text.h"

namespace tv {
namespace {

constexpr std::string_view kLineEnd = "\r\n";

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string_view trimmed(std::string_view text) {
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

// Letters compared as the system compares ASCII; other bytes as they are.
std::string folded(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    return out;
}

std::string lineKey(std::string_view section, std::string_view key) {
    return folded(section) + '\n' + folded(key);
}

// Printable ASCII without blanks at either end: what the model knows the
// system's writer keeps as it is.
bool plain(std::string_view text) {
    if (text.empty() || isBlank(text.front()) || isBlank(text.back())) return false;
    for (const char c : text)
        if (c < 0x20 || c > 0x7E) return false;
    return true;
}

bool plainKey(std::string_view key) {
    return plain(key) && key.find('=') == std::string_view::npos && key.front() != '[' && key.front() != ';';
}

std::string journalRecord(std::string_view section, std::string_view key, std::string_view value) {
    std::string record(section);
    record.append("\t").append(key).append("\t").append(value).append(kLineEnd);
    return record;
}

// Replays the complete records of a journal onto `text`.
void replay(ProfileText& text, std::string_view journal) {
    for (auto end = journal.find(kLineEnd); end != std::string_view::npos; end = journal.find(kLineEnd)) {
        const std::string_view record = journal.substr(0, end);
        journal.remove_prefix(end + kLineEnd.size());
        const auto tab1 = record.find('\t');
        const auto tab2 = record.find('\t', tab1 == std::string_view::npos ? tab1 : tab1 + 1);
        if (tab2 == std::string_view::npos) continue;
        text.replaceValue(record.substr(0, tab1), record.substr(tab1 + 1, tab2 - tab1 - 1), record.substr(tab2 + 1));
    }
}

bool replaceFile(Files& files, const std::string& path, std::string_view text) {
    const std::string pending = withLastThree(path, "new");
    if (files.writeThrough(pending, text) && files.moveOver(pending, path)) return true;
    files.remove(pending);
    return false;
}

}  // namespace

ProfileText::ProfileText(std::string_view text) {
    for (auto end = text.find(kLineEnd);; end = text.find(kLineEnd)) {
        lines_.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + kLineEnd.size());
    }
    // The system finds a section by its first head and a key within it; keys
    // under a later head of the same name are out of its reach.
    std::unordered_map<std::string, bool> sections;
    std::string section;
    bool reachable = true;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const std::string_view line = trimmed(lines_[i]);
        if (!line.empty() && line.front() == '[') {
            const auto close = line.find(']');
            section = folded(trimmed(line.substr(1, close == std::string_view::npos ? close : close - 1)));
            reachable = sections.emplace(section, true).second && close != std::string_view::npos;
            continue;
        }
        if (line.empty() || !reachable) continue;
        const auto [at, fresh] =
            keyLines_.emplace(lineKey(section, trimmed(line.substr(0, line.find('=')))), static_cast<std::ptrdiff_t>(i));
        if (!fresh) at->second = -1;
    }
}

bool ProfileText::replaceValue(std::string_view section, std::string_view key, std::string_view value) {
    if (!plain(section) || !plainKey(key) || !plain(value)) return false;
    const auto found = keyLines_.find(lineKey(section, key));
    if (found == keyLines_.end() || found->second < 0) return false;
    std::string& line = lines_[static_cast<std::size_t>(found->second)];
    // The line must name the key as written here: the model knows nothing of
    // what the system does with blanks or another letter case around it.
    if (line.compare(0, key.size(), key) != 0 || line.size() <= key.size() || line[key.size()] != '=') return false;
    line.replace(key.size() + 1, std::string::npos, value);
    return true;
}

std::string ProfileText::text() const {
    std::string out;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        if (i > 0) out += kLineEnd;
        out += lines_[i];
    }
    return out;
}

std::string journalName(const std::string& path) { return withLastThree(path, "jnl"); }

PrimaryScanFile::PrimaryScanFile(Files& files, ProfileFiles& profiles, std::string path)
    : files_(files), profiles_(profiles), path_(std::move(path)) {}

PrimaryScanFile::~PrimaryScanFile() = default;

bool PrimaryScanFile::write(const std::string& section, const std::string& key, const std::string& value) {
    if (text_ && text_->replaceValue(section, key, value)) {
        if (!journal_) journal_ = files_.openAppender(journalName(path_));
        if (journal_ && journal_->append(journalRecord(section, key, value))) return pending_ = true;
        learn();  // the entry did not reach the disk: the text goes back to what the disk holds
        return false;
    }
    if (pending_ && !putInPlace()) return false;
    const bool written = profiles_.put(section, key, value, path_);
    learn();
    return written;
}

bool PrimaryScanFile::putInPlace() {
    if (!replaceFile(files_, path_, text_->text())) return false;
    journal_.reset();
    files_.remove(journalName(path_));
    pending_ = false;
    return true;
}

void PrimaryScanFile::learn() {
    text_.reset();
    journal_.reset();
    pending_ = false;
    auto onDisk = files_.readAll(path_);
    if (!onDisk) return;
    text_ = std::make_unique<ProfileText>(*onDisk);
    if (const auto journal = files_.readAll(journalName(path_)); journal && !journal->empty()) {
        replay(*text_, *journal);
        pending_ = true;
    }
}

bool PrimaryScanFile::finish() { return !pending_ || putInPlace(); }

void PrimaryScanFile::abandon() {
    journal_.reset();
    files_.remove(journalName(path_));
    pending_ = false;
}

void foldPrimaryScanJournal(Files& files, const std::string& path) {
    const std::string journalPath = journalName(path);
    const auto journal = files.readAll(journalPath);
    if (!journal) return;
    if (const auto onDisk = files.readAll(path)) {
        ProfileText text(*onDisk);
        replay(text, *journal);
        if (!replaceFile(files, path, text.text())) return;
    }
    files.remove(journalPath);
}

}  // namespace tv
