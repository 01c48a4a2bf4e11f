#include <gtest/gtest.h>

#include "core/run_switch.h"
#include "core/text.h"

namespace tv {
namespace {

RunSwitch modeOf(const std::string& commandLine) {
    return parseRunSwitch(trimBlanks(argumentsOf(commandLine)));
}

TEST(RunSwitches, AreComparedExactlyAfterTrimming) {
    EXPECT_EQ(modeOf("\"C:\\Program Files\\Tarvelon\\TarvelonLow.exe\" /r"), RunSwitch::AutoLoad);
    EXPECT_EQ(modeOf("\"C:\\Tarvelon\\TarvelonLow.exe\"  /s "), RunSwitch::SecureShutDown);
    EXPECT_EQ(modeOf("C:\\Tarvelon\\TarvelonLow.exe /a"), RunSwitch::Scheduled);
    EXPECT_EQ(modeOf("C:\\Tarvelon\\TarvelonLow.exe"), RunSwitch::Interactive);
    EXPECT_EQ(modeOf("TarvelonLow.exe /R"), RunSwitch::Interactive);
    EXPECT_EQ(modeOf("TarvelonLow.exe /r /s"), RunSwitch::Interactive);
    EXPECT_EQ(modeOf("TarvelonLow.exe \"/r\""), RunSwitch::Interactive);
}

}  // namespace
}  // namespace tv
