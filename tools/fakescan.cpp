// fakescan: stands in for the user's anti-virus scanner in tests. It appends
// its whole command line, exactly as it received it, and a line break to the
// file named by the environment variable TARVELON_FAKESCAN_LOG, and ends.
// Nothing is scanned; no test ever starts a real anti-virus program.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cstdlib>
#include <string>

int main() {
    const char* log = std::getenv("TARVELON_FAKESCAN_LOG");
    if (!log || !*log) return 2;
    const std::string line = std::string(::GetCommandLineA()) + "\r\n";
    // Appending in one write keeps lines of scanners running side by side whole.
    HANDLE file = ::CreateFileA(log, FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) return 1;
    DWORD written = 0;
    const BOOL ok = ::WriteFile(file, line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    ::CloseHandle(file);
    return ok && written == line.size() ? 0 : 1;
}
