// Times the registry pass as the program runs it: the real main window shown
// on its RegWatch page, the real registry and the snapshot's profile calls.
// Prints the median time of the repetitions of each pass.
//
//   regwatch_bench <values> <repetitions> <program\>
//     Puts <values> values under HKEY_CURRENT_USER's Run key (taken out again
//     at the end), then times the recording pass of a first start (the
//     snapshot made anew and every value written into it), a comparing pass
//     at once after it, and the comparing pass of a later Refresh with
//     nothing changed. The system's profile calls read a file written in the
//     last 2.1 seconds anew at every call (its time stamp may not have
//     changed yet), so the later pass waits until the snapshot is older.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "bench/timing.h"
#include "bench/regwatch_window.h"
#include "regwatch/registry_text.h"

namespace {

using tv::bench::median;
using tv::bench::timed;

constexpr const char* kRunKey = "Software\\Microsoft\\Windows\\CurrentVersion\\Run";

// Names and commands as varied as those of a real machine's Run keys: they
// differ from their first letter on.
std::string valueName(int i) {
    std::string name;
    for (unsigned n = static_cast<unsigned>(i) * 2654435761u + 12345u, letters = 0; letters < 8; ++letters, n /= 26)
        name += static_cast<char>((letters == 0 ? 'A' : 'a') + n % 26);
    return name + " Helper " + std::to_string(i);
}

std::string valueData(int i) {
    const std::string name = valueName(i);
    return "C:\\Program Files\\" + name + "\\" + name.substr(0, 8) + ".exe /background";
}

// The values, or with `remove` their removal.
bool putValues(int count, bool remove) {
    HKEY key = nullptr;
    if (::RegCreateKeyExA(HKEY_CURRENT_USER, kRunKey, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key, nullptr) !=
        ERROR_SUCCESS)
        return false;
    bool ok = true;
    for (int i = 0; i < count; ++i) {
        const std::string name = valueName(i);
        if (remove) {
            ::RegDeleteValueA(key, name.c_str());
            continue;
        }
        const std::string data = valueData(i);
        ok = ok && ::RegSetValueExA(key, name.c_str(), 0, REG_SZ, reinterpret_cast<const BYTE*>(data.c_str()),
                                    static_cast<DWORD>(data.size() + 1)) == ERROR_SUCCESS;
    }
    ::RegCloseKey(key);
    return ok;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 4) {
        std::fprintf(stderr, "usage: regwatch_bench <values> <repetitions> <program\\>\n");
        return 2;
    }
    const int count = std::atoi(argv[1]);
    const int repetitions = std::max(1, std::atoi(argv[2]));

    tv::bench::RegWatchWindow page(argv[3]);
    auto [system, ctx, window, pass] = std::tie(page.system, page.ctx, page.window, page.pass);

    if (!putValues(count, false)) {
        std::fprintf(stderr, "regwatch_bench: the values could not be put into the registry\n");
        putValues(count, true);
        return 1;
    }
    // The same writes into a new file without the pass around them: the
    // system's own share of a recording.
    const std::string alone = ctx.appPath + "Data\\Alone.dat";
    const auto writeAlone = [&] {
        for (int i = 0; i < count; ++i)
            system.profiles.put("CU/R", valueName(i), tv::storedTextOf(valueData(i)), alone);
    };
    std::vector<double> recording, comparingAtOnce, comparing, writesAlone;
    bool clean = true;
    for (int r = 0; r < repetitions && clean; ++r) {
        system.files.remove(ctx.regFile);
        recording.push_back(timed([&] { pass.checkRegFile(); }));
        comparingAtOnce.push_back(timed([&] { pass.setReg(); }));
        ::Sleep(2500);
        comparing.push_back(timed([&] { pass.setReg(); }));
        const auto& rows = window.regWatch.List5.items();
        clean = rows.size() == 2 && rows[1] == tv::kNoWarnings;
        system.files.remove(alone);
        writesAlone.push_back(timed(writeAlone));
    }
    const std::size_t nodes = window.regWatch.TreeView1.nodes().size();
    system.files.remove(alone);
    putValues(count, true);
    if (!clean) {
        std::fprintf(stderr, "regwatch_bench: a pass right after recording gave warnings\n");
        return 1;
    }
    std::printf("record=%.6f compare-at-once=%.6f compare=%.6f writes-alone=%.6f nodes=%zu\n", median(recording),
                median(comparingAtOnce), median(comparing), median(writesAlone), nodes);
    return 0;
}
