// A registry value of any type, size and bytes on its way into the snapshot:
// its text form, its stored text, its line and the key of its line, and its
// warning row. A name spelled in the code page or held in UTF-16 gets a key
// that never breaks or bends the profile file (no line break, no "=", no
// section or comment mark in front, no white space at its ends); an escaped
// key or text reads back to exactly the name or text it stands for, and a
// hostile line read back never crashes.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "core/text.h"
#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"

namespace {

bool isHexToken(const std::string& token) {
    if (token.empty() || token.size() > 2) return false;
    for (char c : token)
        if (!((c >= '0' && c <= '9') || (c >= 'A' && c <= 'F'))) return false;
    return token.size() == 2 || (token[0] >= 'A' && token[0] <= 'F');  // one digit only for a letter
}

tv::RegText nameFrom(FuzzedDataProvider& in) {
    if (!in.ConsumeBool()) return tv::RegText(in.ConsumeRandomLengthString(300));
    // UTF-16 is kept beside a name only where the code page cannot spell it:
    // at least one unit beyond ASCII.
    std::u16string units(1, static_cast<char16_t>(in.ConsumeIntegralInRange<unsigned>(0x80, 0xFFFF)));
    for (std::size_t n = in.ConsumeIntegralInRange<std::size_t>(1, 32); n > 0 && in.remaining_bytes() > 0; --n)
        units += static_cast<char16_t>(in.ConsumeIntegral<std::uint16_t>());
    return tv::RegText(std::string(units.size(), '?'), units);
}

bool same(const tv::RegText& decoded, const tv::RegText& original) {
    return original.spelledExactly() ? decoded.spelledExactly() && decoded.text == original.text
                                     : decoded.exact == original.exact;
}

bool bends(unsigned char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::uint32_t type = in.ConsumeIntegralInRange<std::uint32_t>(0, 12);
    const std::uint32_t reported = in.ConsumeIntegralInRange<std::uint32_t>(0, 256);
    std::string buffer = in.ConsumeBytesAsString(256);
    buffer.resize(256, ' ');
    const tv::RegText name = nameFrom(in);

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
    if (tv::storedTextChanged(stored, tv::trimBlanks(stored))) __builtin_trap();
    const std::string key = tv::snapshotKey(name, tv::RegText(stored));
    if (!name.empty()) {
        if (key.empty() || key.find_first_of("\r\n=") != std::string::npos || key.front() == '[' ||
            key.front() == ';' || bends(key.front()) || bends(key.back()))
            __builtin_trap();
        const auto back = tv::nameOfSnapshotKey(key);
        if (key.front() == '%' ? !back || !same(*back, name) : key != name.text) __builtin_trap();
    }
    const std::string line = tv::snapshotText(tv::RegText(stored));
    if (line.find_first_of("\r\n") != std::string::npos) __builtin_trap();
    if (line.compare(0, 3, " %(") == 0) {
        const auto back = tv::storedTextOfSnapshotText(line);
        if (!back || !same(*back, tv::RegText(stored))) __builtin_trap();
    }
    const std::string row = tv::warningRow("HKEY_CURRENT_USER", "", key, stored, tv::EntryCheck::New);
    if (row != "HKEY_CURRENT_USER|Loaded in \\" + key + stored + " New Entry!") __builtin_trap();
    const std::string hostile = in.ConsumeRemainingBytesAsString();
    tv::nameOfSnapshotKey(hostile);
    tv::storedTextOfSnapshotText(hostile);
    return 0;
}
