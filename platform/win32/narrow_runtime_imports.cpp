// The 32-bit program file loads on Windows 98, whose system DLLs carry no
// working wide-text (Unicode) calls but a handful. The compiler's own runtime
// asks for three: its thread support makes its semaphores with
// CreateSemaphoreW, and the C runtime's random-number source finds its DLL
// with GetModuleHandleW and LoadLibraryW. The definitions below take the place
// of those three imports (the linker resolves the runtime's calls by these
// names before it looks into the system's import libraries) and call the
// narrow forms, which every Windows has. Linked into the 32-bit program only.
#include <string>

#include "platform/win32/win32_base.h"

namespace {

// The runtime's names are plain ASCII ("msvcrt.dll") or none at all.
std::string narrow(LPCWSTR text) {
    const int bytes = ::WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string out(bytes > 0 ? static_cast<std::size_t>(bytes) : 1, '\0');
    if (bytes > 0) ::WideCharToMultiByte(CP_ACP, 0, text, -1, out.data(), bytes, nullptr, nullptr);
    return out;
}

HANDLE WINAPI createSemaphore(LPSECURITY_ATTRIBUTES attributes, LONG initial, LONG maximum, LPCWSTR name) {
    return ::CreateSemaphoreA(attributes, initial, maximum, name ? narrow(name).c_str() : nullptr);
}

HMODULE WINAPI getModuleHandle(LPCWSTR name) { return ::GetModuleHandleA(name ? narrow(name).c_str() : nullptr); }

HMODULE WINAPI loadLibrary(LPCWSTR name) { return name ? ::LoadLibraryA(narrow(name).c_str()) : nullptr; }

}  // namespace

extern "C" {
[[gnu::used]] void* importCreateSemaphoreW __asm__("__imp__CreateSemaphoreW@16") =
    reinterpret_cast<void*>(&createSemaphore);
[[gnu::used]] void* importGetModuleHandleW __asm__("__imp__GetModuleHandleW@4") =
    reinterpret_cast<void*>(&getModuleHandle);
[[gnu::used]] void* importLoadLibraryW __asm__("__imp__LoadLibraryW@4") = reinterpret_cast<void*>(&loadLibrary);
}
