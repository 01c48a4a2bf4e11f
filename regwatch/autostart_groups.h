// The autostart places of today's Windows that RegWatch watches after the
// seventeen locations: each group has its tree node under every root it
// reaches, a snapshot section for each ("LM/" or "CU/" and its code, or
// "FS/" for the files), and tells what counts in each of its keys.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "regwatch/value_entries.h"
#include "regwatch/watched_locations.h"

namespace tv {

// Where a place's values stand: in its key, or in each of its sub-keys
// (one entry per service, per program, per component), below `subPath`.
enum class Reach { Key, EachSubKey };

// What an entry starts: the program or DLL its value names, or the COM
// server of a class id (the DLL its InprocServer32 key names), which the
// value holds or the sub-key is named by.
enum class ValueMeaning { Command, ClassId, SubKeyClassId };

struct WatchedValue {
    const char* name;  // "" for the key's default value
    EntrySplit split = EntrySplit::Whole;
};

struct AutostartPlace {
    std::uint32_t hive;
    const char* keyPath;
    Reach reach;
    const char* subPath;                 // below each sub-key; "" for the sub-key itself
    std::span<const WatchedValue> values;  // none: every value (a sub-key's name: one entry)
    // What Delete Key does: a value Windows cannot start or log on without,
    // or one that is no value at all (a helper's key), is left to the
    // registry editor.
    Removal removal;
    ValueMeaning meaning = ValueMeaning::Command;
};

struct AutostartGroup {
    const char* label;  // its node in the tree, and the warning rows' location
    const char* code;   // its sections: "LM/" or "CU/" and the code
    std::span<const AutostartPlace> places;
};

// The groups in the order of the pass.
std::span<const AutostartGroup> autostartGroups();

// The machine's classes, where the servers of the machine's class ids stand.
inline constexpr const char* kClassIdKey = "Software\\Classes\\CLSID\\";
inline constexpr const char* kServerKey = "\\InprocServer32";

// The places that are files: the user's Startup folder, everybody's, and
// the scheduled tasks. They stand under a root of their own in the tree.
enum class FilePlace { UserStartup, CommonStartup, ScheduledTasks };

struct FileGroup {
    FilePlace place;
    const char* label;
    const char* section;
    const char* nodeKey;
};

// Whether a group has places under the root of `hive`.
bool reaches(const AutostartGroup& group, std::uint32_t hive);
// A group's section under the root of `hive` in a view: "LM/SV", "LM/SV/32".
std::string groupSection(const AutostartGroup& group, std::uint32_t hive, int viewBits);
// Every section of the places, the groups' in the program's view, then in
// `otherView` where the system has one (0: none), then the files'.
std::vector<std::string> placeSections(int otherView);
// Those sections as a new snapshot holds them, behind the seventeen: each
// line followed by an empty line, CR LF.
std::string newPlacesSnapshotText(int otherView);

inline constexpr const char* kFilesRootText = "Files";
inline constexpr const char* kFilesRootKey = "FILES";

inline constexpr std::array<FileGroup, 3> kFileGroups{{
    {FilePlace::UserStartup, "Loaded in Startup Folder", "FS/SU", "!FSU"},
    {FilePlace::CommonStartup, "Loaded in Common Startup Folder", "FS/SC", "!FSC"},
    {FilePlace::ScheduledTasks, "Loaded in Scheduled Tasks", "FS/ST", "!FST"},
}};

}  // namespace tv
