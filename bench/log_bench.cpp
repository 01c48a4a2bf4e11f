// Times the log browser as the program runs it: the main window, its Options
// page and report page over the Win32 platform, with the real files and
// message pumps. A smaller and a larger case are timed in turns, so that the
// machine's other work weighs on both alike; each pair gives one ratio. Each
// run starts from an empty tree or report page.
//
//   log_bench load <reports> <reports> <repetitions> <folder\> [model]
//     Load Logs over a Data\Log\ of that many reports, six a day at the same
//     six clock times every day (the pairs of equal times the tree must keep
//     apart), in <folder>\logs<reports>\; made when it does not hold exactly
//     those reports.
//   log_bench list <reports> <reports> <repetitions> <folder\>
//     Only the listing of those folders, name by name, as Load Logs walks it:
//     what the system's file calls cost, apart from the tree.
//   log_bench open <MiB> <MiB> <repetitions> <folder\> [model]
//     View Log of a report of that size (its heading and paths of about 40
//     characters), from the click to the filled report page; both reports lie
//     in <folder>\report\.
//
// "model" keeps the windows in the control model only: the program's own work,
// without the system's list and tree controls. Prints the median and fastest
// time of each case and the median ratio of the pairs.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "logging/log_browser.h"
#include "logging/log_browser_page.h"
#include "bench/timing.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "ui/main_window.h"

namespace {

using tv::bench::median;
using tv::bench::timed;

struct FailingBoxes final : tv::MessageBoxes {
    int show(const std::string& prompt, const std::string&, unsigned) override {
        std::fprintf(stderr, "log_bench: unexpected message: %s\n", prompt.c_str());
        std::exit(1);
    }
};

std::string two(int n) { return (n < 10 ? "0" : "") + std::to_string(n); }

// The n-th report's name as the program writes it: six a day, at 1, 3, 5, 7,
// 9 and 11 o'clock in the morning.
std::string reportName(int n) {
    const int day = n / 6;
    const std::string date = two(1 + day / 28 % 12) + "-" + two(1 + day % 28) + "-" + std::to_string(2000 + day / 336);
    return date + "(" + std::to_string(1 + n % 6 * 2) + "_30_00AM).log";
}

void makeLogFolder(tv::Files& files, const std::string& program, int count) {
    files.makeFolder(program);
    files.makeFolder(program + "Data");
    const std::string folder = program + "Data\\Log\\";
    files.makeFolder(folder);
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
    std::fprintf(stderr, "usage: log_bench load|list|open <smaller> <larger> <repetitions> <folder\\> [model]\n");
    return 2;
}

// One case: makes what it needs, then each run gives its time, or a negative
// one when the result is not what it must be.
struct Case {
    std::function<double()> run;
    std::vector<double> times;
};

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> args(argv + 1, argv + argc);
    if (args.size() < 5 || args.size() > 6) return usage();
    const std::string what = args[0];
    if (what != "load" && what != "list" && what != "open") return usage();
    const int sizes[2] = {std::atoi(args[1].c_str()), std::atoi(args[2].c_str())};
    const int repetitions = std::max(1, std::atoi(args[3].c_str()));
    const std::string root = args[4];
    const bool modelOnly = args.size() == 6 && args[5] == "model";

    tv::win32::Win32System system;
    FailingBoxes boxes;
    tv::win32::Win32Renderer screen(::GetModuleHandleA(nullptr));
    tv::ui::HeadlessRenderer model;
    tv::ui::Renderer& renderer = modelOnly ? static_cast<tv::ui::Renderer&>(model) : screen;
    tv::AppContext ctx({system.files, system.profiles, system.shell, boxes, system.processes, system.loop, renderer,
                        system.registry, system.clock, system.windows, system.power, system.shortcuts});
    tv::ui::MainWindow window;
    renderer.attach(window);
    tv::LogBrowser browser(ctx, window.logBrowser, window.report, window.setFq, [&window] { window.norms2(); });
    window.norms2();
    window.setFq.setVisible(true);
    window.setVisible(true);
    const tv::ui::Control& tree = window.logBrowser.TreeView2;
    const auto& entries = window.report.List4.items();

    Case cases[2];
    const std::string report = root + "report\\";
    if (what == "open") {
        makeLogFolder(system.files, report, 2);
        ctx.appPath = report;
        window.logBrowser.cReports.userClick();
    }
    for (int i = 0; i < 2; ++i) {
        const int size = sizes[i];
        if (what == "open") {
            const std::size_t fields = makeReport(system.files, report + "Data\\Log\\" + reportName(i), size);
            const std::string time = std::to_string(1 + i * 2) + ":30:00 AM";  // as the tree shows reportName(i)
            cases[i].run = [&, time, fields] {
                window.report.cX.userClick();
                window.report.List4.clearItems();  // the other case's report goes before the clock starts
                for (std::size_t node = 0; node < tree.nodes().size(); ++node)
                    if (tree.nodes()[node].text == time) window.logBrowser.TreeView2.userSelectNode(node);
                const double time = timed([&] { window.logBrowser.cViewReport.userClick(); });
                return entries.size() == fields && window.repF.visible() ? time : -1;
            };
            continue;
        }
        const std::string program = root + "logs" + std::to_string(size) + "\\";
        makeLogFolder(system.files, program, size);
        if (what == "list") {
            cases[i].run = [&, program, size] {
                std::size_t names = 0;
                const double time = timed([&] {
                    for (std::string name = system.files.firstName(program + "Data\\Log\\"); !name.empty();
                         name = system.files.nextName())
                        ++names;
                });
                return names == static_cast<std::size_t>(size) + 2 ? time : -1;  // "." and ".." as well
            };
        } else {
            cases[i].run = [&, program, size] {
                ctx.appPath = program;
                window.logBrowser.TreeView2.clearNodes();  // the other case's tree goes before the clock starts
                const double time = timed([&] { window.logBrowser.cReports.userClick(); });
                return tree.nodes().size() == static_cast<std::size_t>(size + (size + 5) / 6) ? time : -1;
            };
        }
    }

    std::vector<double> ratios;
    for (int r = 0; r < repetitions; ++r) {
        for (Case& c : cases) {
            system.loop.pump();
            const double time = c.run();
            if (time < 0) {
                std::fprintf(stderr, "log_bench: %s did not give what it must\n", what.c_str());
                return 1;
            }
            c.times.push_back(time);
        }
        ratios.push_back(cases[1].times.back() / cases[0].times.back());
    }
    for (const Case& c : cases)
        std::printf("%.6f %.6f ", median(c.times), *std::min_element(c.times.begin(), c.times.end()));
    std::printf("ratio=%.2f\n", median(ratios));
    return 0;
}
