// The entries of the autostart places in the registry, read for the pass: one
// per watched value, named so that a person can find it ("Shell", or
// "explorer.exe\Debugger" for a value in a program's own sub-key), with the
// program or DLL it starts as its text. Keys are opened for reading only: a
// user who may not change the machine's keys still sees what they hold.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"
#include "regwatch/autostart_groups.h"
#include "regwatch/watched_locations.h"

namespace tv {

struct PlaceEntry {
    RegText name;
    std::string value;
    EntrySplit split = EntrySplit::Whole;
    ValuePlace place;  // where the value stands, for Delete Key
};

struct PlaceEntries {
    bool opened = false;  // whether any key of the places was there
    std::vector<PlaceEntry> entries;
};

// The entries of the group's places under `hive`, in `view` (`viewBits` as
// the places record it), in the order of the places and as the registry lists
// sub-keys and values. A class id counts for the DLL its server key names in
// the same view of the machine's classes, or for itself where none is named.
PlaceEntries registryPlaceEntries(Registry& registry, const AutostartGroup& group, std::uint32_t hive, int viewBits);

}  // namespace tv
