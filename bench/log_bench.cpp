// Times the log browser as the program runs it: the main window on the screen,
// its Options page and report page over the Win32 platform. Prints the median
// time of the repetitions.
//
// A last argument "model" keeps the windows in the control model only: the
// program's own work, without the system's list and tree controls.
//
//   log_bench load <reports> <repetitions> <program\> [model]
//     Load Logs over a Data\Log\ of that many reports, six a day, at the same
//     six clock times every day (the pairs of equal times the tree must keep
//     apart). The folder is made when it does not hold exactly those reports.
//   log_bench list <reports> <repetitions> <program\>
//     Only the listing of that Data\Log\, name by name, as Load Logs walks it:
//     what the system's file calls cost, apart from the tree.
//   log_bench open <MiB> <repetitions> <program\> [model]
//     View Log of one report of that size (its heading and paths of about 40
//     characters), from the click to the filled report page.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "logging/log_browser.h"
#include "logging/log_browser_page.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "ui/main_window.h"

namespace {

struct AnsweringBoxes final : tv::MessageBoxes {
    int show(const std::string& prompt, const std::string&, unsigned) override {
        std::fprintf(stderr, "log_bench: unexpected message: %s\n", prompt.c_str());
        std::exit(1);
    }
};

double timed(const std::function<void()>& run) {
    LARGE_INTEGER frequency, start, end;
    ::QueryPerformanceFrequency(&frequency);
    ::QueryPerformanceCounter(&start);
    run();
    ::QueryPerformanceCounter(&end);
    return static_cast<double>(end.QuadPart - start.QuadPart) / static_cast<double>(frequency.QuadPart);
}

std::string two(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

// The n-th report's name as the program writes it: six a day, at 1, 3, 5, 7,
// 9 and 11 o'clock in the morning.
std::string reportName(int n) {
    const int day = n / 6;
    const std::string date = two(1 + day / 28 % 12) + "-" + two(1 + day % 28) + "-" + std::to_string(2000 + day / 336);
    return date + "(" + std::to_string(1 + n % 6 * 2) + "_30_00AM).log";
}

void makeLogFolder(tv::Files& files, const std::string& folder, int count) {
    std::set<std::string> wanted;
    for (int n = 0; n < count; ++n) wanted.insert(reportName(n));
    std::set<std::string> there;
    for (std::string name = files.firstName(folder); !name.empty(); name = files.nextName())
        if (name != "." && name != "..") there.insert(name);
    if (there == wanted) return;
    for (const std::string& name : there) files.remove(folder + name);
    for (const std::string& name : wanted)
        files.writeAll(folder + name, "Integrity Checker - These files were either New or Failed the Integrity "
                                      "Check,C:\\WINDOWS\\system32\\a.dll\r\n");
}

// A report of about `mebibytes` MiB; the number of its fields.
std::size_t makeReport(tv::Files& files, const std::string& path, int mebibytes) {
    std::string text = "Integrity Checker - These files were either New or Failed the Integrity Check";
    std::size_t fields = 1;
    for (int n = 0; text.size() < static_cast<std::size_t>(mebibytes) << 20; ++n, ++fields)
        text += ",C:\\WINDOWS\\system32\\drivers\\file" + std::to_string(n) + ".sys";
    text += "\r\n";
    if (files.readAll(path) != text) files.writeAll(path, text);
    return fields;
}

int usage() {
    std::fprintf(stderr, "usage: log_bench load <reports> <repetitions> <program\\> [model]\n"
                         "       log_bench list <reports> <repetitions> <program\\>\n"
                         "       log_bench open <MiB> <repetitions> <program\\> [model]\n");
    return 2;
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() < 4 || args.size() > 5 || (args[0] != "load" && args[0] != "open" && args[0] != "list"))
        return usage();
    const bool modelOnly = args.size() == 5 && args[4] == "model";
    const int size = std::atoi(args[1].c_str());
    const int repetitions = std::max(1, std::atoi(args[2].c_str()));

    tv::win32::Win32System system;
    AnsweringBoxes boxes;
    tv::win32::Win32Renderer screen(::GetModuleHandleA(nullptr));
    tv::ui::HeadlessRenderer model;
    tv::ui::Renderer& renderer = modelOnly ? static_cast<tv::ui::Renderer&>(model) : screen;
    tv::AppContext ctx({system.files, system.profiles, system.shell, boxes, system.processes, system.loop, renderer,
                        system.registry, system.clock, system.windows, system.power, system.shortcuts});
    ctx.appPath = args[3];
    const std::string folder = ctx.appPath + "Data\\Log\\";
    system.files.makeFolder(ctx.appPath + "Data");
    system.files.makeFolder(folder);

    tv::ui::MainWindow window;
    renderer.attach(window);
    tv::LogBrowser browser(ctx, window.logBrowser, window.report, window.setFq, [&window] { window.norms2(); });
    window.norms2();
    window.setFq.setVisible(true);
    window.setVisible(true);
    const tv::ui::Control& tree = window.logBrowser.TreeView2;

    std::size_t expected = 0;
    std::string check;
    if (args[0] == "list") {
        makeLogFolder(system.files, folder, size);
        expected = static_cast<std::size_t>(size) + 2;  // "." and ".." as well
    } else if (args[0] == "load") {
        makeLogFolder(system.files, folder, size);
        expected = static_cast<std::size_t>(size + (size + 5) / 6);  // every report and every date
    } else {
        makeLogFolder(system.files, folder, 1);
        expected = makeReport(system.files, folder + reportName(0), size);
        window.logBrowser.cReports.userClick();
        window.logBrowser.TreeView2.userSelectNode(1);
    }

    std::vector<double> times;
    for (int r = 0; r < repetitions; ++r) {
        system.loop.pump();
        if (args[0] == "list") {
            std::size_t names = 0;
            times.push_back(timed([&] {
                for (std::string name = system.files.firstName(folder); !name.empty(); name = system.files.nextName())
                    ++names;
            }));
            if (names != expected) {
                std::fprintf(stderr, "log_bench: %zu names, not %zu\n", names, expected);
                return 1;
            }
        } else if (args[0] == "load") {
            times.push_back(timed([&] { window.logBrowser.cReports.userClick(); }));
            if (tree.nodes().size() != expected) {
                std::fprintf(stderr, "log_bench: %zu nodes, not %zu\n", tree.nodes().size(), expected);
                return 1;
            }
        } else {
            window.report.cX.userClick();
            times.push_back(timed([&] { window.logBrowser.cViewReport.userClick(); }));
            if (window.report.List4.items().size() != expected || !window.repF.visible()) {
                std::fprintf(stderr, "log_bench: %zu entries, not %zu\n", window.report.List4.items().size(), expected);
                return 1;
            }
        }
    }
    std::sort(times.begin(), times.end());
    std::printf("median=%.6f min=%.6f items=%zu\n", times[times.size() / 2], times.front(), expected);
    return 0;
}
