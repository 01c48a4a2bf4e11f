#include <vector>

#include "platform/win32/code_page_text.h"
#include "platform/win32/counted_registry_names.h"
#include "platform/win32/system_function.h"
#include "platform/win32/unique_handle.h"
#include "platform/win32/win32_system.h"

namespace tv::win32 {
namespace {

using UniqueKey = UniqueHandle<KeyTraits>;
static_assert(sizeof(wchar_t) == sizeof(char16_t));

HKEY handleOf(Registry::Key key) { return reinterpret_cast<HKEY>(key); }
HKEY rootOf(std::uint32_t root) { return reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(root)); }
const wchar_t* wide(const std::u16string& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// The code page's spelling, and the UTF-16 itself where that spelling does
// not lead back to it (a character without a letter in the code page, or one
// the system spells with a look-alike).
RegText fromUtf16(std::u16string units) {
    std::string spelled = codePageText(units);
    if (spellsBack(spelled, units)) return RegText(std::move(spelled));
    return RegText(std::move(spelled), std::move(units));
}

std::u16string utf16Of(const RegText& name) { return name.spelledExactly() ? utf16Text(name.text) : name.exact; }

bool isStringType(DWORD type) { return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ; }

// The wide registry calls, which read every name and string as it is. The
// Windows 9x family has only the ANSI ones (its wide ones are stubs that
// answer ERROR_CALL_NOT_IMPLEMENTED), so they are looked up, never imported:
// there the program reads the code page's spelling, all such a system has.
struct WideCalls {
    decltype(&::RegEnumValueW) enumValue =
        systemFunction<decltype(&::RegEnumValueW)>("advapi32.dll", "RegEnumValueW");
    decltype(&::RegQueryValueExW) queryValue =
        systemFunction<decltype(&::RegQueryValueExW)>("advapi32.dll", "RegQueryValueExW");
    decltype(&::RegDeleteValueW) deleteValue =
        systemFunction<decltype(&::RegDeleteValueW)>("advapi32.dll", "RegDeleteValueW");
    decltype(&::RegOpenKeyExW) openKey = systemFunction<decltype(&::RegOpenKeyExW)>("advapi32.dll", "RegOpenKeyExW");
    decltype(&::RegEnumKeyExW) enumKey = systemFunction<decltype(&::RegEnumKeyExW)>("advapi32.dll", "RegEnumKeyExW");
    decltype(&::CompareStringW) compare = systemFunction<decltype(&::CompareStringW)>("kernel32.dll", "CompareStringW");
};

const WideCalls& wideCalls() {
    static const WideCalls calls;
    return calls;
}

// The same calls in the code page, for a system without the wide ones.
long enumValueInCodePage(HKEY key, DWORD index, RegText& name) {
    std::string buffer(256, '\0');
    for (;;) {
        DWORD length = static_cast<DWORD>(buffer.size());
        const LONG result = ::RegEnumValueA(key, index, buffer.data(), &length, nullptr, nullptr, nullptr, nullptr);
        if (result == ERROR_MORE_DATA && buffer.size() < 65536) {
            buffer.resize(buffer.size() * 2);
            continue;
        }
        if (result != ERROR_SUCCESS) return result;
        buffer.resize(length);
        name = RegText(std::move(buffer));
        return result;
    }
}

long queryValueInCodePage(HKEY key, const std::string& name, RegValue& value) {
    DWORD type = 0, size = 1024;
    std::string data;
    for (LONG result = ERROR_MORE_DATA; result != ERROR_SUCCESS;) {
        data.resize(size);
        result = ::RegQueryValueExA(key, name.c_str(), nullptr, &type, reinterpret_cast<BYTE*>(data.data()), &size);
        if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) return result;
    }
    data.resize(size);
    value.type = type;
    value.bytes = std::move(data);
    value.exact.clear();
    return ERROR_SUCCESS;
}

// The registry's own path of an open key ("\REGISTRY\MACHINE\SOFTWARE\..."),
// by which two handles are told to be one key; empty when the system does
// not say.
std::u16string keyPath(HKEY key) {
    using QueryKey = LONG(NTAPI*)(HANDLE, int, PVOID, ULONG, PULONG);
    static const auto query = systemFunction<QueryKey>("ntdll.dll", "NtQueryKey");
    constexpr int kKeyNameInformation = 3;
    if (!query) return {};
    std::vector<BYTE> buffer(1024);
    for (;;) {
        ULONG needed = 0;
        const LONG status = query(key, kKeyNameInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &needed);
        if (status == 0) {
            const ULONG bytes = *reinterpret_cast<const ULONG*>(buffer.data());
            return std::u16string(reinterpret_cast<const char16_t*>(buffer.data() + sizeof(ULONG)), bytes / 2);
        }
        if (needed <= buffer.size()) return {};
        buffer.resize(needed);
    }
}

// Keys open through the wide call: by their exact names, and whatever the
// path's length (the ANSI call may convert the path into a buffer of
// MAX_PATH characters, where a long service name would open nothing). The
// Windows 9x family, whose wide call is a stub, opens the code page's spelling.
// A path with a NUL in a name opens in two steps: the keys in front of that
// name through the wide call, which also turns a predefined key into a handle
// the system's own calls know, then the rest by its counted form.
LONG openIn(HKEY root, const RegText& subKey, REGSAM rights, HKEY& opened) {
    const auto openWide = wideCalls().openKey;
    const std::u16string path = utf16Of(subKey);
    if (holdsNul(path)) {
        const std::size_t split = path.rfind(u'\\', path.find(u'\0'));
        // No watched key lies directly below a root.
        if (!openWide || split == std::u16string::npos) return ERROR_FILE_NOT_FOUND;
        // A relative open asks nothing of the key in front but its view.
        HKEY base = nullptr;
        LONG result = openWide(root, wide(path.substr(0, split)), 0,
                               KEY_QUERY_VALUE | (rights & (KEY_WOW64_32KEY | KEY_WOW64_64KEY)), &base);
        if (result != ERROR_SUCCESS) return result;
        result = openKeyByCountedName(base, path.substr(split + 1), rights, opened);
        ::RegCloseKey(base);
        return result;
    }
    const LONG result = openWide ? openWide(root, wide(path), 0, rights, &opened) : ERROR_CALL_NOT_IMPLEMENTED;
    return result == ERROR_CALL_NOT_IMPLEMENTED ? ::RegOpenKeyExA(root, subKey.text.c_str(), 0, rights, &opened)
                                                : result;
}

LONG queryValueWide(HKEY key, const std::u16string& name, DWORD& type, std::vector<BYTE>& data) {
    const auto queryWide = wideCalls().queryValue;
    if (!queryWide) return ERROR_CALL_NOT_IMPLEMENTED;
    DWORD size = 1024;
    for (LONG result = ERROR_MORE_DATA; result != ERROR_SUCCESS;) {
        data.resize(size);
        result = queryWide(key, wide(name), nullptr, &type, data.data(), &size);
        if (result != ERROR_SUCCESS && result != ERROR_MORE_DATA) return result;
    }
    data.resize(size);
    return ERROR_SUCCESS;
}

// Whether the other view's key is the native view's own, as the shared
// parts of the registry are (HKEY_CURRENT_USER's Run key, and from Windows 7
// on most file types). When the system cannot say, the keys count as two:
// a key shown twice hides nothing.
bool sharedWithNative(HKEY root, const RegText& subKey, HKEY other) {
    HKEY opened = nullptr;
    if (openIn(root, subKey, KEY_QUERY_VALUE, opened) != ERROR_SUCCESS) return false;
    UniqueKey native(opened);
    const std::u16string path = keyPath(native.get());
    return !path.empty() && wideCalls().compare &&
           wideCalls().compare(LOCALE_INVARIANT, NORM_IGNORECASE, wide(path), -1, wide(keyPath(other)), -1) ==
               CSTR_EQUAL;
}

}  // namespace

int Win32Registry::otherViewBits() const {
#ifdef _WIN64
    return 32;  // a 64-bit program runs on a 64-bit system only
#else
    using IsWow64 = BOOL(WINAPI*)(HANDLE, PBOOL);
    static const auto isWow64 = systemFunction<IsWow64>("kernel32.dll", "IsWow64Process");
    BOOL wow64 = FALSE;
    return isWow64 && isWow64(::GetCurrentProcess(), &wow64) && wow64 ? 64 : 0;
#endif
}

long Win32Registry::openKey(std::uint32_t root, const RegText& subKey, RegView view, RegAccess access, Key& key) {
    key = 0;
    REGSAM rights = access == RegAccess::All ? KEY_ALL_ACCESS : KEY_READ;
    if (view == RegView::Other) {
        const int bits = otherViewBits();
        if (bits == 0) return ERROR_FILE_NOT_FOUND;
        rights |= bits == 32 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    }
    HKEY opened = nullptr;
    const LONG result = openIn(rootOf(root), subKey, rights, opened);
    if (result != ERROR_SUCCESS) return result;
    if (view == RegView::Other && sharedWithNative(rootOf(root), subKey, opened)) {
        ::RegCloseKey(opened);
        return ERROR_FILE_NOT_FOUND;
    }
    key = reinterpret_cast<Key>(opened);
    return result;
}

// A key's name has at most 255 characters.
long Win32Registry::enumKey(Key key, std::uint32_t index, RegText& name) {
    constexpr DWORD kNameChars = 256;
    const auto enumWide = wideCalls().enumKey;
    std::u16string units(kNameChars, u'\0');
    DWORD length = kNameChars;
    const LONG result = enumWide ? enumWide(handleOf(key), index, reinterpret_cast<wchar_t*>(units.data()), &length,
                                            nullptr, nullptr, nullptr, nullptr)
                                 : ERROR_CALL_NOT_IMPLEMENTED;
    if (result == ERROR_CALL_NOT_IMPLEMENTED) {
        std::string buffer(kNameChars, '\0');
        const LONG spelled = ::RegEnumKeyA(handleOf(key), index, buffer.data(), kNameChars);
        if (spelled == ERROR_SUCCESS) name = RegText(buffer.substr(0, buffer.find('\0')));
        return spelled;
    }
    if (result != ERROR_SUCCESS) return result;
    units.resize(length);
    name = fromUtf16(std::move(units));
    return result;
}

// The buffers start at what nearly every name and value fits in, and grow to
// what the system asks for, however long (the one-call reading of the
// ordinary case costs no more than the fixed buffers did).
long Win32Registry::enumValue(Key key, std::uint32_t index, RegText& name) {
    const auto enumWide = wideCalls().enumValue;
    std::u16string units(256, u'\0');
    for (;;) {
        DWORD length = static_cast<DWORD>(units.size());
        const LONG result = enumWide ? enumWide(handleOf(key), index, reinterpret_cast<wchar_t*>(units.data()),
                                                &length, nullptr, nullptr, nullptr, nullptr)
                                     : ERROR_CALL_NOT_IMPLEMENTED;
        if (result == ERROR_CALL_NOT_IMPLEMENTED) return enumValueInCodePage(handleOf(key), index, name);
        if (result == ERROR_MORE_DATA) {
            units.resize(units.size() * 2);
            continue;
        }
        if (result != ERROR_SUCCESS) return result;
        units.resize(length);
        name = fromUtf16(std::move(units));
        return result;
    }
}

long Win32Registry::queryValue(Key key, const RegText& name, RegValue& value) {
    const std::u16string valueName = utf16Of(name);
    DWORD type = 0;
    std::vector<BYTE> data;
    const LONG result = holdsNul(valueName) ? queryValueByCountedName(handleOf(key), valueName, type, data)
                                            : queryValueWide(handleOf(key), valueName, type, data);
    if (result == ERROR_CALL_NOT_IMPLEMENTED) return queryValueInCodePage(handleOf(key), name.text, value);
    if (result != ERROR_SUCCESS) return result;
    value.type = type;
    value.exact.clear();
    if (!isStringType(type)) {
        value.bytes.assign(data.begin(), data.end());
        return ERROR_SUCCESS;
    }
    // Strings come as the ANSI call would give them: every character,
    // embedded NULs too, in the code page.
    RegText text = fromUtf16(std::u16string(reinterpret_cast<const char16_t*>(data.data()), data.size() / 2));
    value.bytes = std::move(text.text);
    value.exact = std::move(text.exact);
    return ERROR_SUCCESS;
}

long Win32Registry::deleteValue(Key key, const RegText& name) {
    const auto deleteWide = wideCalls().deleteValue;
    const std::u16string valueName = utf16Of(name);
    const LONG result = holdsNul(valueName) ? deleteValueByCountedName(handleOf(key), valueName)
                        : deleteWide      ? deleteWide(handleOf(key), wide(valueName))
                                          : ERROR_CALL_NOT_IMPLEMENTED;
    return result == ERROR_CALL_NOT_IMPLEMENTED ? ::RegDeleteValueA(handleOf(key), name.text.c_str()) : result;
}

long Win32Registry::closeKey(Key key) { return ::RegCloseKey(handleOf(key)); }

}  // namespace tv::win32
