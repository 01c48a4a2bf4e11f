#include "core/run_switch.h"

namespace tv {

std::string argumentsOf(std::string_view commandLine) {
    std::size_t i = 0;
    if (!commandLine.empty() && commandLine[0] == '"') {
        const auto close = commandLine.find('"', 1);
        i = close == std::string_view::npos ? commandLine.size() : close + 1;
    } else {
        while (i < commandLine.size() && commandLine[i] != ' ' && commandLine[i] != '\t') ++i;
    }
    while (i < commandLine.size() && (commandLine[i] == ' ' || commandLine[i] == '\t')) ++i;
    return std::string(commandLine.substr(i));
}

RunSwitch parseRunSwitch(std::string_view trimmedCommandLine) {
    if (trimmedCommandLine == "/r") return RunSwitch::AutoLoad;
    if (trimmedCommandLine == "/s") return RunSwitch::SecureShutDown;
    if (trimmedCommandLine == "/a") return RunSwitch::Scheduled;
    return RunSwitch::Interactive;
}

std::string baselineRefusal(RunSwitch mode) {
    switch (mode) {
    case RunSwitch::AutoLoad:
        return "Cannot start Auto-Load.  Primary Full Scan has not yet been completed.\r\nClosing";
    case RunSwitch::SecureShutDown:
        return "Cannot start Secure Shut Down.  Primary Full Scan has not yet been completed.\r\n"
               "Closing.";
    case RunSwitch::Scheduled:
        return "Cannot run Scheduled Scan.  Primary Full Scan has not yet been completed.\r\n"
               "Closing.";
    case RunSwitch::Interactive:
        break;
    }
    return {};
}

}  // namespace tv
