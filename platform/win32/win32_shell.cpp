#include "platform/win32/win32_system.h"

#include <commdlg.h>
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <vector>

namespace tv::win32 {
namespace {

std::string upToZero(const std::vector<char>& buffer) {
    const auto end = std::find(buffer.begin(), buffer.end(), '\0');
    return std::string(buffer.begin(), end);
}

// The path of an item list, cut at its zero and at `charCount` characters.
// The system writes up to MAX_PATH characters whatever the caller's buffer.
std::string pathOfItemList(LPITEMIDLIST items, std::size_t charCount) {
    std::vector<char> buffer(std::max<std::size_t>(charCount, MAX_PATH) + 1, '\0');
    const BOOL ok = ::SHGetPathFromIDListA(items, buffer.data());
    ::CoTaskMemFree(items);
    if (!ok) return {};
    buffer.resize(charCount);
    return upToZero(buffer);
}

}  // namespace

std::string Win32Shell::systemDirectory(std::size_t charCount) const {
    std::vector<char> buffer(charCount + 1, '\0');
    const UINT length = ::GetSystemDirectoryA(buffer.data(), static_cast<UINT>(charCount));
    if (length == 0 || length >= charCount) return {};
    return std::string(buffer.data(), length);
}

std::string Win32Shell::windowsDirectoryBuffer(std::size_t charCount) const {
    std::vector<char> buffer(charCount + 1, '\0');
    ::GetWindowsDirectoryA(buffer.data(), static_cast<UINT>(charCount));
    return std::string(buffer.data(), charCount);
}

std::string Win32Shell::specialFolder(int csidl, std::size_t charCount) const {
    LPITEMIDLIST items = nullptr;
    if (::SHGetSpecialFolderLocation(nullptr, csidl, &items) != S_OK || !items) return {};
    return pathOfItemList(items, charCount);
}

std::string Win32Shell::openFileDialog(NativeWindow owner, const std::string& title,
                                       const std::string& filter, std::size_t bufferChars) {
    std::vector<char> file(bufferChars + 1, '\0');
    std::vector<char> fileTitle(bufferChars + 1, '\0');
    OPENFILENAMEA dialog{};
    dialog.lStructSize = OPENFILENAME_SIZE_VERSION_400A;  // the size older systems accept
    dialog.hwndOwner = reinterpret_cast<HWND>(owner);
    dialog.hInstance = ::GetModuleHandleA(nullptr);
    dialog.lpstrFilter = filter.c_str();
    dialog.nFilterIndex = 1;
    dialog.lpstrFile = file.data();
    dialog.nMaxFile = static_cast<DWORD>(bufferChars - 1);
    dialog.lpstrFileTitle = fileTitle.data();
    dialog.nMaxFileTitle = static_cast<DWORD>(bufferChars - 1);
    dialog.lpstrTitle = title.c_str();
    if (!::GetOpenFileNameA(&dialog)) return {};
    return std::string(file.data(), bufferChars);
}

std::string Win32Shell::browseForFolder(const std::string& title) {
    BROWSEINFOA info{};
    info.lpszTitle = title.c_str();
    info.ulFlags = BIF_RETURNONLYFSDIRS;
    LPITEMIDLIST items = ::SHBrowseForFolderA(&info);
    if (!items) return {};
    return pathOfItemList(items, 255);
}

std::string Win32Shell::shortPathBuffer(const std::string& path, std::size_t charCount) const {
    std::string buffer(charCount, ' ');
    const DWORD needed = ::GetShortPathNameA(path.c_str(), buffer.data(), static_cast<DWORD>(charCount));
    // A name longer than the buffer leaves it as it was: all blanks.
    if (needed == 0 || needed >= charCount) return std::string(charCount, ' ');
    return buffer;
}

int Win32Shell::openDocument(const std::string& verb, const std::string& file, const std::string& folder) {
    const HINSTANCE result = ::ShellExecuteA(::GetDesktopWindow(), verb.c_str(), file.c_str(), nullptr,
                                             folder.empty() ? nullptr : folder.c_str(), SW_SHOWNORMAL);
    return static_cast<int>(reinterpret_cast<INT_PTR>(result));
}

}  // namespace tv::win32
