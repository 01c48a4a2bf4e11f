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

// The call answers with the names, each ended by a NUL; a buffer too small
// for them all is filled to two characters short of its size.
std::vector<std::string> Win32ProfileFiles::sectionNames(const std::string& file) const {
    std::vector<char> buffer(4096, '\0');
    DWORD got = 0;
    while ((got = ::GetPrivateProfileSectionNamesA(buffer.data(), static_cast<DWORD>(buffer.size()), file.c_str())) ==
           buffer.size() - 2)
        buffer.assign(buffer.size() * 2, '\0');
    std::vector<std::string> names;
    for (std::size_t at = 0; at < got && buffer[at] != '\0';) {
        names.emplace_back(buffer.data() + at);
        at += names.back().size() + 1;
    }
    return names;
}

// The system writes no section without a key, and keeps the section when its
// last key goes: a key put in and taken out again leaves the empty section.
bool Win32ProfileFiles::addSection(const std::string& section, const std::string& file) {
    constexpr const char* kPlaceholder = "%";
    return ::WritePrivateProfileStringA(section.c_str(), kPlaceholder, "", file.c_str()) != 0 &&
           ::WritePrivateProfileStringA(section.c_str(), kPlaceholder, nullptr, file.c_str()) != 0;
}

}  // namespace tv::win32
