// The registry pass of the RegWatch page: every value of the seventeen
// watched locations goes into the tree and is compared with the snapshot
// Data\Registry.dat, or, in a recording pass (regNew), written into it. What
// is new or changed becomes a warning row of List5. A normal pass never
// changes the snapshot.
#pragma once

#include <string>

#include "core/app_context.h"
#include "regwatch/registry_text.h"

namespace tv {

namespace ui {
class RegWatchPage;
}

class RegClass;
struct WatchedLocation;

class RegistryPass {
public:
    RegistryPass(AppContext& ctx, ui::RegWatchPage& page);

    // Makes the snapshot when it cannot be read, with its seventeen empty
    // sections, and records every current value into it. A file that is
    // there but held by another program is left alone.
    void checkRegFile();

    // The pass itself: fills the tree and the warnings, enables cScnUpd only
    // when there are warnings, and ends with regNew false. Lets pending
    // messages run once per value, so the window stays alive.
    void setReg();

    // One value against its snapshot line in `section`. `storedText` is cut at
    // its first NUL and `name` becomes the line's key (see snapshotKey), both
    // in the caller's variables. Records instead while regNew is set.
    EntryCheck checkRegEntry(std::string& name, std::string& storedText, const std::string& section);

private:
    void passLocation(RegClass& reg, const WatchedLocation& location, std::string& tail);

    AppContext& ctx_;
    ui::RegWatchPage& page_;
};

}  // namespace tv
