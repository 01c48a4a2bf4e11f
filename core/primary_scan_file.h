// The system's data file while the primary full scan fills it in.
//
// Each checksum of that scan has always reached the disk through the system's
// profile writer before the next file was read, so that a scan that never ends
// leaves every entry found so far. That writer reads and writes the whole file
// for every entry: thousands of files cost time growing with their square.
// Here the first entry goes through the system's writer, which gives the file
// the form it keeps from then on; every later entry of the usual shape (a name
// and a value of plain characters, standing on one line of its section) is made
// in memory exactly as that writer makes it, the value of its line replaced,
// and appended to a journal beside the data file, which reaches the disk at
// once. The end of the scan puts the whole text in the data file's place in one
// step and removes the journal. Any other entry goes through the system's
// writer, once the text so far stands in the file. A journal left by a scan
// that never ended is folded into its data file when the file is next checked.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/files.h"
#include "platform/profile_files.h"

namespace tv {

// A profile file's text as the system's writer handles it: sections, and the
// key lines in them found without regard to case.
class ProfileText {
public:
    explicit ProfileText(std::string_view text);
    // What the system's writer makes of a write of `value` to `key` when that
    // key stands on exactly one line of the section's first appearance: that
    // line becomes key=value, and nothing else changes. False, and nothing
    // changed, for any other case.
    bool replaceValue(std::string_view section, std::string_view key, std::string_view value);
    std::string text() const;

private:
    std::vector<std::string> lines_;  // split at CR LF
    std::unordered_map<std::string, std::ptrdiff_t> keyLines_;  // section and key, folded: line or -1 (several)
};

class PrimaryScanFile {
public:
    PrimaryScanFile(Files& files, ProfileFiles& profiles, std::string path);
    ~PrimaryScanFile();
    const std::string& path() const { return path_; }

    // One entry, with what the system's writer would leave; on the disk when
    // this returns. False when it could not be written.
    bool write(const std::string& section, const std::string& key, const std::string& value);
    // The whole text into the data file and the journal gone. False when the
    // text could not be put in place; the journal then stays for the next check.
    bool finish();
    // The scan was abandoned and its data file goes: the journal goes with it.
    void abandon();

private:
    bool putInPlace();
    void learn();  // the text from the disk and the journal

    Files& files_;
    ProfileFiles& profiles_;
    const std::string path_;
    std::unique_ptr<ProfileText> text_;        // as the disk holds it with the journal applied
    std::unique_ptr<FileAppender> journal_;    // open once an entry went to it
    bool pending_ = false;                     // the journal holds entries the data file lacks
};

// The journal of a data file: its path with "jnl" for the last three characters.
std::string journalName(const std::string& path);

// Folds the journal a primary scan that never ended left beside `path` into
// the data file, and removes it; a journal whose data file is gone is removed.
void foldPrimaryScanJournal(Files& files, const std::string& path);

}  // namespace tv
