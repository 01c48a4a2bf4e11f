// A registry value of any type, size and bytes on its way into the snapshot:
// its text form, its stored text and the key of its line, and its warning row.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/text.h"
#include "regwatch/registry_text.h"

namespace {

bool isHexToken(const std::string& token) {
    if (token.empty() || token.size() > 2) return false;
    for (char c : token)
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) return false;
    return token.size() == 2 || (token[0] >= 'A' && token[0] <= 'F');  // one digit only for a letter
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::uint32_t type = in.ConsumeIntegralInRange<std::uint32_t>(0, 12);
    const std::uint32_t reported = in.ConsumeIntegralInRange<std::uint32_t>(0, 256);
    std::string buffer = in.ConsumeBytesAsString(256);
    buffer.resize(256, ' ');
    const std::string name = in.ConsumeRandomLengthString(300);

    const std::string value = tv::renderRegistryValue(type, buffer, reported);
    const std::size_t kept = reported == 0 ? 0 : reported - 1;
    if (type == tv::regtype::Sz && value != buffer.substr(0, kept)) __builtin_trap();
    if (type == tv::regtype::Binary) {
        std::size_t tokens = 0;
        for (std::size_t from = 0; from < value.size(); ++tokens) {
            const std::size_t blank = value.find(' ', from);
            if (blank == std::string::npos || !isHexToken(value.substr(from, blank - from))) __builtin_trap();
            from = blank + 1;
        }
        if (tokens != kept) __builtin_trap();
    }
    if (type != tv::regtype::Sz && type != tv::regtype::Binary && value != buffer) __builtin_trap();

    const std::string stored = tv::cutAtNul(tv::storedTextOf(value));
    if (stored.find('\0') != std::string::npos || stored.rfind(" (", 0) != 0) __builtin_trap();
    const std::string key = tv::snapshotKey(name, stored);
    if (key.find('=') != std::string::npos) __builtin_trap();
    if (key.size() != (name.empty() ? stored.size() : name.size())) __builtin_trap();
    if (tv::storedTextChanged(stored, tv::trimBlanks(stored))) __builtin_trap();
    const std::string row = tv::warningRow("HKEY_CURRENT_USER", "", key, stored, tv::EntryCheck::New);
    if (row != "HKEY_CURRENT_USER|Loaded in \\" + key + stored + " New Entry!") __builtin_trap();
    return 0;
}
