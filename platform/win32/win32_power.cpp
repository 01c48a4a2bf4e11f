#include "platform/win32/system_function.h"
#include "platform/win32/unique_handle.h"
#include "platform/win32/win32_system.h"

namespace tv::win32 {
namespace {

constexpr DWORD kAllAccess = 0x1F0FFF;  // what the end of the desktop's process asks for
constexpr DWORD kEnabledAndUsed = 0x80000003;  // SE_PRIVILEGE_ENABLED_BY_DEFAULT | ENABLED | USED_FOR_ACCESS

}  // namespace

// Windows 98 and Me have no access tokens and no privileges: there the calls
// are missing and nothing needs enabling.
void Win32Power::enableShutdownPrivilege() {
    using OpenToken = BOOL(WINAPI*)(HANDLE, DWORD, HANDLE*);
    using LookupPrivilege = BOOL(WINAPI*)(LPCSTR, LPCSTR, LUID*);
    using AdjustPrivileges = BOOL(WINAPI*)(HANDLE, BOOL, TOKEN_PRIVILEGES*, DWORD, TOKEN_PRIVILEGES*, DWORD*);
    const auto openToken = systemFunction<OpenToken>("advapi32.dll", "OpenProcessToken");
    const auto lookUp = systemFunction<LookupPrivilege>("advapi32.dll", "LookupPrivilegeValueA");
    const auto adjust = systemFunction<AdjustPrivileges>("advapi32.dll", "AdjustTokenPrivileges");
    HANDLE opened = nullptr;
    if (!openToken || !lookUp || !adjust || !openToken(::GetCurrentProcess(), TOKEN_ADJUST_PRIVILEGES, &opened)) return;
    UniqueKernelObject token(opened);
    TOKEN_PRIVILEGES privileges{};
    privileges.PrivilegeCount = 1;
    lookUp(nullptr, "SeShutdownPrivilege", &privileges.Privileges[0].Luid);
    privileges.Privileges[0].Attributes = kEnabledAndUsed;
    adjust(token.get(), FALSE, &privileges, 0, nullptr, nullptr);
}

bool Win32Power::exitWindows(std::uint32_t flags, std::uint32_t reserved) {
    return ::ExitWindowsEx(flags, reserved) != 0;
}

bool Win32Power::setSystemPowerState(bool suspend, bool force) { return ::SetSystemPowerState(suspend, force) != 0; }

Power::Version Win32Power::version() const {
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;  // 148 bytes
    if (!::GetVersionExA(&info)) return {};
    return {info.dwPlatformId, info.dwMajorVersion};
}

void Win32Power::killDesktopProcess() {
    DWORD process = 0;
    ::GetWindowThreadProcessId(::GetDesktopWindow(), &process);
    UniqueKernelObject handle(::OpenProcess(kAllAccess, FALSE, process));
    if (handle.valid()) ::TerminateProcess(handle.get(), 1);
}

}  // namespace tv::win32
