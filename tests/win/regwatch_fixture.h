// The RegWatch page over the test prefix's real registry, with its snapshot in
// the test's folder. Values the test puts into the watched keys are removed
// again, and keys it had to make are deleted: Wine starts what the Run keys
// name when the prefix starts.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "regwatch/registry_pass.h"
#include "regwatch/regwatch_actions.h"
#include "regwatch/regwatch_page.h"
#include "tests/win/win_fixture.h"
#include "ui/main_window.h"

namespace tv::test {

inline constexpr const char* kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr const char* kRunOnceKey = "Software\\Microsoft\\Windows\\CurrentVersion\\RunOnce";

// Deletes a key with everything below it.
void deleteKeyTree(HKEY parent, const std::string& subKey);

class RegWatchTest : public WinTest {
protected:
    // With `realScanners`, scanners are started for real (the fake scanner
    // writes what it was given to scanLog); otherwise starts are recorded.
    explicit RegWatchTest(bool realScanners = false);
    ~RegWatchTest() override;

    // Sets a value of a watched key (made when missing); afterwards the value
    // it replaced comes back, or the value goes.
    void put(HKEY root, const std::string& key, const std::string& name, DWORD type, const std::string& bytes);
    void putText(HKEY root, const std::string& key, const std::string& name, const std::string& text) {
        put(root, key, name, REG_SZ, text + '\0');
    }
    void remove(HKEY root, const std::string& key, const std::string& name);
    bool valueThere(HKEY root, const std::string& key, const std::string& name) const;

    std::vector<std::string> warnings() const { return page.List5.items(); }
    std::string snapshot() const { return readFile("Data\\Registry.dat"); }
    // Both scanners are the fake scanner, with the arguments "/x" and "/y".
    void useFakeScanners();
    // The reports in Data\Log\, each as its content.
    std::vector<std::string> reports();
    // The fake scanner's command lines, once `count` of them have come.
    std::vector<std::string> scannedLines(std::size_t count);

    win32::Win32Processes realProcesses;
    AppContext ctx;
    ui::MainWindow main;
    ui::RegWatchPage& page = main.regWatch;
    RegistryPass pass{ctx, page};
    RegWatchActions actions{ctx, page, pass};

private:
    struct Put {
        HKEY root;
        std::string key, name;
        bool existed;
        DWORD type;
        std::string bytes;  // what the value held before
    };
    std::vector<Put> values_;
    std::vector<std::pair<HKEY, std::string>> madeKeys_;
};

}  // namespace tv::test
