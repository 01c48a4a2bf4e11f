#include "platform/win32/counted_registry_names.h"

#include <algorithm>
#include <cstring>

#include "platform/win32/system_function.h"

namespace tv::win32 {
namespace {

struct CountedName {  // the system's UNICODE_STRING
    USHORT length, maximumLength;
    const wchar_t* buffer;
};

struct ObjectAttributes {
    ULONG length;
    HANDLE rootDirectory;
    const CountedName* objectName;
    ULONG attributes;
    void* securityDescriptor;
    void* securityQualityOfService;
};

constexpr ULONG kCaseInsensitive = 0x40;
constexpr int kKeyValuePartialInformation = 2;
constexpr LONG kBufferOverflow = static_cast<LONG>(0x80000005), kBufferTooSmall = static_cast<LONG>(0xC0000023);

struct PartialValue {  // KEY_VALUE_PARTIAL_INFORMATION without its data
    ULONG titleIndex, type, dataLength;
};

struct NtCalls {
    using OpenKey = LONG(NTAPI*)(HANDLE*, ACCESS_MASK, const ObjectAttributes*);
    using QueryValueKey = LONG(NTAPI*)(HANDLE, const CountedName*, int, void*, ULONG, ULONG*);
    using DeleteValueKey = LONG(NTAPI*)(HANDLE, const CountedName*);
    using ToDosError = ULONG(NTAPI*)(LONG);
    OpenKey openKey = systemFunction<OpenKey>("ntdll.dll", "NtOpenKey");
    QueryValueKey queryValueKey = systemFunction<QueryValueKey>("ntdll.dll", "NtQueryValueKey");
    DeleteValueKey deleteValueKey = systemFunction<DeleteValueKey>("ntdll.dll", "NtDeleteValueKey");
    ToDosError toDosError = systemFunction<ToDosError>("ntdll.dll", "RtlNtStatusToDosError");
};

const NtCalls& ntCalls() {
    static const NtCalls calls;
    return calls;
}

LONG errorOf(LONG status) { return status >= 0 ? ERROR_SUCCESS : static_cast<LONG>(ntCalls().toDosError(status)); }

// A counted name holds at most 32,767 characters, more than any registry name.
CountedName counted(const std::u16string& text) {
    const auto bytes = static_cast<USHORT>(std::min<std::size_t>(text.size() * 2, 0xFFFE));
    return {bytes, bytes, reinterpret_cast<const wchar_t*>(text.data())};
}

}  // namespace

bool holdsNul(const std::u16string& name) { return name.find(u'\0') != std::u16string::npos; }

LONG openKeyByCountedName(HKEY base, const std::u16string& path, REGSAM rights, HKEY& opened) {
    if (!ntCalls().openKey || !ntCalls().toDosError) return ERROR_FILE_NOT_FOUND;
    const CountedName name = counted(path);
    const ObjectAttributes where{sizeof(ObjectAttributes), base, &name, kCaseInsensitive, nullptr, nullptr};
    HANDLE handle = nullptr;
    const LONG result = errorOf(ntCalls().openKey(&handle, rights, &where));
    if (result == ERROR_SUCCESS) opened = static_cast<HKEY>(handle);
    return result;
}

LONG queryValueByCountedName(HKEY key, const std::u16string& name, DWORD& type, std::vector<BYTE>& data) {
    if (!ntCalls().queryValueKey || !ntCalls().toDosError) return ERROR_FILE_NOT_FOUND;
    const CountedName valueName = counted(name);
    std::vector<BYTE> buffer(sizeof(PartialValue) + 1024);
    for (;;) {
        ULONG needed = 0;
        const LONG status = ntCalls().queryValueKey(key, &valueName, kKeyValuePartialInformation, buffer.data(),
                                                    static_cast<ULONG>(buffer.size()), &needed);
        if ((status == kBufferOverflow || status == kBufferTooSmall) && needed > buffer.size()) {
            buffer.resize(needed);
            continue;
        }
        if (status < 0) return errorOf(status);
        PartialValue head;
        std::memcpy(&head, buffer.data(), sizeof head);
        type = head.type;
        const BYTE* bytes = buffer.data() + sizeof(PartialValue);
        data.assign(bytes, bytes + head.dataLength);
        return ERROR_SUCCESS;
    }
}

LONG deleteValueByCountedName(HKEY key, const std::u16string& name) {
    if (!ntCalls().deleteValueKey || !ntCalls().toDosError) return ERROR_FILE_NOT_FOUND;
    const CountedName valueName = counted(name);
    return errorOf(ntCalls().deleteValueKey(key, &valueName));
}

}  // namespace tv::win32
