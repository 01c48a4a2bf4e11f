// The registry pass of the RegWatch page: every value of the seventeen
// watched locations, in both views of a 64-bit system, goes into the tree
// and is compared with the snapshot Data\Registry.dat, or, in a recording
// pass (regNew), written into it. What is new or changed becomes a warning
// row of List5. A normal pass never changes the snapshot, except to record
// for the first time the other view's locations of a snapshot made before
// they were watched.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "core/app_context.h"
#include "regwatch/registry_text.h"
#include "regwatch/watched_locations.h"

namespace tv {

namespace ui {
class RegWatchPage;
}

class RegClass;

class RegistryPass {
public:
    RegistryPass(AppContext& ctx, ui::RegWatchPage& page);

    // Makes the snapshot when it cannot be read, with its seventeen empty
    // sections, and records every current value into it. A file that is
    // there but held by another program is left alone.
    void checkRegFile();

    // The pass itself: fills the tree and the warnings, enables cScnUpd only
    // when there are warnings, and ends with regNew false. Lets pending
    // messages run once per value, so the window stays alive; a call while
    // a pass runs (a second Refresh) does nothing.
    void setReg();
    bool running() const { return running_; }

    // One value against its snapshot line in `section`. `storedText` is cut
    // at its first NUL; `key` becomes the line's key (the name the warning
    // shows). With `record` the line is written instead.
    EntryCheck checkRegEntry(const RegText& name, RegText& storedText, const std::string& section, std::string& key,
                             bool record);

    // Where the value of a warning row (its index in List5) or of a tree node
    // stands, as the last pass found it.
    std::optional<ValuePlace> warningPlace(std::size_t row) const;
    std::optional<ValuePlace> nodePlace(std::size_t node) const;

private:
    void passLocation(RegClass& reg, const WatchedLocation& location, int viewBits, std::string& tail);
    // The other view's sections that a snapshot of the seventeen lacks are
    // added, and their locations recorded in this pass: a snapshot from
    // before they were watched would otherwise warn of every value in them.
    void addMissingSections(int viewBits);

    AppContext& ctx_;
    ui::RegWatchPage& page_;
    bool running_ = false;
    std::unordered_set<std::string> recordedSections_;  // recorded in this pass whatever regNew says
    std::vector<ValuePlace> warningPlaces_;             // one per warning row behind the heading
    std::unordered_map<std::size_t, ValuePlace> nodePlaces_;
};

}  // namespace tv
