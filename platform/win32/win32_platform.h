// The Win32 implementations of the platform interfaces, together, for a program
// that runs on the real system.
#pragma once

#include "core/platform_set.h"
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_system.h"
#include "platform/win32/win32_threads.h"

namespace tv::win32 {

struct Win32System {
    Win32Files files;
    Win32ProfileFiles profiles;
    Win32Shell shell;
    Win32MessageBoxes boxes;
    Win32Processes processes;
    Win32EventLoop loop;
    Win32Registry registry;
    Win32Clock clock;
    Win32TopWindows windows;
    Win32Power power;
    Win32Shortcuts shortcuts;
    Win32Threads threads;

    PlatformSet with(ui::Renderer& renderer) {
        return {files, profiles, shell, boxes, processes, loop, renderer, registry, clock, windows, power, shortcuts,
                &threads};
    }
};

}  // namespace tv::win32
