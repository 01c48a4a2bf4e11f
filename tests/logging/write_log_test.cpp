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
    for (const std::string files : {"\"C:\\A.DLL\" \"C:\\B.DLL\" ", "C:\\A.DLL C:\\B.DLL "}) {
        std::string list = "Heading," + files;
        ASSERT_EQ(writeLog(ctx, list), LogOutcome::Written);
        EXPECT_EQ(*log(), "Heading,C:\\A.DLL,C:\\B.DLL\r\n");
        EXPECT_EQ(list, "Heading,C:\\A.DLL,C:\\B.DLL");  // the caller's text is changed
    }
    std::string blanks = "Heading,\"C:\\Program Files\\X.DLL\" ";
    writeLog(ctx, blanks);
    EXPECT_EQ(*log(), "Heading,C:\\Program,Files\\X.DLL\r\n");
}

TEST_F(WriteLog, GateKeepsBackListsWithoutFilesAndHonoursAutoLogging) {
    for (std::string list : {std::string("   "), std::string("Heading,no files here")})
        EXPECT_EQ(writeLog(ctx, list), LogOutcome::Skipped);
    check7.setValue(0);
    std::string list = "Heading,C:\\A.DLL ";
    EXPECT_EQ(writeLog(ctx, list), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 0);
    ctx.shutAction = 1;  // a secure shut-down learns of the files even with logging off
    EXPECT_EQ(writeLog(ctx, list), LogOutcome::Skipped);
    EXPECT_EQ(ctx.scanLogged, 1);
    EXPECT_EQ(log(), nullptr);
    std::string empty = "Heading,";
    EXPECT_EQ(writeLog(ctx, empty, true), LogOutcome::Written);  // forced: the heading alone
    EXPECT_EQ(*log(), "Heading,\r\n");
}

TEST_F(WriteLog, MissingLogFolderIsAFailureTheUserIsToldOf) {
    os.files.folders.erase("C:\\T\\DATA\\LOG");
    std::string list = "Heading,C:\\A.DLL ";
    os.boxes.answers = {box::Ok};
    EXPECT_EQ(writeLog(ctx, list), LogOutcome::Failed);
    EXPECT_TRUE(os.boxes.shown.at(0).prompt.starts_with("Tarvelon could not write\r\nC:\\T\\Data\\Log\\"));
}

}  // namespace
}  // namespace tv
