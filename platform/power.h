// Switching the machine off, and the system facts that decide how. Each action
// says whether the system took it.
#pragma once

#include <cstdint>

namespace tv {

class Power {
public:
    virtual ~Power() = default;

    // Enables the shut-down privilege in this process's token.
    virtual void enableShutdownPrivilege() = 0;
    // ExitWindowsEx(flags, reserved): true when the system has begun to end
    // the session; false when it refused (no right to shut down, say).
    virtual bool exitWindows(std::uint32_t flags, std::uint32_t reserved) = 0;
    // SetSystemPowerState(suspend, force): suspend true stands by, false
    // hibernates. True once the machine has slept and woken again; false when
    // the system refused (hibernation turned off, no right to, say).
    virtual bool setSystemPowerState(bool suspend, bool force) = 0;

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
