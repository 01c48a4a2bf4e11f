#include <vector>

#include "platform/win32/win32_system.h"

namespace tv::win32 {

std::string Win32ProfileFiles::get(const std::string& section, const std::string& key,
                                   std::size_t charCount, const std::string& file) const {
    if (charCount == 0) return {};
    std::vector<char> buffer(charCount, '\0');
    const DWORD got = ::GetPrivateProfileStringA(section.c_str(), key.c_str(), nullptr,
                                                 buffer.data(), static_cast<DWORD>(charCount),
                                                 file.c_str());
    return std::string(buffer.data(), std::min<std::size_t>(got, charCount));
}

bool Win32ProfileFiles::put(const std::string& section, const std::string& key,
                            const std::string& value, const std::string& file) {
    return ::WritePrivateProfileStringA(section.c_str(), key.c_str(), value.c_str(), file.c_str()) !=
           0;
}

}  // namespace tv::win32
