// The search for a program file by name below a folder, as the system's tree
// search makes it (the folder's entries in the system's order, each folder
// searched through as it comes, the first file of that name wins), but in
// steps: before each folder it enters, the caller is told where the search
// stands and may stop it, so that the window lives on meanwhile.
//
// One search never enters a folder twice, whatever path leads to it: a
// junction that points up the tree cannot make it endless, and a second root
// does not walk again what the first one walked. A folder entered before held
// no hit, or the search would have ended there, so the hits are those of the
// plain search.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "core/app_context.h"

namespace tv {

class FolderSearch {
public:
    // `entering` is told each folder (with its backslash) before it is listed;
    // false stops the search.
    FolderSearch(const AppContext& ctx, std::function<bool(const std::string& folder)> entering);

    // The full path of the first file `name` (compared without regard to
    // case) below `root`, or empty text when there is none or the search was
    // stopped. Folders of the same name are no hit.
    std::string findInTree(const std::string& root, const std::string& name);

    bool stopped() const { return stopped_; }

private:
    bool enter(const std::string& folder);

    const AppContext& ctx_;
    std::function<bool(const std::string&)> entering_;
    std::set<std::string> seen_;
    bool stopped_ = false;
};

}  // namespace tv
