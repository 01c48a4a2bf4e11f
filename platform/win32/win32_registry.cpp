#include "platform/win32/win32_system.h"

namespace tv::win32 {
namespace {

HKEY handleOf(Registry::Key key) { return reinterpret_cast<HKEY>(key); }

}  // namespace

long Win32Registry::openKey(std::uint32_t root, const std::string& subKey, Key& key) {
    HKEY opened = nullptr;
    const LONG result = ::RegOpenKeyExA(reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(root)), subKey.c_str(), 0,
                                        KEY_ALL_ACCESS, &opened);
    key = result == ERROR_SUCCESS ? reinterpret_cast<Key>(opened) : 0;
    return result;
}

long Win32Registry::enumKey(Key key, std::uint32_t index, std::string& buffer) {
    return ::RegEnumKeyA(handleOf(key), index, buffer.data(), static_cast<DWORD>(buffer.size()));
}

long Win32Registry::enumValue(Key key, std::uint32_t index, std::string& name, std::uint32_t nameSize,
                              std::string& data, std::uint32_t dataSize) {
    DWORD nameLength = nameSize, dataLength = dataSize;
    return ::RegEnumValueA(handleOf(key), index, name.data(), &nameLength, nullptr, nullptr,
                           reinterpret_cast<BYTE*>(data.data()), &dataLength);
}

long Win32Registry::queryValue(Key key, const std::string& name, std::string& buffer, std::uint32_t& type,
                               std::uint32_t& size) {
    DWORD valueType = 0, length = static_cast<DWORD>(buffer.size());
    const LONG result = ::RegQueryValueExA(handleOf(key), name.c_str(), nullptr, &valueType,
                                           reinterpret_cast<BYTE*>(buffer.data()), &length);
    type = valueType;
    size = length;
    return result;
}

long Win32Registry::deleteValue(Key key, const std::string& name) {
    return ::RegDeleteValueA(handleOf(key), name.c_str());
}

long Win32Registry::closeKey(Key key) { return ::RegCloseKey(handleOf(key)); }

}  // namespace tv::win32
