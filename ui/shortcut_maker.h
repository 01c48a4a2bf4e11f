// Making the program's shortcuts: the Auto-Load shortcut in the Startup folder
// (the Auto-Load setting itself) and the Secure Shut Down shortcut, each in the
// system's two ways: its shell-link object, or the scripting host when the user
// chose "Use Windows Scripting Host" because the first way fails on the machine.
// A shortcut that could not be written or removed is reported to the user.
#pragma once

#include <cstdint>
#include <string>

#include "core/app_context.h"

namespace tv {

// The program file a shortcut starts: the program's folder, the program's own
// file name without its extension, and ".exe".
std::string programFile(const AppContext& ctx);

// The shell-link way. Nothing happens without a link path and a target; empty
// workDir, args and iconFile are not set. The description is "Access Shortcut".
// True when the link was saved.
bool makeShortcut(AppContext& ctx, const std::string& linkPath, const std::string& target,
                  const std::string& workDir, const std::string& args, const std::string& iconFile,
                  std::int32_t iconIndex, std::int32_t showCmd);

// The scripting way, window style 0. A link path that does not end in ".lnk"
// or ".url" (in any case) gets ".lnk" added; empty args are not set. True when
// the link was saved.
bool makeShortcutWsh(AppContext& ctx, std::string linkPath, const std::string& description,
                     const std::string& target, const std::string& args);

// Auto-Load at `linkPath` (Startup folder + "Tarvelon.lnk"): the shell-link way
// only when no file is there yet, the scripting way over whatever is there.
// False when a shortcut was to be made and could not be.
bool createAutoLoad(AppContext& ctx, const std::string& linkPath);

// Auto-Load as a save of the settings leaves it. On: the shortcut in use
// (autoLoadShortcutPath) is made, or kept where the shell-link way finds one;
// `renew` makes it anew, as does a shortcut an earlier copy left in the other
// Startup folder, so that it starts this program. Off: the shortcut goes from
// both Startup folders. False, after a message naming the shortcut, when one
// could not be written or removed.
bool saveAutoLoad(AppContext& ctx, bool on, bool renew);

// The "Shutdown/Scan Shortcut" button: asks whether the shortcut goes on the
// Desktop or in the program's folder, makes it unless one is there already,
// and says "Success!", or that it could not be made.
void createShutDownShortcut(AppContext& ctx);

}  // namespace tv
