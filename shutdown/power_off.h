// The power action that ends a Secure Shut Down: standby or hibernation
// through the system's power state, restart, turn-off or log-off through the
// exit of Windows, forcing hung programs only where the system can tell them.
#pragma once

#include <cstdint>

#include "core/app_context.h"

namespace tv {

// The flags of the exit of Windows.
namespace exitFlag {
inline constexpr std::uint32_t Shutdown = 1;
inline constexpr std::uint32_t Reboot = 2;
inline constexpr std::uint32_t Force = 4;
inline constexpr std::uint32_t PowerOff = 8;
inline constexpr std::uint32_t ForceIfHung = 16;
}  // namespace exitFlag

// ShutDown: enables the shut-down privilege, then handleShutOff.
bool shutDown(AppContext& ctx, std::int16_t action);

// Actions 0 (hibernate) and 1 (standby) set the system's power state; 2
// (restart), 4 (log off) and 8 (turn off) exit Windows. True when the system
// took the action: for standby and hibernation, once the machine is awake
// again. A refused action leaves everything as it was.
bool handleShutOff(AppContext& ctx, std::int16_t action);

// The flags of the exit of Windows for an action: forced if hung on Windows
// 2000 and later, forced on older systems.
std::uint32_t exitFlags(std::int16_t action, bool win2kUp);

bool isWin2kUp(const AppContext& ctx);
bool isWinNT(const AppContext& ctx);

}  // namespace tv
