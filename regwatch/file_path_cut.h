// From a registry entry or a pending boot file to the one file a scanner
// should look at. A registry value holds a command line written by anybody;
// the cut takes what stands between the first "(" and the ")" behind it,
// stops at the first blank behind the first dot, expands %systemroot% (in
// that spelling only), and looks a bare file name up in the system folders.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace tv {

struct SearchFolders {
    std::string winDir;  // both with a trailing backslash
    std::string sysDir;
};

struct FilePathCut {
    bool found = false;  // false only for a bare name found in none of the folders
    std::string path;    // the file to scan when found
    std::string text;    // the text that was cut out, as it was searched
};

// `entry` is "name (value)" or a plain path. `fileThere` tells whether a
// file can be read. Every step that cannot be done leaves the text as it was.
FilePathCut cutToFilePath(std::string_view entry, const SearchFolders& folders,
                          const std::function<bool(const std::string&)>& fileThere);

}  // namespace tv
