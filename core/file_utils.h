// Small shared routines over the platform: file presence, the system's folders
// and the two choice dialogs, with the rules callers rely on. The tree search
// is core/folder_search.
#pragma once

#include <string>

#include "core/app_context.h"

namespace tv {

// True when the file can be opened for reading now. A folder, or a file locked by
// another program, counts as absent.
bool fileThere(const AppContext& ctx, const std::string& path);

std::string getSysDir(const AppContext& ctx);  // with a trailing backslash
std::string getWinDir(const AppContext& ctx);  // with a trailing backslash, or empty

inline constexpr int kProgramFilesFolder = 38;
// A special folder with a trailing backslash. A folder the system reports as "\"
// stands for "C:\Program Files\"; one it does not know at all comes back as "\".
std::string getSpecialFolder(const AppContext& ctx, int csidl = kProgramFilesFolder);

// The open-file dialog owned by `owner`. The chosen file's buffer trimmed of
// blanks (the zero characters behind the name stay), or empty text on cancel.
std::string openFileBox(AppContext& ctx, NativeWindow owner, const std::string& title,
                        const std::string& filter);

// The folder dialog; the chosen folder, or empty text on cancel.
std::string browseFolder(AppContext& ctx, const std::string& title);

}  // namespace tv
