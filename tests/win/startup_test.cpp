#include "core/settings_text.h"
#include "tests/win/win_fixture.h"
#include "ui/application.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

class StartUpOnDisk : public WinTest {
protected:
    // Without a data file the first-run question comes twice; both are refused.
    void refuseFirstRunTwice() { boxes.answers.insert(boxes.answers.end(), {box::No, box::Ok, box::No, box::Ok}); }
    void startWith(const std::string& arguments, const std::string& programFolder) {
        processes.path = programFolder + "TarvelonLow.exe";
        processes.line = "\"" + processes.path + "\" " + arguments;
        app.load();
    }
    ui::Application app{set()};
};

TEST_F(StartUpOnDisk, FreshProgramFolderGetsItsDataFolders) {
    refuseFirstRunTwice();
    startWith("", path(""));
    EXPECT_FALSE(files.canRead(path("Data\\Integrity.dat")));
    EXPECT_TRUE(files.isFolder(path("Data\\Log\\")));
    EXPECT_EQ(readFile("Data\\Tarvelon.dat"), newSettingsFileText());
    EXPECT_EQ(app.context().appPath, path(""));
    EXPECT_TRUE(app.mainForm().visible());
    EXPECT_EQ(app.mainForm().caption(), "Welcome to Tarvelon");
}

TEST_F(StartUpOnDisk, AutoLoadWithoutBaselineIsRefused) {
    refuseFirstRunTwice();
    boxes.answers.push_back(box::Ok);
    startWith("/r", path(""));
    ASSERT_EQ(boxes.shown.size(), 5u);
    EXPECT_EQ(boxes.shown[4].prompt,
              "Cannot start Auto-Load.  Primary Full Scan has not yet been completed.\r\nClosing");
    EXPECT_TRUE(loop.quitCalled);
    EXPECT_TRUE(files.canRead(path("Data\\Tarvelon.dat")));  // start-up ran before the refusal
}

TEST_F(StartUpOnDisk, ProgramFolderThatCannotBeWrittenStillOpens) {
    writeFile("occupied", "a file where the folder would be");
    refuseFirstRunTwice();
    startWith("", path("occupied\\"));
    EXPECT_FALSE(files.isFolder(path("occupied\\Data")));
    EXPECT_TRUE(app.mainForm().visible());
    EXPECT_FALSE(loop.quitCalled);
}

}  // namespace
}  // namespace tv::test
