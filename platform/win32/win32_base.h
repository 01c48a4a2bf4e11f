// The one place that includes <windows.h>, with the settings every Win32 file uses.
#pragma once

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef STRICT
#define STRICT
#endif
#undef UNICODE
#undef _UNICODE
#include <windows.h>
