#include "ui/shortcut_maker.h"

#include "core/file_utils.h"
#include "core/text.h"
#include "ui/startup_folder.h"

namespace tv {
namespace {

constexpr int kDesktopFolder = 0;
constexpr std::int32_t kShowNormal = 5;
constexpr const char* kShutDownLink = "SecureShutDown.lnk";

// The description the shell-link way gives every shortcut, with the zero
// character the program has always ended it with.
const std::string kLinkDescription("Access Shortcut\0", 16);

// One of the program's own shortcuts, in the way the user chose. The two ways
// differ in the arguments: the shell-link way has always put a blank before
// the switch, the scripting way none.
bool makeProgramShortcut(AppContext& ctx, const std::string& linkPath, const std::string& wshDescription,
                         const std::string& runSwitch) {
    const std::string target = programFile(ctx);
    if (ctx.useWsh == 1) return makeShortcutWsh(ctx, linkPath, wshDescription, target, runSwitch);
    return makeShortcut(ctx, linkPath, target, "", " " + runSwitch, target, 0, kShowNormal);
}

constexpr const char* kOtherWay =
    "try again with \"Use Windows Scripting Host\" on the Advanced Settings page";

bool autoLoadNotWritten(AppContext& ctx, const std::string& link) {
    ctx.os.boxes.show("Tarvelon could not write the Auto-Load shortcut\r\n" + link +
                          "\r\n\r\nThe check at log-on will not start from it. A shortcut in the Startup folder "
                          "of all users may be changed by an administrator only; otherwise " + kOtherWay + ".",
                      kAppTitle, box::OkOnly | box::Exclamation);
    return false;
}

bool autoLoadNotRemoved(AppContext& ctx, const std::string& link) {
    ctx.os.boxes.show("Tarvelon could not remove the Auto-Load shortcut\r\n" + link +
                          "\r\n\r\nThe check will still run at log-on. A shortcut in the Startup folder of all "
                          "users may be removed by an administrator only.",
                      kAppTitle, box::OkOnly | box::Exclamation);
    return false;
}

}  // namespace

std::string programFile(const AppContext& ctx) {
    const std::string program = ctx.os.processes.modulePath();
    const std::size_t slash = program.find_last_of('\\');
    std::string name = slash == std::string::npos ? program : program.substr(slash + 1);
    const std::size_t dot = name.find_last_of('.');
    if (dot != std::string::npos) name.erase(dot);
    return withTrailingBackslash(ctx.appPath) + name + ".exe";
}

bool makeShortcut(AppContext& ctx, const std::string& linkPath, const std::string& target,
                  const std::string& workDir, const std::string& args, const std::string& iconFile,
                  std::int32_t iconIndex, std::int32_t showCmd) {
    if (linkPath.empty() || target.empty()) return false;
    Shortcuts::Link link;
    link.target = target;
    if (!workDir.empty()) link.workDir = workDir;
    if (!args.empty()) link.arguments = args;
    link.description = kLinkDescription;
    if (!iconFile.empty()) link.iconFile = iconFile;
    link.iconIndex = iconIndex;
    link.showCommand = showCmd;
    return ctx.os.shortcuts.makeShellLink(linkPath, link);
}

bool makeShortcutWsh(AppContext& ctx, std::string linkPath, const std::string& description,
                     const std::string& target, const std::string& args) {
    const std::string ending = lowerCase(rightText(linkPath, 4));
    if (ending != ".lnk" && ending != ".url") linkPath += ".lnk";
    return ctx.os.shortcuts.makeScriptedShortcut(linkPath, description, target,
                                                 args.empty() ? std::nullopt : std::optional(args), 0);
}

bool createAutoLoad(AppContext& ctx, const std::string& linkPath) {
    if (ctx.useWsh != 1 && fileThere(ctx, linkPath)) return true;
    return makeProgramShortcut(ctx, linkPath, "Tarvelon", "/r");
}

bool saveAutoLoad(AppContext& ctx, bool on, bool renew) {
    const auto paths = autoLoadShortcutPaths(ctx);
    if (!on) {
        bool removed = true;
        for (const std::string& link : paths)
            if (!link.empty() && fileThere(ctx, link) && !ctx.os.files.remove(link))
                removed = autoLoadNotRemoved(ctx, link);
        return removed;
    }
    const std::string link = autoLoadShortcutPath(ctx);
    if ((renew || link != paths[0]) && fileThere(ctx, link) && !ctx.os.files.remove(link))
        return autoLoadNotWritten(ctx, link);
    return createAutoLoad(ctx, link) || autoLoadNotWritten(ctx, link);
}

void createShutDownShortcut(AppContext& ctx) {
    MessageBoxes& boxes = ctx.os.boxes;
    std::string linkPath;
    if (boxes.show("Tarvelon will now create a shortcut for you to use the Secure ShutDown and Scan Feature.\r\n"
                   "Would you like this shortcut on your Desktop?",
                   kAppTitle, box::YesNo) != box::Yes) {
        boxes.show("Tarvelon will now create a SecureShutDown shortcut in your Tarvelon directory.", kAppTitle,
                   box::OkOnly);
        linkPath = withTrailingBackslash(ctx.appPath) + kShutDownLink;
    } else {
        const std::string desktop = getSpecialFolder(ctx, kDesktopFolder);
        if (desktop.empty()) {
            boxes.show("Error: Could not find Desktop directory...Creating shortcut in Tarvelon directory.",
                       kAppTitle, box::OkOnly);
            linkPath = ctx.appPath + kShutDownLink;
        } else {
            linkPath = withTrailingBackslash(desktop) + kShutDownLink;
        }
    }
    // A shortcut that is there already is the user's: it stays as it is.
    if (fileThere(ctx, linkPath) || makeProgramShortcut(ctx, linkPath, "SecureShutDown", "/s")) {
        boxes.show("Success!", kAppTitle, box::OkOnly);
        return;
    }
    boxes.show("Tarvelon could not create the shortcut\r\n" + linkPath + "\r\n\r\nChoose the other place for it, or " +
                   kOtherWay + ".",
               kAppTitle, box::OkOnly | box::Exclamation);
}

}  // namespace tv
