// Times scans as the program runs them, on the real scan window over the Win32
// platform. Prints the median time of the repetitions.
//
//   scan_bench logon <shown|minimised|hidden> <repetitions> <program\> <system\> [<algorithm> [<workers>]]
//     A log-on run (/r) over a system directory of the benchmark's own whose
//     baseline holds every file, so the run is clean: from the plan to the end
//     of the passes. CRC-32 unless named; checksum threads one per processor
//     unless a number is given (0: all on the window's thread).
//   scan_bench primary <repetitions> <program\> <system\> [<workers>]
//     The primary full scan of a program folder without a data file, "Yes" to
//     the first-run question: from that question through the build and the
//     scan to the complete data file.
//   scan_bench first-custom <repetitions> <program\> <folder\>
//     The first scan of a custom folder without a data file, every file new:
//     from the choice of the folder over the blank data file, the scan and the
//     update of every file to the saved baseline.
//   scan_bench hostile <repetitions> <program\> <system\> <data file>
//     A log-on run with the automatic action over a data file that no healthy
//     program wrote (copied into place before each repetition): from the
//     start's load of the data file, through the scan, the update and the
//     save, to the end of the run. Also prints the process's peak working set
//     and its working set before the first load, in MiB.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <vector>

#include "core/settings_store.h"
#include "hash/checksum.h"
#include "integrity/check_int_file.h"
#include "integrity/data_file.h"
#include "integrity/findings_action.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "tests/win/own_system_shell.h"

#include <psapi.h>

namespace {

// The user's answers: yes to every question, OK to every message.
struct AnsweringBoxes final : tv::MessageBoxes {
    int show(const std::string&, const std::string&, unsigned style) override {
        return (style & 0xF) == tv::box::YesNo ? tv::box::Yes : tv::box::Ok;
    }
};

// A log-on run ends the program when it is clean; here it only says so.
struct BenchHost final : tv::ScanHost {
    bool ended = false;
    std::function<void()> action, start;
    std::function<void(const std::string&, const std::string&)> firstScan;
    void setMainCaption(const std::string&) override {}
    void showMainWindow(bool) override {}
    void startScanWindow() override { start(); }
    void endProgram() override { ended = true; }
    void pressResultAction() override { action(); }
    void afterShutDownScan() override {}
    void startFirstCustomScan(const std::string& folder, const std::string& datFile) override {
        firstScan(folder, datFile);
    }
};

double seconds(LARGE_INTEGER from, LARGE_INTEGER to) {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

double timed(const std::function<void()>& run) {
    LARGE_INTEGER start, end;
    ::QueryPerformanceCounter(&start);
    run();
    ::QueryPerformanceCounter(&end);
    return seconds(start, end);
}

int usage() {
    std::fprintf(stderr, "usage: scan_bench logon <shown|minimised|hidden> <repetitions> <program\\> <system\\> "
                         "[<algorithm> [<workers>]]\n"
                         "       scan_bench primary <repetitions> <program\\> <system\\> [<workers>]\n"
                         "       scan_bench first-custom <repetitions> <program\\> <folder\\>\n"
                         "       scan_bench hostile <repetitions> <program\\> <system\\> <data file>\n");
    return 2;
}

// The working set now and at its peak, in MiB.
std::pair<double, double> workingSet() {
    PROCESS_MEMORY_COUNTERS counters{};
    counters.cb = sizeof counters;
    ::GetProcessMemoryInfo(::GetCurrentProcess(), &counters, sizeof counters);
    constexpr double kMiB = 1024.0 * 1024.0;
    return {static_cast<double>(counters.WorkingSetSize) / kMiB, static_cast<double>(counters.PeakWorkingSetSize) / kMiB};
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    const std::string mode = args.empty() ? "" : args[0];
    const bool hostile = args.size() == 5 && mode == "hostile";
    const bool named = args.size() >= 5 && args.size() <= 7 && mode == "logon";  // the log-on run names its display
    const bool logOn = named || hostile;
    const bool primary = args.size() >= 4 && args.size() <= 5 && mode == "primary";
    const bool firstCustom = args.size() == 4 && mode == "first-custom";
    if (!logOn && !firstCustom && !primary) return usage();
    const std::string display = hostile || primary ? "hidden" : logOn ? args[1] : "shown";
    const int repetitions = std::max(1, std::atoi(args[named ? 2 : 1].c_str()));
    const std::string program = args[named ? 3 : 2], folder = args[named ? 4 : 3];
    const std::string algorithm = named && args.size() >= 6 ? args[5] : "crc32";
    const std::size_t workersAt = named ? 6 : primary ? 4 : args.size();
    const int workers = args.size() > workersAt ? std::atoi(args[workersAt].c_str()) : -1;
    const double startMiB = workingSet().first;

    tv::win32::Win32System system;
    tv::test::OwnSystemShell shell;
    shell.system = logOn || primary ? folder : program;
    AnsweringBoxes boxes;
    tv::win32::Win32Renderer renderer(::GetModuleHandleA(nullptr));
    tv::AppContext ctx({system.files, system.profiles, shell, boxes, system.processes, system.loop, renderer,
                        system.registry, system.clock, system.windows, system.power, system.shortcuts,
                        &system.threads});
    ctx.appPath = program;
    ctx.settFile = ctx.appPath + "Data\\Tarvelon.dat";
    ctx.algoName = algorithm;
    tv::hash::setDatName(ctx);
    ctx.readBuffer = 65536;
    ctx.checksumWorkers = workers;

    tv::ui::ScanWindow window;
    renderer.attach(window);
    BenchHost host;
    tv::ScanDriver driver(ctx, window, host);
    tv::FindingsAction findings(ctx, window, host, driver);
    host.action = [&] { findings.label12Click(); };
    host.start = [&] { driver.loadUp(); };
    host.firstScan = [&](const std::string& chosen, const std::string& datFile) {
        driver.firstCustomScan(chosen, datFile, {chosen, 1});
    };
    window.setVisible(display != "hidden");
    window.setMinimised(display == "minimised");
    const std::string datFile = tv::hash::getCustomDat(ctx, 1);
    if (logOn) {
        ctx.cmdLine = "/r";
        ctx.autoLoadRun = true;
    } else if (firstCustom) {
        tv::writeEntry(ctx, ctx.settFile, "path", folder, "1");
    }

    std::vector<double> times;
    for (int r = 0; r < repetitions; ++r) {
        host.ended = false;
        if (primary) {
            system.files.remove(ctx.intFile);
            system.files.remove(tv::backupName(ctx.intFile));  // else the start offers it back
            ctx.section = {};  // as at the start, nothing is loaded yet
            times.push_back(timed([&] {
                tv::checkIntFile(ctx, host);
                if (window.Timer1.enabled()) window.Timer1.userTick();
            }));
            if (!ctx.primaryScan && ctx.scan.newCount > 0) continue;
            std::fprintf(stderr, "scan_bench: the primary scan did not end\n");
            return 1;
        }
        if (hostile) {
            system.files.copy(args[4], ctx.intFile);
            times.push_back(timed([&] {
                tv::loadIntFile(ctx, ctx.intFile);
                driver.loadUp();
                if (window.Timer1.enabled()) window.Timer1.userTick();
            }));
            if (host.ended) continue;
            std::fprintf(stderr, "scan_bench: the run did not end (%s)\n", window.Label13.caption().c_str());
            return 1;
        }
        tv::loadIntFile(ctx, ctx.intFile);
        if (logOn) {
            times.push_back(timed([&] {
                driver.loadUp();
                if (window.Timer1.enabled()) window.Timer1.userTick();
            }));
            if (host.ended) continue;
            std::fprintf(stderr, "scan_bench: the run was not clean (%s new, %s failed)\n",
                         window.Label8.caption().c_str(), window.Label9.caption().c_str());
            return 1;
        }
        system.files.remove(datFile);
        system.files.remove(tv::backupName(datFile));  // else the load offers it back
        times.push_back(timed([&] {
            tv::loadCustomDat(ctx, host, datFile);
            // The scan's tick may already have come in a pump of the load.
            if (window.Timer1.enabled()) window.Timer1.userTick();
        }));
        if (ctx.scan.customFirstScan || !window.List1.items().empty()) {
            std::fprintf(stderr, "scan_bench: the first scan did not reach its baseline\n");
            return 1;
        }
    }
    std::sort(times.begin(), times.end());
    const double peakMiB = workingSet().second;
    std::printf("median=%.6f min=%.6f files=%s start_mib=%.1f peak_mib=%.1f\n", times[times.size() / 2],
                times.front(), window.Label6.caption().c_str(), startMiB, peakMiB);
    return 0;
}
