// Times a log-on scan (/r) as the program runs it: the scan window on the real
// Win32 platform over a system directory of the benchmark's own, whose baseline
// holds every file, so the run is clean. The window is shown, minimised or
// hidden. Prints the median time of the repetitions, from the plan to the end
// of the passes.
//
//   scan_bench <shown|minimised|hidden> <repetitions> <program folder\> <system folder\>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "integrity/data_file.h"
#include "integrity/scan_driver.h"
#include "integrity/scan_window.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "tests/win/own_system_shell.h"

namespace {

// A log-on run ends the program when it is clean; here it only says so.
struct BenchHost final : tv::ScanHost {
    bool ended = false;
    void setMainCaption(const std::string&) override {}
    void showMainWindow(bool) override {}
    void startScanWindow() override {}
    void endProgram() override { ended = true; }
    void pressResultAction() override {}
    void afterShutDownScan() override {}
    void startFirstCustomScan(const std::string&, const std::string&) override {}
};

double seconds(LARGE_INTEGER from, LARGE_INTEGER to) {
    LARGE_INTEGER frequency;
    ::QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::fprintf(stderr, "usage: scan_bench <shown|minimised|hidden> <repetitions> <program\\> <system\\>\n");
        return 2;
    }
    const std::string display = argv[1];
    const int repetitions = std::max(1, std::atoi(argv[2]));

    tv::win32::Win32System system;
    tv::test::OwnSystemShell shell;
    shell.system = argv[4];
    tv::win32::Win32Renderer win32Renderer(::GetModuleHandleA(nullptr));
    tv::ui::HeadlessRenderer headless;
    tv::ui::Renderer& renderer = display == "headless" ? static_cast<tv::ui::Renderer&>(headless) : win32Renderer;
    tv::AppContext ctx({system.files, system.profiles, shell, system.boxes, system.processes, system.loop, renderer});
    ctx.appPath = argv[3];
    ctx.settFile = ctx.appPath + "Data\\Tarvelon.dat";
    ctx.intFile = ctx.appPath + "Data\\Integrity.dat";
    ctx.algoName = "crc32";
    ctx.readBuffer = 65536;
    ctx.cmdLine = "/r";
    ctx.autoLoadRun = true;

    tv::ui::ScanWindow window;
    renderer.attach(window);
    BenchHost host;
    tv::ScanDriver driver(ctx, window, host);
    window.setVisible(display != "hidden");
    window.setMinimised(display == "minimised");

    std::vector<double> times;
    for (int r = 0; r < repetitions; ++r) {
        tv::loadIntFile(ctx, ctx.intFile);
        host.ended = false;
        LARGE_INTEGER start, end;
        ::QueryPerformanceCounter(&start);
        driver.loadUp();
        window.Timer1.userTick();
        ::QueryPerformanceCounter(&end);
        if (!host.ended) {
            std::fprintf(stderr, "scan_bench: the run was not clean (%s new, %s failed)\n",
                         window.Label8.caption().c_str(), window.Label9.caption().c_str());
            return 1;
        }
        times.push_back(seconds(start, end));
    }
    std::sort(times.begin(), times.end());
    std::printf("median=%.6f min=%.6f files=%s\n", times[times.size() / 2], times.front(),
                window.Label6.caption().c_str());
    return 0;
}
