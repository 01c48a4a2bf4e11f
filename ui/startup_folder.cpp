#include "ui/startup_folder.h"

#include "core/file_utils.h"
#include "core/text.h"

namespace tv {
namespace {

constexpr const char* kUninstallKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";
// The entries of the 64-bit and the 32-bit setup; each program reads its own
// setup's registry view.
constexpr const char* kSetupEntries[] = {"Tarvelon", "Tarvelon (32-bit)"};
constexpr std::uint32_t kPathChars = 260;

// The folder a setup entry names, when this process may change the entry:
// opening it asks for all access, which only an administrator is given.
std::string installLocation(Registry& registry, const std::string& entry) {
    Registry::Key key = 0;
    if (registry.openKey(hive::LocalMachine, RegText(kUninstallKey + entry), RegView::Native, RegAccess::All, key) != 0)
        return {};
    RegValue value;
    const long result = registry.queryValue(key, RegText("InstallLocation"), value);
    registry.closeKey(key);
    return result == 0 ? value.bytes.substr(0, value.bytes.find('\0')) : std::string();
}

std::string startupFolder(const AppContext& ctx, int csidl) {
    std::string folder = ctx.os.shell.specialFolder(csidl, kPathChars);
    if (folder.empty()) folder = ctx.os.shell.specialFolder(kProgramsFolder, kPathChars) + "\\StartUp";
    return trimBlanks(folder);
}

std::string linkIn(const std::string& folder) {
    return folder.empty() ? std::string() : withTrailingBackslash(folder) + "Tarvelon.lnk";
}

}  // namespace

bool allUsersInstallRunElevated(const AppContext& ctx) {
    for (const char* entry : kSetupEntries) {
        const std::string folder = installLocation(ctx.os.registry, entry);
        if (!folder.empty() && sameText(withTrailingBackslash(folder), ctx.appPath)) return true;
    }
    return false;
}

std::string getStartupFolder(const AppContext& ctx) {
    return startupFolder(ctx, allUsersInstallRunElevated(ctx) ? kCommonStartupFolder : kUserStartupFolder);
}

std::array<std::string, 2> autoLoadShortcutPaths(const AppContext& ctx) {
    const bool allUsers = allUsersInstallRunElevated(ctx);
    const int other = allUsers ? kUserStartupFolder : kCommonStartupFolder;
    return {linkIn(startupFolder(ctx, allUsers ? kCommonStartupFolder : kUserStartupFolder)),
            linkIn(trimBlanks(ctx.os.shell.specialFolder(other, kPathChars)))};
}

std::string autoLoadShortcutPath(const AppContext& ctx) {
    const auto paths = autoLoadShortcutPaths(ctx);
    for (const std::string& path : paths)
        if (!path.empty() && fileThere(ctx, path)) return path;
    return paths[0];
}

}  // namespace tv
