// TarvelonLow.exe: builds the Win32 platform and runs the application on it.
#include "platform/win32/display_scale.h"
#include "platform/win32/dll_search.h"
#include "platform/win32/win32_platform.h"
#include "platform/win32/win32_renderer.h"
#include "ui/application.h"

#include <ole2.h>

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    tv::win32::narrowDllSearch();  // before anything can load a DLL on demand
    tv::win32::declareDpiAwareness();  // before the first window
    ::OleInitialize(nullptr);  // the shell's folder dialog and shortcut objects need it
    tv::win32::Win32System system;
    tv::win32::Win32Renderer renderer(instance);
    tv::ui::Application app(system.with(renderer));
    return app.run();
}
