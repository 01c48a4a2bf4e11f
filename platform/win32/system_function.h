// Functions that only some versions of Windows have. The program file must
// load on Windows 98 and XP, so it names no such function in its imports; it
// looks each one up when it first needs it and goes its older way when the
// system has none.
#pragma once

#include "platform/win32/win32_base.h"

namespace tv::win32 {

// The function `name` of the system DLL `dll`, or nullptr when this system has
// none. A DLL the program does not load anyway is loaded, from the system
// folder, and kept for the rest of the run.
template <class Function>
Function systemFunction(const char* dll, const char* name) {
    HMODULE module = ::GetModuleHandleA(dll);
    if (!module) module = ::LoadLibraryA(dll);
    return module ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(module, name))) : nullptr;
}

}  // namespace tv::win32
