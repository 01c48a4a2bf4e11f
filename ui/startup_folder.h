// Where the Auto-Load shortcut lives.
#pragma once

#include <string>

#include "core/app_context.h"

namespace tv {

inline constexpr int kCommonStartupFolder = 24;
inline constexpr int kProgramsFolder = 2;

// The Startup folder, trimmed; the Programs folder's "StartUp" when the system
// names no Startup folder.
std::string getStartupFolder(const AppContext& ctx);

// The Auto-Load shortcut's full path.
std::string autoLoadShortcutPath(const AppContext& ctx);

}  // namespace tv
