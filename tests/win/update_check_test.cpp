#include "tests/win/win_fixture.h"
#include "ui/main_actions.h"
#include "ui/main_window.h"

namespace tv::test {
namespace {

constexpr const char* kUtilityKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\Orbexa_is1";

// The update utility's uninstall record in the machine's registry, as its
// installer leaves it; removed afterwards.
class UpdateCheck : public WinTest {
protected:
    ~UpdateCheck() override { ::RegDeleteKeyA(HKEY_LOCAL_MACHINE, kUtilityKey); }
    void installUtility(const std::string& folder) {
        HKEY key = nullptr;
        ::RegCreateKeyExA(HKEY_LOCAL_MACHINE, kUtilityKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr);
        ::RegSetValueExA(key, "Inno Setup: App Path", 0, REG_SZ, reinterpret_cast<const BYTE*>(folder.c_str()),
                         static_cast<DWORD>(folder.size() + 1));
        ::RegCloseKey(key);
    }

    AppContext ctx{set()};
    ui::MainWindow window;
    ui::MainActions actions{ctx, window, [] {}};
};

TEST_F(UpdateCheck, InstalledUtilityStartsMinimisedForThisProduct) {
    installUtility("C:\\Program Files\\Orbexa");
    window.options.cUpdates.userClick();
    ASSERT_EQ(processes.started.size(), 1u);
    EXPECT_EQ(processes.started[0],
              std::make_pair(std::string("C:\\Program Files\\Orbexa\\Orbexa.exe Tarvelon2"), show::MinimizedFocus));
    EXPECT_TRUE(boxes.shown.empty());
    processes.refuse = true;  // a utility that does not start ends the action quietly
    window.options.cUpdates.userClick();
    EXPECT_TRUE(boxes.shown.empty());
}

}  // namespace
}  // namespace tv::test
