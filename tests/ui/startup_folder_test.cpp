// Where Auto-Load puts its shortcut: all users' Startup folder only for
// Tarvelon installed for all users and run by an administrator, the user's own
// otherwise; a shortcut an earlier copy left in the other folder is the one in
// use, brought up to date, and goes with the user's own when Auto-Load is off.
#include <gtest/gtest.h>

#include "core/file_utils.h"
#include "tests/core/fakes.h"
#include "ui/shortcut_maker.h"
#include "ui/startup_folder.h"

namespace tv {
namespace {

constexpr const char* kOwn = "C:\\Users\\Ann\\Startup\\Tarvelon.lnk";
constexpr const char* kAll = "C:\\ProgramData\\Startup\\Tarvelon.lnk";
constexpr const char* kProgram = "C:\\Program Files\\Tarvelon\\TarvelonLow.exe";
const std::string kUninstall = "Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\";

// The machine's list of installed programs with one setup's entry, which only
// an administrator may open with all access.
class SetupEntry final : public Registry {
public:
    std::string name, folder;
    bool administrator = true;
    long openKey(std::uint32_t root, const std::string& subKey, Key& key) override {
        const bool found = root == hive::LocalMachine && subKey == kUninstall + name;
        key = found && administrator ? 7 : 0;
        return key ? 0 : found ? 5 : 2;
    }
    long queryValue(Key key, const std::string& value, std::string& buffer, std::uint32_t&,
                    std::uint32_t&) override {
        if (key != 7 || value != "InstallLocation") return 2;
        buffer.replace(0, folder.size() + 1, folder + '\0');
        return 0;
    }
    long enumKey(Key, std::uint32_t, std::string&) override { return 5; }
    long enumValue(Key, std::uint32_t, std::string&, std::uint32_t, std::string&, std::uint32_t) override { return 5; }
    long deleteValue(Key, const std::string&) override { return 5; }
    long closeKey(Key) override { return 0; }
};

class AutoLoadFolder : public ::testing::Test {
protected:
    AutoLoadFolder() {
        ctx.appPath = "C:\\Program Files\\Tarvelon\\";
        os.processes.path = kProgram;
        os.shell.special[kUserStartupFolder] = "C:\\Users\\Ann\\Startup";
        os.shell.special[kCommonStartupFolder] = "C:\\ProgramData\\Startup";
    }
    test::FakePlatform os;
    SetupEntry entry;
    AppContext ctx{{os.files, os.profiles, os.shell, os.boxes, os.processes, os.loop, os.renderer, entry, os.clock,
                    os.windows, os.power, os.shortcuts}};
};

TEST_F(AutoLoadFolder, AllUsersStartupOnlyForTheAllUsersInstallationRunByAnAdministrator) {
    struct Case {
        const char* entry;
        const char* folder;
        bool administrator;
        const char* link;
    };
    for (const Case& c : {Case{"Tarvelon", "C:\\Program Files\\Tarvelon", true, kAll},
                          Case{"Tarvelon (32-bit)", "c:\\program files\\TARVELON\\", true, kAll},
                          Case{"Tarvelon", "C:\\Program Files\\Tarvelon", false, kOwn},
                          Case{"Tarvelon", "C:\\Program Files\\Tarvelon Old", true, kOwn},
                          Case{"Orbexa", "C:\\Program Files\\Tarvelon", true, kOwn}}) {
        entry.name = c.entry;
        entry.folder = c.folder;
        entry.administrator = c.administrator;
        EXPECT_EQ(autoLoadShortcutPath(ctx), c.link) << c.entry << " " << c.folder << " " << c.administrator;
    }
    entry.name.clear();  // no setup at all: a copy unpacked from the portable archive
    EXPECT_EQ(getStartupFolder(ctx), "C:\\Users\\Ann\\Startup");
}

TEST_F(AutoLoadFolder, ShortcutAnEarlierCopyLeftInTheOtherFolderIsUpdatedOrRemoved) {
    os.files.put(kAll, "an earlier copy's");
    EXPECT_TRUE(fileThere(ctx, autoLoadShortcutPath(ctx)));  // Auto-Load shows as on
    EXPECT_TRUE(saveAutoLoad(ctx, true, false));  // even the save that keeps a shortcut in place
    ASSERT_EQ(os.shortcuts.links.size(), 1u);
    EXPECT_EQ(os.shortcuts.links[0].first, kAll);
    EXPECT_EQ(os.shortcuts.links[0].second.target, kProgram);
    EXPECT_EQ(os.shortcuts.links[0].second.arguments, " /r");

    os.files.put(kOwn, "mine");
    EXPECT_TRUE(saveAutoLoad(ctx, true, false));  // the shortcut in the user's own folder is kept
    EXPECT_EQ(os.shortcuts.links.size(), 1u);
    os.files.put(kAll, "an earlier copy's");
    EXPECT_TRUE(saveAutoLoad(ctx, false, true));
    EXPECT_FALSE(fileThere(ctx, kOwn));
    EXPECT_FALSE(fileThere(ctx, kAll));
    EXPECT_TRUE(os.boxes.shown.empty());

    EXPECT_TRUE(saveAutoLoad(ctx, true, true));  // a new one goes to the user's own folder
    EXPECT_EQ(os.shortcuts.links.back().first, kOwn);
}

}  // namespace
}  // namespace tv
