// The RegWatch page over the real registry calls and profile files. The three roots are mapped, for this process,
// to empty volatile keys of the test's own, so that the watched keys hold only what the test puts there and Wine
// never starts what they name. The shell is the real one, with folders of the test's own where named (ownShell).
#pragma once

#include "regwatch/reg_class.h"
#include "regwatch/registry_pass.h"
#include "regwatch/regwatch_actions.h"
#include "tests/win/own_system_shell.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {

using Texts = std::vector<std::string>;

inline const HKEY LM = HKEY_LOCAL_MACHINE, CU = HKEY_CURRENT_USER, CR = HKEY_CLASSES_ROOT, kRoots[] = {LM, CU, CR};
inline const std::string kRun = "Software\\Microsoft\\Windows\\CurrentVersion\\Run", kRunOnce = kRun + "Once";
inline const std::string kPif = "Software\\Classes\\piffile\\shell\\open\\command";

inline HKEY makeKey(HKEY root, const std::string& key) {
    HKEY made = nullptr;
    EXPECT_EQ(::RegCreateKeyExA(root, key.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &made,
                                nullptr), 0) << key;
    return made;
}

class RegWatchTest : public WinTest {
protected:
    RegWatchTest() {
        const std::string scratch = "TarvelonTests\\" + std::to_string(::GetCurrentProcessId()) + "-";
        HKEY mapped[3] = {};  // all made before the user's own root is mapped
        for (int i = 0; i < 3; ++i) mapped[i] = makeKey(CU, scratch + std::to_string(i));
        for (int i = 0; i < 3; ++i) ::RegOverridePredefKey(kRoots[i], mapped[i]), ::RegCloseKey(mapped[i]);
        ctx.appPath = path("");
        ctx.settFile = path("Data\\Tarvelon.dat");
        ctx.regFile = path("Data\\Registry.dat");
        ctx.quoteChar = "\"";
        files.makeFolder(path("Data"));
        writeFile("Data\\Tarvelon.dat", "[Tarvelon]\r\nantivirus=C:\\av\\one.exe|/x\r\nav2=C:\\av\\two.exe| /y \r\n");
    }
    ~RegWatchTest() override {
        for (HKEY root : kRoots) ::RegOverridePredefKey(root, nullptr);
    }
    void put(HKEY root, const std::string& key, const std::string& name, DWORD type, const std::string& bytes) {
        const HKEY opened = makeKey(root, key);
        ::RegSetValueExA(opened, name.c_str(), 0, type, reinterpret_cast<const BYTE*>(bytes.data()),
                         static_cast<DWORD>(bytes.size()));
        ::RegCloseKey(opened);
    }
    void putText(HKEY root, const std::string& key, const std::string& name, const std::string& text) {
        put(root, key, name, REG_SZ, text + '\0');
    }
    bool there(std::uint32_t root, const std::string& key, const std::string& name) {
        RegClass reg(registry);
        return reg.openRegistry(root, key) && !reg.getValue(RegText(name)).empty();
    }
    std::string line(const std::string& section, const std::string& key) const {
        return profiles.get(section, key, 4096, ctx.regFile);
    }
    Texts warnings() const {
        const Texts& rows = page.List5.items();
        return rows.empty() ? rows : Texts(rows.begin() + 1, rows.end());
    }
    // Chooses warning row `row` and deletes its value, answering Yes; the question asked.
    std::string deleteRow(std::size_t row) {
        page.List5.userSetValue(static_cast<int>(row));
        boxes.answers = {box::Yes};
        page.Command3.userClick();
        return boxes.shown.empty() ? std::string() : boxes.shown.back().prompt;
    }
    static std::string question(const std::string& name, const std::string& from) {
        return "WARNING!\r\nYou are about to Delete the key: " + name + "\r\nFrom: " + from +
               "\r\nDoing this may have unpredictable results!\r\n\r\nContinue?";
    }
    std::size_t node(const std::string& key) const { return page.TreeView1.nodeIndex(key); }

    OwnSystemShell ownShell;
    AppContext ctx{{files, profiles, ownShell, boxes, processes, loop, renderer, registry, clock, windows, power,
                    shortcuts}};
    ui::MainWindow main;
    ui::RegWatchPage& page = main.regWatch;
    RegistryPass pass{ctx, page};
    RegWatchActions actions{ctx, page, pass};
    const Texts noWarnings{kNoWarnings};
};

}  // namespace tv::test
