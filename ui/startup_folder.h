// Where the Auto-Load shortcut lives. It goes to the Startup folder the
// program's rights allow: all users' one only for Tarvelon installed for all
// users and run by an administrator, otherwise the user's own, which nobody
// else can put a program into.
#pragma once

#include <array>
#include <string>

#include "core/app_context.h"

namespace tv {

inline constexpr int kUserStartupFolder = 7;
inline constexpr int kCommonStartupFolder = 24;
inline constexpr int kProgramsFolder = 2;

// True when this copy is Tarvelon installed for all users (a setup's entry in
// the machine's list of installed programs names its folder) and runs with the
// rights to change that entry, as an administrator does.
bool allUsersInstallRunElevated(const AppContext& ctx);

// The Startup folder where a new Auto-Load shortcut goes, trimmed; the
// Programs folder's "StartUp" when the system names no such folder.
std::string getStartupFolder(const AppContext& ctx);

// The Auto-Load shortcut's path in both Startup folders: where a new one goes
// first, then the other one, where an earlier copy may have left it (empty
// where the system names no such folder).
std::array<std::string, 2> autoLoadShortcutPaths(const AppContext& ctx);

// The Auto-Load shortcut in use: the first of autoLoadShortcutPaths that is
// there, or else where a new one goes.
std::string autoLoadShortcutPath(const AppContext& ctx);

}  // namespace tv
