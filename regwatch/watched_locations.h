// The seventeen registry keys RegWatch guards: the autostart keys and the
// shell\open\command keys of five executable file types, in three groups by
// root, each with its snapshot section, its tree label and its tree key. On a
// 64-bit system each may exist twice, once in either view of the registry:
// the program's own view keeps the table's names, the other view's are told
// by its width ("LM/R/32", "HKEY_LOCAL_MACHINE (32-bit)").
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/registry.h"

namespace tv {

struct WatchedRoot {
    const char* text;     // the tree's root node and the warning rows' first field
    const char* nodeKey;  // the root node's key in the tree
    std::uint32_t hive;
};

inline constexpr std::array<WatchedRoot, 3> kWatchedRoots{{
    {"HKEY_LOCAL_MACHINE", "LOCAL", hive::LocalMachine},
    {"HKEY_CURRENT_USER", "USER", hive::CurrentUser},
    {"HKEY_CLASSES_ROOT", "ROOT", hive::ClassesRoot},
}};

// What Delete Key does with a location's value: removes it, or, for the keys
// through which every program of a type starts, only offers the registry
// editor. A watched file is no value: Delete Key leaves it to Explorer.
enum class Removal { DeleteValue, EditByHand, NotAValue };

struct WatchedLocation {
    std::size_t root;     // index into kWatchedRoots
    int groupIndex;       // 1-based place inside its root's group
    const char* section;  // the snapshot's section name
    const char* keyPath;
    const char* label;    // the location's node in the tree
    const char* nodeKey;

    // The shell\open\command keys are part of how programs start at all.
    Removal removal() const {
        return std::string_view(keyPath).ends_with("shell\\open\\command") ? Removal::EditByHand : Removal::DeleteValue;
    }
};

// In the order of the pass: the machine's ten, the user's two, the classes' five.
inline constexpr std::array<WatchedLocation, 17> kWatchedLocations{{
    {0, 1, "LM/R", "Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Loaded in Run", "!LLIR"},
    {0, 2, "LM/RO", "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce", "Loaded in RunOnce", "!LLIRO"},
    {0, 3, "LM/ROX", "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnceEx", "Loaded in RunOnceEx", "!LLIROX"},
    {0, 4, "LM/RS", "Software\\Microsoft\\Windows\\CurrentVersion\\RunServices", "Loaded in RunServices", "!LLIRS"},
    {0, 5, "LM/RSO", "Software\\Microsoft\\Windows\\CurrentVersion\\RunServicesOnce", "Loaded in RunServicesOnce",
     "!LLIRSO"},
    {0, 6, "LM/SE", "Software\\CLASSES\\exefile\\shell\\open\\command", "Spawned with EXE's", "!LSWE"},
    {0, 7, "LM/SC", "Software\\CLASSES\\comfile\\shell\\open\\command", "Spawned with COM's", "!LSWC"},
    {0, 8, "LM/SB", "Software\\CLASSES\\batfile\\shell\\open\\command", "Spawned with BAT's", "!LSWB"},
    {0, 9, "LM/SH", "Software\\CLASSES\\htafile\\shell\\open\\command", "Spawned with HTA's", "!LSWH"},
    {0, 10, "LM/SP", "Software\\CLASSES\\piffile\\shell\\open\\command", "Spawned with PIF's", "!LSWP"},
    {1, 1, "CU/R", "Software\\Microsoft\\Windows\\CurrentVersion\\Run", "Loaded in Run", "!ULIR"},
    {1, 2, "CU/RO", "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce", "Loaded in RunOnce", "!ULIRO"},
    {2, 1, "CR/SE", "exefile\\shell\\open\\command", "Spawned with EXE's", "!RSWE"},
    {2, 2, "CR/SC", "comfile\\shell\\open\\command", "Spawned with COM's", "!RSWC"},
    {2, 3, "CR/SB", "batfile\\shell\\open\\command", "Spawned with BAT's", "!RSWB"},
    {2, 4, "CR/SH", "htafile\\shell\\open\\command", "Spawned with HTA's", "!RSWH"},
    {2, 5, "CR/SP", "piffile\\shell\\open\\command", "Spawned with PIF's", "!RSWP"},
}};

// A new snapshot file: every section line followed by an empty line, CR LF;
// the seventeen, then, on a system with two views, the other view's.
std::string newSnapshotText(int otherViewBits);

// A view is told by its width in bits; 0 stands for the program's own view.
// The other view's names carry it: "/32" behind section codes and node keys,
// " (32-bit)" behind the root's text.
std::string viewSuffix(int viewBits);
std::string sectionOf(const WatchedLocation& location, int viewBits);
std::string rootTextOf(const WatchedRoot& root, int viewBits);

// Where the value of a warning row or of a tree node stands: its root, key,
// view and name, and what Delete Key does with it.
struct ValuePlace {
    std::uint32_t hive = 0;
    RegText keyPath;  // exactly as the registry holds it
    int viewBits = 0;
    RegText name;  // exactly as the registry holds it
    Removal removal = Removal::NotAValue;
};

// The root of that handle, in the table above; nullptr for none of them.
const WatchedRoot* watchedRootOf(std::uint32_t hive);

}  // namespace tv
