#include "shutdown/power_off.h"

namespace tv {
namespace {

constexpr std::uint32_t kNtPlatform = 2;
constexpr std::uint32_t kEveryReason = 0xFFFFFFFF;  // the reserved argument as the exit is asked with it
constexpr std::int16_t kLogOff = 4;

}  // namespace

std::uint32_t exitFlags(std::int16_t action, bool win2kUp) {
    std::uint32_t flags = 0;
    switch (action) {
    case 1: flags = exitFlag::Shutdown; break;
    case 2: flags = exitFlag::Shutdown | exitFlag::Reboot; break;
    case 4: flags = exitFlag::Force; break;
    case 8: flags = exitFlag::Shutdown | exitFlag::PowerOff; break;
    default: break;
    }
    // A log-off on an older system gets the force added to the force it has:
    // the sum (8) is what is asked for.
    return flags + (win2kUp ? exitFlag::ForceIfHung : exitFlag::Force);
}

bool handleShutOff(AppContext& ctx, std::int16_t action) {
    if (action < 2) return ctx.os.power.setSystemPowerState(action != 0, true);
    const bool win2kUp = isWin2kUp(ctx);
    if (action == kLogOff && !win2kUp && !isWinNT(ctx)) ctx.os.power.killDesktopProcess();
    return ctx.os.power.exitWindows(exitFlags(action, win2kUp), kEveryReason);
}

bool shutDown(AppContext& ctx, std::int16_t action) {
    ctx.os.power.enableShutdownPrivilege();
    return handleShutOff(ctx, action);
}

bool isWin2kUp(const AppContext& ctx) {
    const Power::Version version = ctx.os.power.version();
    return version.platformId == kNtPlatform && version.major > 4;
}

bool isWinNT(const AppContext& ctx) { return ctx.os.power.version().platformId == kNtPlatform; }

}  // namespace tv
