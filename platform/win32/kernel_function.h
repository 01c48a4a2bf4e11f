// A kernel32 function looked up at run time, for calls that newer systems
// offer and older ones lack: the program file then still loads everywhere.
#pragma once

#include "platform/win32/win32_base.h"

namespace tv::win32 {

template <class Function>
Function kernelFunction(const char* name) {
    // kernel32 is loaded in every process: asking for it loads nothing.
    HMODULE kernel = ::GetModuleHandleA("kernel32.dll");
    return kernel ? reinterpret_cast<Function>(reinterpret_cast<void*>(::GetProcAddress(kernel, name))) : nullptr;
}

}  // namespace tv::win32
