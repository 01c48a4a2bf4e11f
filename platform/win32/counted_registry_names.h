// Registry names that hold a NUL. The registry counts the characters of a
// name, so a key or a value may be called "TvSvc" NUL "Hidden"; every Win32
// registry call takes a name up to its first NUL and would reach another key
// or value, or none, which is how such names hide from the registry editor.
// These calls go through the system's own counted names instead. Only the
// Windows NT family has them (and only it can hold such names): elsewhere
// they answer ERROR_FILE_NOT_FOUND, never falling back on a name cut short,
// which would reach another key or value. Results are Win32 error codes.
#pragma once

#include <string>
#include <vector>

#include "platform/win32/win32_base.h"

namespace tv::win32 {

bool holdsNul(const std::u16string& name);

// Opens `path` below `base`, an open key's handle (not a predefined one).
LONG openKeyByCountedName(HKEY base, const std::u16string& path, REGSAM rights, HKEY& opened);
LONG queryValueByCountedName(HKEY key, const std::u16string& name, DWORD& type, std::vector<BYTE>& data);
LONG deleteValueByCountedName(HKEY key, const std::u16string& name);

}  // namespace tv::win32
