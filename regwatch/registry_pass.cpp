#include "regwatch/registry_pass.h"

#include "core/settings_store.h"
#include "regwatch/reg_class.h"
#include "regwatch/regwatch_page.h"
#include "regwatch/watched_locations.h"

namespace tv {

RegistryPass::RegistryPass(AppContext& ctx, ui::RegWatchPage& page) : ctx_(ctx), page_(page) {}

void RegistryPass::checkRegFile() {
    Files& files = ctx_.os.files;
    if (files.canRead(ctx_.regFile)) return;
    // Opening for appending makes the file, and fails on one that another
    // program holds: its content is then left as it is.
    if (!files.append(ctx_.regFile, "")) return;
    ctx_.regNew = true;
    files.writeAll(ctx_.regFile, newSnapshotText());
    setReg();
}

void RegistryPass::setReg() {
    for (ui::Control* list : {&page_.List2, &page_.List3, &page_.List5}) list->clearItems();
    page_.List5.addItem(kWarningsHeading);
    ui::Control& tree = page_.TreeView1;
    tree.clearNodes();
    for (const WatchedRoot& root : kWatchedRoots) tree.addNode({}, root.nodeKey, root.text);
    // The key tail of the warning rows is only ever set by the machine's
    // group; the user's and the classes' rows carry what it last left there.
    std::string tail;
    RegClass reg(ctx_.os.registry);
    for (const WatchedLocation& location : kWatchedLocations) passLocation(reg, location, tail);
    if (page_.List5.items().size() == 1) {
        page_.List5.addItem(kNoWarnings);
        page_.cScnUpd.setEnabled(false);
    } else {
        page_.cScnUpd.setEnabled(true);
    }
    ctx_.regNew = false;
}

void RegistryPass::passLocation(RegClass& reg, const WatchedLocation& location, std::string& tail) {
    const WatchedRoot& root = kWatchedRoots[location.root];
    ui::Control& tree = page_.TreeView1;
    tree.addNode(root.nodeKey, location.nodeKey, location.label);
    reg.openRegistry(root.hive, location.keyPath);
    for (std::string& name : reg.getAllValues()) {
        const std::string value = reg.getValue(name);
        if (!isDefaultOpenCommand(value)) {
            std::string stored = storedTextOf(value);
            // The tree shows the name as the registry has it; a second value
            // with the same text in the group's location gets no node.
            tree.addNode(location.nodeKey, valueNodeKey(location.groupIndex, stored), name + stored);
            const EntryCheck result = checkRegEntry(name, stored, location.section);
            if (result != EntryCheck::Unchanged) {
                if (location.root == 0) tail = keyTail(location.keyPath);
                page_.List5.addItem(warningRow(root.text, tail, name, stored, result));
            }
        }
        ctx_.os.loop.pump();
    }
    reg.closeRegistry();
}

EntryCheck RegistryPass::checkRegEntry(std::string& name, std::string& storedText, const std::string& section) {
    storedText = cutAtNul(storedText);
    name = snapshotKey(name, storedText);
    // A recording pass writes whatever the line holds, so it need not read it
    // first: a profile call on a file just written costs a reading of the
    // whole file.
    if (ctx_.regNew) {
        writeEntry(ctx_, ctx_.regFile, name, storedText, section);
        return EntryCheck::Unchanged;
    }
    const std::string entry = readIni(ctx_, ctx_.regFile, name, section);
    if (entry.empty()) return EntryCheck::New;
    return storedTextChanged(storedText, entry) ? EntryCheck::Modified : EntryCheck::Unchanged;
}

}  // namespace tv
