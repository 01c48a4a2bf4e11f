// A registry value of any type and bytes, under a name of any bytes or UTF-16 units, on its way into the snapshot:
// the line's key never breaks or bends the profile file (no line break, no "=", no section or comment mark in
// front, no white space at its ends), its text holds no line break, an escaped key or text reads back to exactly
// what it stands for, and a hostile line read back never crashes.
#include <fuzzer/FuzzedDataProvider.h>

#include <string>

#include "regwatch/registry_text.h"
#include "regwatch/snapshot_encoding.h"

namespace {

tv::RegText nameFrom(FuzzedDataProvider& in) {
    if (!in.ConsumeBool()) return tv::RegText(in.ConsumeRandomLengthString(300));
    // UTF-16 is kept beside a name only where the code page cannot spell it: one unit beyond ASCII.
    std::u16string units(1, static_cast<char16_t>(in.ConsumeIntegralInRange<unsigned>(0x80, 0xFFFF)));
    for (std::size_t n = in.ConsumeIntegralInRange<std::size_t>(1, 32); n > 0 && in.remaining_bytes() > 0; --n)
        units += static_cast<char16_t>(in.ConsumeIntegral<std::uint16_t>());
    return tv::RegText(std::string(units.size(), '?'), units);
}

bool same(const tv::RegText& back, const tv::RegText& was) {
    return was.spelledExactly() ? back.spelledExactly() && back.text == was.text : back.exact == was.exact;
}

bool bends(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\v' || c == '\f'; }

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider in(data, size);
    const std::uint32_t type = in.ConsumeIntegralInRange<std::uint32_t>(0, 12);
    const std::uint32_t reported = in.ConsumeIntegralInRange<std::uint32_t>(0, 256);
    std::string buffer = in.ConsumeBytesAsString(256);
    buffer.resize(256, ' ');
    const tv::RegText name = nameFrom(in);

    const tv::RegText stored(tv::cutAtNul(tv::storedTextOf(tv::renderRegistryValue(type, buffer, reported))));
    const std::string key = tv::snapshotKey(name, stored);
    if (!name.empty()) {
        if (key.empty() || key.find_first_of("\r\n=") != std::string::npos || key.front() == '[' ||
            key.front() == ';' || bends(key.front()) || bends(key.back()))
            __builtin_trap();
        const auto back = tv::nameOfSnapshotKey(key);
        if (key.front() == '%' ? !back || !same(*back, name) : key != name.text) __builtin_trap();
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
