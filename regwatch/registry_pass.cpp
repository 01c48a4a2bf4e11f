#include "regwatch/registry_pass.h"

#include <algorithm>

#include "core/settings_store.h"
#include "core/text.h"
#include "regwatch/autostart_groups.h"
#include "regwatch/reg_class.h"
#include "regwatch/regwatch_page.h"
#include "regwatch/snapshot_encoding.h"

namespace tv {

RegistryPass::RegistryPass(AppContext& ctx, ui::RegWatchPage& page) : ctx_(ctx), page_(page) {}

void RegistryPass::checkRegFile() {
    Files& files = ctx_.os.files;
    if (files.canRead(ctx_.regFile)) return;
    // Opening for appending makes the file, and fails on one that another
    // program holds: its content is then left as it is.
    if (!files.append(ctx_.regFile, "")) return;
    ctx_.regNew = true;
    const int otherView = ctx_.os.registry.otherViewBits();
    files.writeAll(ctx_.regFile, newSnapshotText(otherView) + newPlacesSnapshotText(otherView));
    setReg();
}

// A pass started from inside a running one (a Refresh, or Scan && Update,
// clicked while the running one lets messages through) would put its rows
// among the running one's and end a recording half way.
void RegistryPass::setReg() {
    if (running_) return;
    running_ = true;
    for (ui::Control* list : {&page_.List2, &page_.List3, &page_.List5}) list->clearItems();
    page_.List5.addItem(kWarningsHeading);
    warningPlaces_.clear();
    nodePlaces_.clear();
    ui::Control& tree = page_.TreeView1;
    tree.clearNodes();
    for (const WatchedRoot& root : kWatchedRoots) tree.addNode({}, root.nodeKey, root.text);
    // The key tail of the warning rows is only ever set by the machine's
    // group; the user's and the classes' rows carry what it last left there.
    std::string tail;
    RegClass reg(ctx_.os.registry);
    for (const WatchedLocation& location : kWatchedLocations) passLocation(reg, location, 0, tail);
    const int otherView = ctx_.os.registry.otherViewBits();
    if (otherView != 0) {
        std::vector<std::string> sections;
        for (const WatchedLocation& location : kWatchedLocations) sections.push_back(sectionOf(location, otherView));
        addMissingSections(sections);
        for (const WatchedLocation& location : kWatchedLocations) passLocation(reg, location, otherView, tail);
    }
    passPlaces(otherView);
    recordedSections_.clear();
    if (page_.List5.items().size() == 1) {
        page_.List5.addItem(kNoWarnings);
        page_.cScnUpd.setEnabled(false);
    } else {
        page_.cScnUpd.setEnabled(true);
    }
    ctx_.regNew = false;
    running_ = false;
}

// Only a file that holds the seventeen sections is added to: a missing or
// unreadable snapshot makes every value new, in either view.
bool RegistryPass::addMissingSections(const std::vector<std::string>& sections) {
    const std::vector<std::string> names = ctx_.os.profiles.sectionNames(ctx_.regFile);
    const auto present = [&names](const std::string& section) {
        return std::any_of(names.begin(), names.end(), [&](const std::string& name) { return sameText(name, section); });
    };
    if (!present(kWatchedLocations.front().section)) return false;
    bool added = false;
    for (const std::string& section : sections) {
        if (present(section) || !ctx_.os.profiles.addSection(section, ctx_.regFile)) continue;
        recordedSections_.insert(section);
        added = true;
    }
    return added;
}

// The other view of a location shows only where it is a key of its own, under
// a root of its own ("HKEY_LOCAL_MACHINE (32-bit)").
void RegistryPass::passLocation(RegClass& reg, const WatchedLocation& location, int viewBits, std::string& tail) {
    const WatchedRoot& root = kWatchedRoots[location.root];
    ui::Control& tree = page_.TreeView1;
    const std::string suffix = viewSuffix(viewBits);
    const std::string rootKey = root.nodeKey + suffix, locationKey = location.nodeKey + suffix;
    const std::string rootText = rootTextOf(root, viewBits), section = sectionOf(location, viewBits);
    const bool opened = reg.openRegistry(root.hive, location.keyPath, viewBits == 0 ? RegView::Native : RegView::Other);
    if (viewBits != 0 && !opened) return;
    if (tree.nodeIndex(rootKey) == ui::kNoNode) tree.addNode({}, rootKey, rootText);
    tree.addNode(rootKey, locationKey, location.label);
    const bool record = ctx_.regNew || recordedSections_.count(section) > 0;
    for (const RegText& name : reg.getAllValues()) {
        const RegText value = reg.getValue(name);
        if (!value.spelledExactly() || !isDefaultOpenCommand(value.text)) {
            RegText stored = storedTextOf(value);
            const ValuePlace place{root.hive, RegText(location.keyPath), viewBits, name, location.removal()};
            // The tree shows the name as the registry has it (control
            // characters as "%0D" and the like, so that none cuts or breaks
            // the label); a second value with the same text in the group's
            // location gets no node.
            if (tree.addNode(locationKey, valueNodeKey(location.groupIndex, suffix, stored.text),
                             shownName(name) + stored.text))
                nodePlaces_[tree.nodes().size() - 1] = place;
            std::string key;
            const EntryCheck result = checkRegEntry(name, stored, section, key, record);
            if (result != EntryCheck::Unchanged) {
                if (location.root == 0) tail = keyTail(location.keyPath);
                page_.List5.addItem(warningRow(rootText, tail, key, stored.text, result));
                warningPlaces_.push_back(place);
            }
        }
        ctx_.os.loop.pump();
    }
    reg.closeRegistry();
}

EntryCheck RegistryPass::checkRegEntry(const RegText& name, RegText& storedText, const std::string& section,
                                       std::string& key, bool record, std::string* entryRead) {
    storedText = cutAtNul(storedText);
    key = snapshotKey(name, storedText);
    const std::string line = snapshotText(storedText);
    // A recording pass writes whatever the line holds, so it need not read it
    // first: a profile call on a file just written costs a reading of the
    // whole file.
    if (record) {
        writeEntry(ctx_, ctx_.regFile, key, line, section);
        return EntryCheck::Unchanged;
    }
    // Read whole: a line may be longer than the 250 characters of the other
    // profile reads (a long binary value), and a cut one would never match.
    const std::string entry = ctx_.os.profiles.get(section, key, kSnapshotTextChars + 2, ctx_.regFile);
    if (entryRead) *entryRead = entry;
    if (entry.empty()) return EntryCheck::New;
    return storedTextChanged(line, entry) ? EntryCheck::Modified : EntryCheck::Unchanged;
}

std::optional<ValuePlace> RegistryPass::warningPlace(std::size_t row) const {
    if (row == 0 || row > warningPlaces_.size()) return std::nullopt;
    return warningPlaces_[row - 1];
}

std::optional<ValuePlace> RegistryPass::nodePlace(std::size_t node) const {
    const auto found = nodePlaces_.find(node);
    return found == nodePlaces_.end() ? std::nullopt : std::optional<ValuePlace>(found->second);
}

}  // namespace tv
