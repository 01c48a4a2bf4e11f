#include "core/settings_store.h"
#include "custom/custom_slots.h"
#include "hash/checksum.h"
#include "tests/win/win_fixture.h"

namespace tv::test {
namespace {

class CustomSlots : public WinTest {
protected:
    CustomSlots() {
        ctx.appPath = path("");
        ctx.settFile = path("Tarvelon.dat");
        checkSettFile(ctx);
    }
    AppContext ctx{set()};
};

TEST_F(CustomSlots, LastCharacterDecidesJoiningAndPositionsTheGroups) {
    writeEntry(ctx, ctx.settFile, "path", "C:\\TOOLS\\", "12");
    writeEntry(ctx, ctx.settFile, "args", "1,0,0,0,0,0,1", "12");
    const CustomSlot record = readSlot(ctx, 12);
    EXPECT_EQ(record.path, "C:\\TOOLS\\");
    EXPECT_TRUE(joinsRun(record.args));
    EXPECT_FALSE(joinsRun(record.args2));
    EXPECT_EQ(wantedGroups(record.args), (std::array<bool, 6>{true, false, false, false, false, false}));
    EXPECT_TRUE(joinsRun("1,1"));  // a short list joins when it ends in "1"
    EXPECT_EQ(wantedGroups("1,1"), (std::array<bool, 6>{true, true, false, false, false, false}));
    ctx.algoName = "SHA1";
    EXPECT_EQ(hash::getCustomDat(ctx, 12), path("Data\\12-sha1.dat"));
}

}  // namespace
}  // namespace tv::test
