#include "platform/win32/win32_system.h"

namespace tv::win32 {

int Win32MessageBoxes::show(const std::string& prompt, const std::string& title, unsigned style) {
    // Owned by the active window of this thread, so that the box stays in front of it.
    return ::MessageBoxA(::GetActiveWindow(), prompt.c_str(), title.c_str(),
                         style | MB_SETFOREGROUND);
}

}  // namespace tv::win32
