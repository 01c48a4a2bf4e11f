// A Data folder that cannot be written: the first scan that could never be
// saved ends the start with one message (the start without a Data folder is
// the installer scenario's); a write that fails later is told once per file,
// and the save does not claim success; in a run nobody watches, never.
#include <gtest/gtest.h>

#include "core/settings_store.h"
#include "core/settings_text.h"
#include "core/write_failures.h"
#include "tests/core/fakes.h"
#include "ui/application.h"
#include "ui/main_window.h"
#include "ui/settings_actions.h"

namespace tv {
namespace {

TEST(UnwritableData, FirstScanThatCouldNotBeSavedEndsTheStart) {
    test::FakePlatform os;
    ui::Application app{os.set()};
    os.files.folders.insert({"C:\\TARVELON", "C:\\TARVELON\\DATA", "C:\\TARVELON\\DATA\\LOG"});
    os.files.put("C:\\Tarvelon\\Data\\Tarvelon.dat", newSettingsFileText());  // made by someone who may
    os.files.locked.insert("C:\\TARVELON\\DATA\\INTEGRITY.DAT");
    os.boxes.answers = {box::Yes, box::Ok};
    app.load();
    ASSERT_EQ(os.boxes.shown.size(), 2u);  // the first-run question once, then why it cannot be
    EXPECT_TRUE(
        os.boxes.shown[1].prompt.starts_with("Tarvelon cannot write to its Data folder:\r\nC:\\Tarvelon\\Data\\\r\n"));
    EXPECT_TRUE(app.ended());
    EXPECT_FALSE(app.context().primaryScan);  // no scan that could never be saved
}

// Settings and the snapshot through a profile writer that refuses every write.
struct RefusingProfiles final : ProfileFiles {
    std::string get(const std::string&, const std::string&, std::size_t, const std::string&) const override {
        return {};
    }
    bool put(const std::string&, const std::string&, const std::string&, const std::string&) override {
        return false;
    }
};

TEST(FailedWrites, EachFileIsToldOnceAndTheSaveClaimsNoSuccess) {
    test::FakePlatform os;
    RefusingProfiles profiles;
    AppContext ctx{{os.files, profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, os.registry, os.clock,
                    os.windows, os.power, os.shortcuts}};
    test::prepareProgramFolder(os, ctx, {});
    ui::MainWindow window;
    ui::SettingsActions actions{ctx, window, [] {}, [] {}};
    os.boxes.answers = {box::Ok, box::Ok};
    window.settings.cSave.userClick();
    window.settings.cSave.userClick();
    writeEntry(ctx, ctx.appPath + "Data\\Registry.dat", "Run", " (x.exe)", "LM/R");
    ASSERT_EQ(os.boxes.shown.size(), 2u);
    EXPECT_TRUE(os.boxes.shown[0].prompt.starts_with("Tarvelon could not write\r\nC:\\Tarvelon\\Data\\Tarvelon.dat\r\n"));
    EXPECT_TRUE(os.boxes.shown[1].prompt.starts_with("Tarvelon could not write\r\nC:\\Tarvelon\\Data\\Registry.dat\r\n"));
    EXPECT_EQ(ctx.failedWrites, 5);

    ctx.unattended = true;  // nobody there: counted, never shown
    reportFailedWrite(ctx, ctx.appPath + "Data\\Integrity.dat");
    showUnwritableData(ctx);
    EXPECT_EQ(os.boxes.shown.size(), 2u);
    EXPECT_EQ(ctx.failedWrites, 6);
}

}  // namespace
}  // namespace tv
