// Functions that only some versions of Windows have. The program file must
// load on Windows 98 and XP, so it names no such function in its imports; it
// looks each one up when it first needs it and goes its older way when the
// system has none.
#pragma once

#include <string>

#include "platform/win32/win32_base.h"

namespace tv::win32 {

// The function `name` of the system DLL `dll`, or nullptr when this system has
// none. A DLL the program has not loaded yet is loaded by its full path in the
// system folder, never from wherever a search would find one, and kept for
// the rest of the run.
template <class Function>
Function systemFunction(const char* dll, const char* name) {
    HMODULE module = ::GetModuleHandleA(dll);
    if (!module) {
        char folder[MAX_PATH] = {};
        const UINT length = ::GetSystemDirectoryA(folder, MAX_PATH);
        if (length == 0 || length >= MAX_PATH) return nullptr;
        module = ::LoadLibraryA((std::string(folder) + "\\" + dll).c_str());
    }
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name))) : nullptr;
}

}  // namespace tv::win32
