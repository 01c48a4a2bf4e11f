// A registry value's snapshot line on any name and text, spelled in the code
// page or held in UTF-16. The line's key never breaks or bends the profile
// file (no line break, no "=", no section or comment mark in front, no white
// space at its ends), and an escaped key or text reads back to exactly the
// name or text it stands for; a hostile line read back never crashes.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"

namespace {

tv::RegText textFrom(FuzzedDataProvider& in) {
    if (!in.ConsumeBool()) return tv::RegText(in.ConsumeRandomLengthString(64));
    std::u16string units;
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
    const tv::RegText name = textFrom(in);
    const tv::RegText stored = tv::storedTextOf(textFrom(in));
    const std::string key = tv::snapshotKey(name, stored);
    if (!name.empty()) {
        if (key.empty() || key.find_first_of("\r\n=") != std::string::npos || key.front() == '[' ||
            key.front() == ';' || bends(key.front()) || bends(key.back()))
            __builtin_trap();
        if (key.front() == '%') {
            const auto back = tv::nameOfSnapshotKey(key);
            if (!back || !same(*back, name)) __builtin_trap();
        } else if (key != name.text) {
            __builtin_trap();
        }
    }
    const std::string line = tv::snapshotText(stored);
    if (line.find_first_of("\r\n") != std::string::npos) __builtin_trap();
    if (line.compare(0, 3, " %(") == 0) {
        const auto back = tv::storedTextOfSnapshotText(line);
        if (!back || !same(*back, stored)) __builtin_trap();
    }
    const std::string hostile = in.ConsumeRemainingBytesAsString();
    tv::nameOfSnapshotKey(hostile);
    tv::storedTextOfSnapshotText(hostile);
    return 0;
}
