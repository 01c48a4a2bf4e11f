// The system's search for DLLs that are loaded on demand by name, narrowed at
// the program's start so that a DLL planted in the current folder (a download
// folder, a shared folder a shortcut starts in) is never loaded in place of
// the system's own.
#pragma once

namespace tv::win32 {

// What the system allowed.
struct DllSearch {
    bool currentFolderLeftOut = false;  // SetDllDirectoryA(""): XP SP1 and later
    bool systemFolderOnly = false;      // SetDefaultDllDirectories: Windows 8, and 7 with its update
};

// Leaves the current folder out of the search and, where the system can, looks
// in the system folder only. Both calls are looked up at run time, since
// Windows XP, on which the 32-bit program must load, lacks them.
DllSearch narrowDllSearch();

}  // namespace tv::win32
