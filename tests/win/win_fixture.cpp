#include "tests/win/win_fixture.h"

#include "platform/win32/win32_base.h"

#include <shellapi.h>

namespace tv::test {

WinTest::WinTest() {
    char temp[MAX_PATH + 1] = {};
    ::GetTempPathA(MAX_PATH, temp);
    // A new folder every time: a test that crashed leaves its folder behind,
    // and Wine reuses process numbers.
    static int serial = 0;
    do {
        folder_ = std::string(temp) + "tarvelon-test-" + std::to_string(::GetCurrentProcessId()) + "-" +
                  std::to_string(++serial) + "\\";
    } while (!::CreateDirectoryA(folder_.c_str(), nullptr) && ::GetLastError() == ERROR_ALREADY_EXISTS);
}

WinTest::~WinTest() {
    std::string from = folder_.substr(0, folder_.size() - 1);
    from.push_back('\0');
    from.push_back('\0');
    SHFILEOPSTRUCTA remove{};
    remove.wFunc = FO_DELETE;
    remove.pFrom = from.c_str();
    remove.fFlags = FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT;
    ::SHFileOperationA(&remove);
}

void WinTest::writeFile(const std::string& relative, const std::string& bytes) {
    ASSERT_TRUE(files.writeAll(path(relative), bytes)) << relative;
}

std::string WinTest::readFile(const std::string& relative) const {
    return files.readAll(path(relative)).value_or("<unreadable>");
}

std::string fakeScannerPath() {
    char self[MAX_PATH] = {};
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    std::string path(self);
    path.erase(path.find_last_of('\\'));
    return path.substr(0, path.find_last_of('\\')) + "\\tools\\fakescan.exe";
}

FileLock::FileLock(const std::string& path)
    : handle_(::CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                            FILE_ATTRIBUTE_NORMAL, nullptr)) {}

FileLock::~FileLock() {
    if (held()) ::CloseHandle(handle_);
}

bool FileLock::held() const { return handle_ != INVALID_HANDLE_VALUE; }

}  // namespace tv::test
