// The files Windows is to move or delete at its next start, as two sources
// hold them: the lines of wininit.ini and the session manager's pending
// rename value. Only read, never changed. The RegWatch page lists them; the
// shut-down sequence hands them to the scanners.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tv {

class Registry;

inline constexpr const char* kWininitName = "wininit.ini";  // in the Windows folder
inline constexpr const char* kPendingRenameKey = "System\\CurrentControlSet\\Control\\Session Manager";
inline constexpr const char* kPendingRenameValue = "PendingfileRenameOperations";

struct WininitEntry {
    std::string file;  // the right side: the file that is replaced, removed or renamed away
    bool deletes;      // the left side is "NUL" in any case
};

// Every line (split at CR LF) that holds "=", whatever its section: the left
// side is what stands in front of the first "=", the right side everything
// behind it, up to a "*!*" if the line holds one. Neither side is trimmed.
std::vector<WininitEntry> parseWininit(std::string_view text);

// The pending rename value as text (see RegClass::getValue), read whole and
// with read access only: a user who may not change the session manager's key
// sees the operations all the same. Empty when it cannot be read.
std::string readPendingRenames(Registry& registry);

// The value's text as the registry access reads it, split at "\??\": the
// text in front of the first prefix, then one part per prefix. A text without
// the prefix gives no parts at all.
std::vector<std::string> pendingRenameParts(std::string_view value);

// The file of one part: the text in front of its first NUL, trimmed; empty
// when it has no NUL.
std::string pendingRenameFile(std::string_view part);

// Every part that is not blank gives its file. The two files of a rename come
// out as two files.
std::vector<std::string> parsePendingRenames(std::string_view value);

// A wininit.ini entry as the pending view lists it.
std::string pendingRow(const WininitEntry& entry);

inline constexpr const char* kPendingHeading =
    "These files are to be Deleted or Overwritten on the next Reboot (Wininit.ini and Registry).";
inline constexpr const char* kDeletedSuffix = " {To be Deleted}";
inline constexpr const char* kOverwrittenSuffix = " {To be Overwritten}";

}  // namespace tv
