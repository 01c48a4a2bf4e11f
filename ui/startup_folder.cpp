#include "ui/startup_folder.h"

#include "core/text.h"

namespace tv {

std::string getStartupFolder(const AppContext& ctx) {
    std::string folder = ctx.os.shell.specialFolder(kCommonStartupFolder, 260);
    if (folder.empty()) folder = ctx.os.shell.specialFolder(kProgramsFolder, 260) + "\\StartUp";
    return trimBlanks(folder);
}

std::string autoLoadShortcutPath(const AppContext& ctx) {
    return withTrailingBackslash(trimBlanks(getStartupFolder(ctx))) + "Tarvelon.lnk";
}

}  // namespace tv
