// TarvelonLow.exe: builds the Win32 platform and runs the application on it.
#include "platform/win32/win32_files.h"
#include "platform/win32/win32_renderer.h"
#include "platform/win32/win32_system.h"

#include <ole2.h>
#include "ui/application.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    ::OleInitialize(nullptr);  // the shell's folder dialog and shortcut objects need it
    tv::win32::Win32Files files;
    tv::win32::Win32ProfileFiles profiles;
    tv::win32::Win32Shell shell;
    tv::win32::Win32MessageBoxes boxes;
    tv::win32::Win32Processes processes;
    tv::win32::Win32EventLoop loop;
    tv::win32::Win32Renderer renderer(instance);
    tv::ui::Application app({files, profiles, shell, boxes, processes, loop, renderer});
    return app.run();
}
