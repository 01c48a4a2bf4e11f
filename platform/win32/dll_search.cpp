#include "platform/win32/dll_search.h"

#include "platform/win32/system_function.h"

namespace tv::win32 {
namespace {

constexpr DWORD kSearchSystem32 = 0x00000800;  // LOAD_LIBRARY_SEARCH_SYSTEM32

}  // namespace

DllSearch narrowDllSearch() {
    using SetDllDirectoryFunction = BOOL(WINAPI*)(LPCSTR);
    using SetDefaultDllDirectoriesFunction = BOOL(WINAPI*)(DWORD);
    DllSearch done;
    if (const auto setDllDirectory = systemFunction<SetDllDirectoryFunction>("kernel32.dll", "SetDllDirectoryA"))
        done.currentFolderLeftOut = setDllDirectory("") != 0;
    if (const auto setDefault = systemFunction<SetDefaultDllDirectoriesFunction>("kernel32.dll", "SetDefaultDllDirectories"))
        done.systemFolderOnly = setDefault(kSearchSystem32) != 0;
    return done;
}

}  // namespace tv::win32
