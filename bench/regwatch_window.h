// The main window shown on its RegWatch page over the real platform, with the
// registry pass behind it, as the benchmarks of the pass run it. Message
// boxes answer OK at once.
#pragma once

#include <string>

#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "regwatch/registry_pass.h"
#include "ui/main_window.h"

namespace tv::bench {

struct SilentBoxes final : MessageBoxes {
    int show(const std::string&, const std::string&, unsigned) override { return box::Ok; }
};

// `shell`: the system's own when none is given. The snapshot is
// <program\>Data\Registry.dat.
class RegWatchWindow {
public:
    RegWatchWindow(const std::string& programFolder, Shell* shell = nullptr)
        : ctx({system.files, system.profiles, shell ? *shell : system.shell, boxes, system.processes, system.loop,
               renderer, system.registry, system.clock, system.windows, system.power, system.shortcuts}) {
        ctx.appPath = programFolder;
        ctx.regFile = ctx.appPath + "Data\\Registry.dat";
        system.files.makeFolder(ctx.appPath + "Data\\");
        renderer.attach(window);
        window.norms2();
        window.regF.setVisible(true);
        window.setVisible(true);
    }

    win32::Win32System system;
    SilentBoxes boxes;
    win32::Win32Renderer renderer{::GetModuleHandleA(nullptr)};
    AppContext ctx;
    ui::MainWindow window;
    RegistryPass pass{ctx, window.regWatch};
};

}  // namespace tv::bench
