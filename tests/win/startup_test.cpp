#include "core/settings_text.h"
#include "tests/win/win_fixture.h"
#include "ui/application.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

class StartUpOnDisk : public WinTest {
protected:
    void startWith(const std::string& arguments, const std::string& programFolder) {
        processes.path = programFolder + "TarvelonLow.exe";
        processes.line = "\"" + processes.path + "\" " + arguments;
        app.load();
    }
    ui::Application app{set()};
};

TEST_F(StartUpOnDisk, FreshProgramFolderGetsItsDataFolders) {
    startWith("", path(""));
    EXPECT_TRUE(files.isFolder(path("Data\\Log\\")));
    EXPECT_EQ(readFile("Data\\Tarvelon.dat"), newSettingsFileText());
    EXPECT_EQ(app.context().appPath, path(""));
    EXPECT_TRUE(app.mainForm().visible());
    EXPECT_EQ(app.mainForm().caption(), "Welcome to Tarvelon");
}

TEST_F(StartUpOnDisk, AutoLoadWithoutBaselineIsRefused) {
    boxes.answers = {box::Ok};
    startWith("/r", path(""));
    ASSERT_EQ(boxes.shown.size(), 1u);
    EXPECT_EQ(boxes.shown[0].prompt,
              "Cannot start Auto-Load.  Primary Full Scan has not yet been completed.\r\nClosing");
    EXPECT_TRUE(loop.quitCalled);
    EXPECT_TRUE(files.canRead(path("Data\\Tarvelon.dat")));  // start-up ran before the refusal
}

TEST_F(StartUpOnDisk, ProgramFolderThatCannotBeWrittenStillOpens) {
    writeFile("occupied", "a file where the folder would be");
    startWith("", path("occupied\\"));
    EXPECT_FALSE(files.isFolder(path("occupied\\Data")));
    EXPECT_TRUE(app.mainForm().visible());
    EXPECT_FALSE(loop.quitCalled);
}

}  // namespace
}  // namespace tv::test
