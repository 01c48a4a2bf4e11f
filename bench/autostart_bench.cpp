// Times the whole registry pass, every watched place included, as the
// program runs it: the real main window on its RegWatch page, the real
// registry, files and snapshot. Prints the median time of the repetitions of
// a comparing pass (a Refresh with nothing changed) and what it went over.
//
//   autostart_bench planted <entries> <repetitions> <program\> <windows\>
//     The machine's and the user's registry are mapped, for this process, to
//     empty keys of its own, and the Windows folder is <windows\>. Two in
//     three of the entries are services (an ImagePath each), one in three a
//     scheduled task's definition, in folders of ten below
//     <windows\>System32\Tasks.
//   autostart_bench real <repetitions> <program\>
//     The prefix's own registry and Windows folder.
#include <algorithm>
#include <memory>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <tuple>
#include <vector>

#include "bench/timing.h"
#include "core/text.h"
#include "bench/regwatch_window.h"
#include "tests/win/own_system_shell.h"
#include "regwatch/registry_text.h"

namespace {

using tv::bench::median;
using tv::bench::timed;

HKEY madeKey(HKEY root, const std::string& path) {
    HKEY key = nullptr;
    ::RegCreateKeyExA(root, path.c_str(), 0, nullptr, REG_OPTION_VOLATILE, KEY_ALL_ACCESS, nullptr, &key, nullptr);
    return key;
}

void putText(HKEY root, const std::string& path, const char* name, DWORD type, const std::string& text) {
    const HKEY key = madeKey(root, path);
    ::RegSetValueExA(key, name, 0, type, reinterpret_cast<const BYTE*>(text.c_str()),
                     static_cast<DWORD>(text.size() + 1));
    ::RegCloseKey(key);
}

std::string utf16(const std::string& ascii) {
    std::string bytes = "\xFF\xFE";
    for (const char c : ascii) bytes += {c, '\0'};
    return bytes;
}

// The machine's and the user's keys of this process: empty ones of its own,
// volatile, so that nothing of them outlives the Wine session, which the
// bench ends.
class OwnRegistry {
public:
    OwnRegistry() {
        const std::string scratch = "TarvelonBench\\" + std::to_string(::GetCurrentProcessId());
        const HKEY machine = madeKey(HKEY_CURRENT_USER, scratch + "\\machine");
        const HKEY user = madeKey(HKEY_CURRENT_USER, scratch + "\\user");
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, machine);
        ::RegOverridePredefKey(HKEY_CURRENT_USER, user);
        ::RegCloseKey(machine);
        ::RegCloseKey(user);
    }
    ~OwnRegistry() {
        ::RegOverridePredefKey(HKEY_LOCAL_MACHINE, nullptr);
        ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    }
};

// Two in three entries a service (its ImagePath), one in three a task's
// definition, in folders of ten tasks.
void plant(tv::Files& files, int entries, const std::string& windows) {
    const std::string tasks = windows + "System32\\Tasks\\";
    for (const std::string& folder : {windows, windows + "System32\\", tasks}) files.makeFolder(folder);
    for (int i = 0; i < entries; ++i) {
        const std::string name = "Bench" + std::to_string(i);
        if (i % 3 != 2) {
            putText(HKEY_LOCAL_MACHINE, "System\\CurrentControlSet\\Services\\" + name, "ImagePath", REG_EXPAND_SZ,
                    "%SystemRoot%\\system32\\" + name + ".exe -k " + std::to_string(i));
            continue;
        }
        const std::string folder = tasks + "Vendor" + std::to_string(i / 30) + "\\";
        files.makeFolder(folder);
        files.writeAll(folder + name, utf16("<?xml version=\"1.0\" encoding=\"UTF-16\"?><Task><Actions><Exec><Command>"
                                            "C:\\Program Files\\" + name + "\\update.exe</Command><Arguments>/task " +
                                            std::to_string(i) + "</Arguments></Exec></Actions></Task>"));
    }
}

// The services and drivers the machine's registry defines.
unsigned long serviceCount() {
    HKEY key = nullptr;
    DWORD count = 0;
    if (::RegOpenKeyExA(HKEY_LOCAL_MACHINE, "System\\CurrentControlSet\\Services", 0, KEY_READ, &key) != 0) return 0;
    ::RegQueryInfoKeyA(key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                       nullptr);
    ::RegCloseKey(key);
    return count;
}

}  // namespace

int main(int argc, char** argv) {
    const bool planted = argc == 6 && std::string(argv[1]) == "planted";
    if (!planted && !(argc == 4 && std::string(argv[1]) == "real")) {
        std::fprintf(stderr, "usage: autostart_bench planted <entries> <repetitions> <program\\> <windows\\>\n"
                             "       autostart_bench real <repetitions> <program\\>\n");
        return 2;
    }
    const int entries = planted ? std::atoi(argv[2]) : 0;
    const int repetitions = std::max(1, std::atoi(argv[planted ? 3 : 2]));
    ::CoInitialize(nullptr);

    tv::test::OwnSystemShell shell;  // with a Windows folder of the bench's own when one is given
    tv::bench::RegWatchWindow page(argv[planted ? 4 : 3], &shell);
    auto [system, ctx, window, pass] = std::tie(page.system, page.ctx, page.window, page.pass);
    // Mapped once the window stands, which reads the machine's settings.
    std::unique_ptr<OwnRegistry> own;
    if (planted) {
        own = std::make_unique<OwnRegistry>();
        shell.windows = tv::withTrailingBackslash(argv[5]);
        plant(system.files, entries, shell.windows);
    }

    system.files.remove(ctx.regFile);
    const double record = timed([&] { pass.checkRegFile(); });
    // The system's profile calls read a file written in the last 2.1 seconds
    // anew at every call: the passes begin when the snapshot is older.
    ::Sleep(2500);
    std::vector<double> comparing;
    for (int r = 0; r < repetitions; ++r) comparing.push_back(timed([&] { pass.setReg(); }));
    const auto& rows = window.regWatch.List5.items();
    if (rows.size() != 2 || rows[1] != tv::kNoWarnings) {
        std::fprintf(stderr, "autostart_bench: a pass after recording gave %zu warnings\n", rows.size() - 1);
        return 1;
    }
    const auto& tree = window.regWatch.TreeView1;
    std::printf("compare=%.6f record=%.6f nodes=%zu services=%lu tasks=%zu\n", median(comparing), record,
                tree.nodes().size(), serviceCount(), tree.nodes()[tree.nodeIndex("!FST")].children);
    return 0;
}
