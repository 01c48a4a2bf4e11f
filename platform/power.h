// Switching the machine off, and the system facts that decide how. No result
// is reported: the program carries on as it was when the system refuses.
#pragma once

#include <cstdint>

namespace tv {

class Power {
public:
    virtual ~Power() = default;

    // Enables the shut-down privilege in this process's token.
    virtual void enableShutdownPrivilege() = 0;
    // ExitWindowsEx(flags, reserved).
    virtual void exitWindows(std::uint32_t flags, std::uint32_t reserved) = 0;
    // SetSystemPowerState(suspend, force): suspend true stands by, false hibernates.
    virtual void setSystemPowerState(bool suspend, bool force) = 0;

    // The version record's platform (2 for the NT family) and major version.
    struct Version {
        std::uint32_t platformId = 0;
        std::uint32_t major = 0;
    };
    virtual Version version() const = 0;

    // Ends the process that owns the desktop window.
    virtual void killDesktopProcess() = 0;
};

}  // namespace tv
