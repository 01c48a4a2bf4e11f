#include <gtest/gtest.h>

#include "logging/write_log.h"
#include "platform/controls.h"
#include "tests/core/fakes.h"

namespace tv {
namespace {

class WriteLog : public ::testing::Test {
protected:
    WriteLog() {
        ctx.appPath = "C:\\T\\";
        os.files.folders = {"C:\\T", "C:\\T\\DATA", "C:\\T\\DATA\\LOG"};
        ctx.autoLogging = &check7;
        check7.setValue(1);
    }
    const std::string* log() const { return os.files.content("C:\\T\\Data\\Log\\03-05-2006(3_04_07PM).log"); }

    test::FakePlatform os;
    AppContext ctx{os.set()};
    ui::Control check7{ui::Kind::FlatCheck, "Check7", nullptr, {}, "Auto-Logging"};
};

TEST_F(WriteLog, NameComesFromTheRegionalDateAndTime) {
    // The padding of each part is the report names' own.
    EXPECT_EQ(logFileName(ctx), "C:\\T\\Data\\Log\\03-05-2006(3_04_07PM).log");
    os.clock.now = {"2006.03.05", "13:04:07"};  // neither "/" nor "-": one part, as it is
    EXPECT_EQ(logFileName(ctx), "C:\\T\\Data\\Log\\2006.03.05(13_04_07).log");
}

TEST_F(WriteLog, OneLineOfCommaSeparatedFilesWithOrWithoutQuotes) {
    for (const std::vector<std::string> files : {std::vector<std::string>{"\"C:\\A.DLL\" ", "\"C:\\B.DLL\" "},
                                                 std::vector<std::string>{" C:\\A.DLL", " ", " C:\\B.DLL"}}) {
        ASSERT_EQ(writeLog(ctx, "Heading,", files), LogOutcome::Written);
        EXPECT_EQ(*log(), "Heading,C:\\A.DLL,C:\\B.DLL\r\n");
        os.files.remove("C:\\T\\Data\\Log\\03-05-2006(3_04_07PM).log");
    }
}

TEST_F(WriteLog, GateKeepsBackListsWithoutFilesAndHonoursAutoLogging) {
    EXPECT_EQ(writeLog(ctx, "   ", {}), LogOutcome::Skipped);
    EXPECT_EQ(writeLog(ctx, "Heading,", {"no files here"}), LogOutcome::Skipped);
    check7.setValue(0);
    const std::vector<std::string> list{"C:\\A.DLL "};
    EXPECT_EQ(writeLog(ctx, "Heading,", list), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 0);
    ctx.shutAction = 1;  // a secure shut-down learns of the files even with logging off
    EXPECT_EQ(writeLog(ctx, "Heading,", list), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 1);
    EXPECT_EQ(log(), nullptr);
    EXPECT_EQ(writeLog(ctx, "Heading,", {}, true), LogOutcome::Written);  // forced: the heading alone
    EXPECT_EQ(*log(), "Heading,\r\n");
}

TEST_F(WriteLog, MissingLogFolderIsAFailureForTheCaller) {
    os.files.folders.erase("C:\\T\\DATA\\LOG");
    EXPECT_EQ(writeLog(ctx, "Heading,", {"C:\\A.DLL "}), LogOutcome::Failed);
}

}  // namespace
}  // namespace tv
