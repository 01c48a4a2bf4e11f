#include "core/folder_search.h"

#include <vector>

#include "core/text.h"

namespace tv {
namespace {

// A folder being searched: its listing and the next entry to look at.
struct Level {
    std::string folder;
    std::vector<FolderEntry> entries;
    std::size_t next = 0;
};

}  // namespace

FolderSearch::FolderSearch(const AppContext& ctx, std::function<bool(const std::string&)> entering)
    : ctx_(ctx), entering_(std::move(entering)) {}

// Where the system cannot tell a folder's identity (Windows 9x, which has no
// junctions), its path, case-folded, stands for it.
bool FolderSearch::enter(const std::string& folder) {
    std::string identity = ctx_.os.files.folderIdentity(folder);
    if (identity.empty()) identity = "path " + upperCase(folder);
    return seen_.insert(std::move(identity)).second;
}

std::string FolderSearch::findInTree(const std::string& root, const std::string& name) {
    std::vector<Level> levels;
    const auto descend = [&](const std::string& folder) {
        if (!enter(folder)) return true;  // searched already, without a hit
        if (!entering_(folder)) {
            stopped_ = true;
            return false;
        }
        levels.push_back({folder, ctx_.os.files.listFolder(folder)});
        return true;
    };
    if (stopped_ || !descend(withTrailingBackslash(root))) return {};
    while (!levels.empty()) {
        Level& level = levels.back();
        if (level.next == level.entries.size()) {
            levels.pop_back();
            continue;
        }
        const FolderEntry& entry = level.entries[level.next++];
        const std::string path = level.folder + entry.name;
        if (entry.isFolder) {
            if (!descend(path + "\\")) return {};
        } else if (sameText(entry.name, name)) {
            return path;
        }
    }
    return {};
}

}  // namespace tv
