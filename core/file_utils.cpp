#include "core/file_utils.h"

#include "core/text.h"

namespace tv {

bool fileThere(const AppContext& ctx, const std::string& path) { return ctx.os.files.canRead(path); }

std::string getSysDir(const AppContext& ctx) {
    return withTrailingBackslash(ctx.os.shell.systemDirectory(144));
}

std::string getWinDir(const AppContext& ctx) {
    const std::string buffer = ctx.os.shell.windowsDirectoryBuffer(260);
    const auto end = buffer.find('\0');
    if (end == std::string::npos) return {};
    return withTrailingBackslash(buffer.substr(0, end));
}

std::string getSpecialFolder(const AppContext& ctx, int csidl) {
    std::string folder = trimBlanks(ctx.os.shell.specialFolder(csidl, 255));
    if (folder == "\\") folder = "C:\\Program Files\\";
    return withTrailingBackslash(folder);
}

std::string openFileBox(AppContext& ctx, NativeWindow owner, const std::string& title,
                        const std::string& filter) {
    return trimBlanks(ctx.os.shell.openFileDialog(owner, title, filter, 257));
}

std::string browseFolder(AppContext& ctx, const std::string& title) {
    return ctx.os.shell.browseForFolder(title);
}

}  // namespace tv
