#include "tests/win/win_fixture.h"

#include "platform/win32/win32_base.h"

#include <shellapi.h>

namespace tv::test {

WinTest::WinTest() {
    char temp[MAX_PATH + 1] = {};
    ::GetTempPathA(MAX_PATH, temp);
    static int serial = 0;  // a new folder every time: a crashed test leaves its own, and Wine reuses process numbers
    do folder_ = std::string(temp) + "tarvelon-test-" + std::to_string(::GetCurrentProcessId()) + "-" +
                 std::to_string(++serial) + "\\";
    while (!::CreateDirectoryA(folder_.c_str(), nullptr) && ::GetLastError() == ERROR_ALREADY_EXISTS);
}

WinTest::~WinTest() {
    const std::string from = folder_.substr(0, folder_.size() - 1) + std::string(2, '\0');
    SHFILEOPSTRUCTA remove{nullptr, FO_DELETE, from.c_str(), nullptr, FOF_NOCONFIRMATION | FOF_NOERRORUI | FOF_SILENT};
    ::SHFileOperationA(&remove);
}

void WinTest::writeFile(const std::string& relative, const std::string& bytes) {
    ASSERT_TRUE(files.writeAll(path(relative), bytes)) << relative;
}

std::string WinTest::readFile(const std::string& relative) const {
    return files.readAll(path(relative)).value_or("<unreadable>");
}

FileLock::FileLock(const std::string& path)
    : handle_(::CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS, 0, nullptr)) {}

FileLock::~FileLock() { if (held()) ::CloseHandle(handle_); }

bool FileLock::held() const { return handle_ != INVALID_HANDLE_VALUE; }

}  // namespace tv::test
