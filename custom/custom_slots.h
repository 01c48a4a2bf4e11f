// The twenty custom folder slots of the settings file: "[1]" to "[20]", each
// with `path` (a folder with its trailing backslash, or "NULL" when free) and the
// seven-position lists `args` (normal and log-on scans) and `args2` (Secure Shut
// Down): positions 0 to 5 the six file groups, position 6 whether the folder
// joins that run, read as the list's last character.
#pragma once

#include <array>
#include <string>

#include "core/app_context.h"

namespace tv {

inline constexpr int kSlotCount = 20;

struct CustomSlot {
    std::string path;
    std::string args;
    std::string args2;
};

CustomSlot readSlot(const AppContext& ctx, int slot);

// Position 6: the folder joins the run. Only the last character counts, so a
// list of fewer than seven positions joins when it happens to end in "1".
bool joinsRun(const std::string& list);

// Positions 0 to 5 of a list, split at commas: "1" means wanted; a missing or
// other position is not.
std::array<bool, 6> wantedGroups(const std::string& list);

// All seven positions read the same way, position 6 by splitting too: how the
// folder manager shows a slot.
std::array<bool, 7> splitPositions(const std::string& list);

}  // namespace tv
