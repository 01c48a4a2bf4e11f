#include <string>
#include <vector>

#include "platform/command_program.h"
#include "platform/win32/unique_handle.h"
#include "platform/win32/win32_system.h"

#include <tlhelp32.h>

namespace tv::win32 {
namespace {

// A start can fail for want of memory or handles at that moment (seen under
// Wine on a busy machine), and files kept from the scanner would go unscanned;
// so such a failure is tried again a few times before it is reported.
constexpr int kStartAttempts = 3;
constexpr DWORD kStartRetryPauseMs = 200;

// A file that is no program, or one the user may not run, stays so.
bool mayPassSoon(DWORD error) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_ACCESS_DENIED:
        case ERROR_BAD_EXE_FORMAT:
        case ERROR_EXE_MACHINE_TYPE_MISMATCH:
        case ERROR_BAD_FORMAT:
        case ERROR_INVALID_NAME:
        case ERROR_DIRECTORY:
            return false;
        default:
            return true;
    }
}

}  // namespace

std::string Win32Processes::commandLine() const { return ::GetCommandLineA(); }

std::string Win32Processes::modulePath() const {
    std::vector<char> buffer(MAX_PATH + 1, '\0');
    for (;;) {
        const DWORD length = ::GetModuleFileNameA(nullptr, buffer.data(),
                                                  static_cast<DWORD>(buffer.size()));
        if (length < buffer.size()) return std::string(buffer.data(), length);
        buffer.resize(buffer.size() * 2);
    }
}

bool Win32Processes::start(const std::string& commandLine, int showStyle) {
    const std::string program = programOfCommandLine(commandLine, [](const std::string& path) {
        const DWORD attributes = ::GetFileAttributesA(path.c_str());
        return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
    });
    if (program.empty()) return false;
    std::vector<char> line(commandLine.begin(), commandLine.end());
    line.push_back('\0');
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(showStyle);
    PROCESS_INFORMATION started{};
    for (int attempt = 1;; ++attempt) {
        if (::CreateProcessA(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                             &startup, &started))
            break;
        if (attempt == kStartAttempts || !mayPassSoon(::GetLastError())) return false;
        ::Sleep(kStartRetryPauseMs);
    }
    UniqueKernelObject process(started.hProcess);
    UniqueKernelObject thread(started.hThread);
    return true;
}

bool Win32Processes::anotherInstanceRunning() const {
    const std::string path = modulePath();
    const std::string name = path.substr(path.find_last_of('\\') + 1);
    UniqueSnapshot snapshot(::CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    if (!snapshot.valid()) return false;
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    const DWORD self = ::GetCurrentProcessId();
    for (BOOL more = ::Process32First(snapshot.get(), &entry); more; more = ::Process32Next(snapshot.get(), &entry)) {
        if (entry.th32ProcessID != self && ::lstrcmpiA(entry.szExeFile, name.c_str()) == 0) return true;
    }
    return false;
}

std::string Win32Processes::versionNumbers() const {
    const std::string program = modulePath();
    DWORD ignored = 0;
    const DWORD size = ::GetFileVersionInfoSizeA(program.c_str(), &ignored);
    if (size == 0) return {};
    std::vector<char> record(size);
    if (!::GetFileVersionInfoA(program.c_str(), 0, size, record.data())) return {};
    VS_FIXEDFILEINFO* fixed = nullptr;
    UINT length = 0;
    if (!::VerQueryValueA(record.data(), "\\", reinterpret_cast<void**>(&fixed), &length) || !fixed) return {};
    return std::to_string(HIWORD(fixed->dwFileVersionMS)) + "." + std::to_string(LOWORD(fixed->dwFileVersionMS)) +
           "." + std::to_string(HIWORD(fixed->dwFileVersionLS));
}

}  // namespace tv::win32
