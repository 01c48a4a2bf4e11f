// The switches the program is started with.
#pragma once

#include <string>
#include <string_view>

namespace tv {

enum class RunSwitch {
    Interactive,     // no switch, or one the program does not know
    AutoLoad,        // "/r": at log-on, from the Startup shortcut
    SecureShutDown,  // "/s": in place of the system's shut-down
    Scheduled,       // "/a": from an outside scheduler
};

// The part of a full command line behind the program's own name.
std::string argumentsOf(std::string_view commandLine);

// The switch of an already trimmed command line, compared exactly: "/R" and
// "/r /s" are unknown switches.
RunSwitch parseRunSwitch(std::string_view trimmedCommandLine);

// The message with which a switched run ends while no primary full scan has
// been completed. Empty for an interactive run.
std::string baselineRefusal(RunSwitch mode);

}  // namespace tv
