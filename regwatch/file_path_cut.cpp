#include "regwatch/file_path_cut.h"

#include "core/text.h"

namespace tv {
namespace {

// Between the first "(" and the first ")" at or behind it; the whole entry
// when there is no ")" (so a plain "C:\Program Files (x86)\a.exe" gives "x86").
std::string betweenParentheses(std::string_view entry) {
    const std::size_t start = inStr(1, entry, "(") + 1;
    const std::size_t end = inStr(start, entry, ")");
    if (end == 0) return std::string(entry);
    return midText(entry, start, end - start);
}

// A command's arguments begin at the first blank behind the first dot; with
// no dot at all, at the first blank.
std::string withoutArguments(std::string text) {
    if (inStr(1, text, " ") == 0) return text;
    const std::size_t dot = inStr(1, text, ".");
    const std::size_t blank = inStr(dot == 0 ? 1 : dot, text, " ");
    if (blank > 0) text = leftText(text, blank - 1);
    return text;
}

}  // namespace

FilePathCut cutToFilePath(std::string_view entry, const SearchFolders& folders,
                          const std::function<bool(const std::string&)>& fileThere) {
    FilePathCut cut;
    cut.text = withoutArguments(betweenParentheses(entry));
    std::string path = replaceText(cut.text, "%systemroot%", folders.winDir);
    path = replaceText(path, "\\\\", "\\");
    if (inStr(1, path, ".") == 0) path += ".exe";
    cut.found = true;
    cut.path = path;
    if (inStr(1, cut.text, "\\") > 0) return cut;
    // A bare name: the system folder, the Windows folder, and the old system
    // folder beside them ("...\system32\" without its "32"). The ".exe" added
    // above does not take part.
    const std::string oldSystem =
        leftText(folders.sysDir, folders.sysDir.size() >= 3 ? folders.sysDir.size() - 3 : 0) + "\\";
    for (const std::string& folder : {folders.sysDir, folders.winDir, oldSystem}) {
        if (fileThere(folder + cut.text)) {
            cut.path = folder + cut.text;
            return cut;
        }
    }
    cut.found = false;
    cut.path.clear();
    return cut;
}

}  // namespace tv
