// fakescan: stands in for the user's anti-virus scanner in tests. It appends
// its whole command line, exactly as it received it, and a line break to a log
// file, and ends. The log is the file named by the environment variable
// TARVELON_FAKESCAN_LOG_<NAME>, NAME being this program file's own name without
// its extension, in capitals, when that is set (so that a copy planted under
// another name, C:\Program.exe say, writes a log of its own), and otherwise the
// one named by TARVELON_FAKESCAN_LOG. Nothing is scanned; no test ever starts a
// real anti-virus program.
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <cctype>
#include <cstdlib>
#include <string>

namespace {

std::string ownLogVariable() {
    char path[MAX_PATH + 1] = {};
    ::GetModuleFileNameA(nullptr, path, MAX_PATH);
    std::string name(path);
    name = name.substr(name.find_last_of('\\') + 1);
    name = name.substr(0, name.find_last_of('.'));
    for (char& c : name) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return "TARVELON_FAKESCAN_LOG_" + name;
}

}  // namespace

int main() {
    const char* log = std::getenv(ownLogVariable().c_str());
    if (!log || !*log) log = std::getenv("TARVELON_FAKESCAN_LOG");
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
