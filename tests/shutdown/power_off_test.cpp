#include <gtest/gtest.h>

#include "shutdown/power_off.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

using Calls = std::vector<std::string>;

class PowerOffTest : public ::testing::Test {
protected:
    test::FakePlatform os;
    AppContext ctx{os.set()};
};

TEST_F(PowerOffTest, ExitFlagsForceOnlyHungProgramsFromWindows2000On) {
    EXPECT_EQ(exitFlags(2, true), 19u);  // restart
    EXPECT_EQ(exitFlags(2, false), 7u);
    EXPECT_EQ(exitFlags(8, true), 25u);  // turn off
    EXPECT_EQ(exitFlags(8, false), 13u);
    EXPECT_EQ(exitFlags(4, true), 20u);  // log off
    EXPECT_EQ(exitFlags(4, false), 8u);  // its force added to the force it has
    EXPECT_EQ(exitFlags(3, true), 16u);  // an action no one chooses asks for nothing but the force
}

TEST_F(PowerOffTest, StandbyAndHibernateSetThePowerStateWithForceAfterThePrivilege) {
    shutDown(ctx, 1);
    shutDown(ctx, 0);
    EXPECT_EQ(os.power.calls, (Calls{"privilege", "state 1 1", "privilege", "state 0 1"}));
}

TEST_F(PowerOffTest, TheVersionDecidesTheFlagsAndAnOldSystemLosesItsDesktopOnLogOff) {
    shutDown(ctx, 8);
    os.power.answer = {2, 4};  // Windows NT 4
    handleShutOff(ctx, 2);
    handleShutOff(ctx, 4);
    os.power.answer = {1, 4};  // Windows 98
    handleShutOff(ctx, 4);
    EXPECT_EQ(os.power.calls, (Calls{"privilege", "exit 25 4294967295", "exit 7 4294967295", "exit 8 4294967295",
                                     "kill desktop", "exit 8 4294967295"}));
    EXPECT_FALSE(isWinNT(ctx));
    EXPECT_FALSE(isWin2kUp(ctx));
}

}  // namespace
}  // namespace tv
