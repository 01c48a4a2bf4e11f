// The part of the registry pass that goes over the autostart places watched
// after the seventeen locations: each group gets a node under every root it
// reaches and a section per root and view ("LM/SV", "LM/PR/32"), the watched
// files a root of their own ("Files") and a section per group ("FS/ST").
// Their warning rows have the form of the seventeen's, with the group's
// label: "HKEY_LOCAL_MACHINE|Loaded in Services\Evil\ImagePath (C:\evil.exe)
// New Entry!".
#include <optional>
#include <utility>

#include "core/file_utils.h"
#include "core/text.h"
#include "regwatch/autostart_files.h"
#include "regwatch/autostart_groups.h"
#include "regwatch/place_entries.h"
#include "regwatch/registry_pass.h"
#include "regwatch/regwatch_page.h"
#include "regwatch/snapshot_encoding.h"

namespace tv {
namespace {

constexpr std::size_t kFolderChars = 260;

const char* rootMark(std::uint32_t hive) { return hive == hive::LocalMachine ? "L" : "U"; }

// The program's own view, and the other one where the system has two.
std::vector<int> viewsOf(int otherView) { return otherView == 0 ? std::vector{0} : std::vector{0, otherView}; }

// The warning rows' label: the group's node label behind "Loaded in ".
std::string labelTail(const char* label) { return midText(label, inStr(1, label, " in ") + 4); }

// A value's text from its snapshot line, as the profile call gives it back;
// nothing for a digest, or a line that is no stored text.
std::optional<std::string> valueOfLine(const std::string& line) {
    std::string stored = " " + line;
    if (const auto escaped = storedTextOfSnapshotText(line)) {
        if (!escaped->spelledExactly()) return std::nullopt;
        stored = escaped->text;
    }
    if (leftText(stored, 2) != " (" || rightText(stored, 1) != ")") return std::nullopt;
    return stored.substr(2, stored.size() - 3);
}

// The warnings of one value: itself, or, for a value that holds several
// entries, each entry that came or went. A change that adds or removes none
// (the same entries apart otherwise) is told for the whole value.
std::vector<std::pair<std::string, EntryCheck>> warningsOf(EntryCheck result, const std::string& value,
                                                          const std::string& line, EntrySplit split) {
    std::vector<std::pair<std::string, EntryCheck>> warnings;
    if (result == EntryCheck::Unchanged) return warnings;
    if (split != EntrySplit::Whole) {
        const std::optional<std::string> before = result == EntryCheck::New ? std::string() : valueOfLine(line);
        if (before) {
            const EntryChanges changes = entryChanges(*before, value, split);
            for (const std::string& entry : changes.added) warnings.emplace_back(storedTextOf(entry), EntryCheck::New);
            for (const std::string& entry : changes.removed)
                warnings.emplace_back(storedTextOf(entry), EntryCheck::Removed);
            if (!warnings.empty()) return warnings;
        }
    }
    warnings.emplace_back(storedTextOf(value), result);
    return warnings;
}

}  // namespace

struct RegistryPass::PlaceNode {
    std::string key;       // the group's node
    std::string rootText;  // the warning rows' root
    std::string tail;      // the label behind "Loaded in "
    std::string section;
};

void RegistryPass::passPlaces(int otherView) {
    // A recording pass records every place whatever its snapshot holds.
    page_.Label18.setVisible(!ctx_.regNew && addMissingSections(placeSections(otherView)));
    for (const int view : viewsOf(otherView))
        for (const AutostartGroup& group : autostartGroups())
            for (const WatchedRoot& root : kWatchedRoots)
                if (reaches(group, root.hive)) passGroup(group, root, view);
    passFileGroups();
}

// The other view of a group shows only where one of its keys is a key of its own.
void RegistryPass::passGroup(const AutostartGroup& group, const WatchedRoot& root, int viewBits) {
    const PlaceEntries found = registryPlaceEntries(ctx_.os.registry, group, root.hive, viewBits);
    if (viewBits != 0 && !found.opened) return;
    ui::Control& tree = page_.TreeView1;
    const std::string suffix = viewSuffix(viewBits), rootKey = root.nodeKey + suffix;
    if (tree.nodeIndex(rootKey) == ui::kNoNode) tree.addNode({}, rootKey, rootTextOf(root, viewBits));
    const PlaceNode node{std::string("!") + rootMark(root.hive) + group.code + suffix, rootTextOf(root, viewBits),
                         labelTail(group.label), groupSection(group, root.hive, viewBits)};
    tree.addNode(rootKey, node.key, group.label);
    for (const PlaceEntry& entry : found.entries) passEntry(node, entry.name, entry.value, entry.split, entry.place);
}

void RegistryPass::passFileGroups() {
    ui::Control& tree = page_.TreeView1;
    tree.addNode({}, kFilesRootKey, kFilesRootText);
    Files& files = ctx_.os.files;
    for (const FileGroup& group : kFileGroups) {
        tree.addNode(kFilesRootKey, group.nodeKey, group.label);
        std::vector<FileEntry> entries;
        if (group.place == FilePlace::ScheduledTasks) {
            const std::string windows = getWinDir(ctx_);
            if (!windows.empty())
                entries = scheduledTaskEntries(files, windows + "System32\\Tasks\\", windows + "Tasks\\");
        } else {
            const int csidl = group.place == FilePlace::UserStartup ? kUserStartupFolder : kCommonStartupFolder;
            const std::string folder = trimBlanks(ctx_.os.shell.specialFolder(csidl, kFolderChars));
            if (!folder.empty())
                entries = startupFolderEntries(files, ctx_.os.shortcuts, withTrailingBackslash(folder));
        }
        const PlaceNode node{group.nodeKey, kFilesRootText, labelTail(group.label), group.section};
        for (const FileEntry& entry : entries) passEntry(node, RegText(entry.name), entry.value, EntrySplit::Whole, {});
    }
}

// A value's node is keyed by its section and line, so that no entry of a
// group hides another in the tree.
void RegistryPass::passEntry(const PlaceNode& node, const RegText& name, const std::string& value, EntrySplit split,
                             const ValuePlace& place) {
    RegText stored(storedTextOf(value));
    std::string key, line;
    const bool record = ctx_.regNew || recordedSections_.count(node.section) > 0;
    const EntryCheck result = checkRegEntry(name, stored, node.section, key, record, &line);
    ui::Control& tree = page_.TreeView1;
    if (tree.addNode(node.key, "#" + node.section + "\\" + key + stored.text, shownName(name) + stored.text))
        nodePlaces_[tree.nodes().size() - 1] = place;
    for (const auto& [text, check] : warningsOf(result, value, line, split)) {
        page_.List5.addItem(warningRow(node.rootText, node.tail, key, text, check));
        warningPlaces_.push_back(place);
    }
    ctx_.os.loop.pump();
}

}  // namespace tv
