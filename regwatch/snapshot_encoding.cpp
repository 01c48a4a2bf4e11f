#include "regwatch/snapshot_encoding.h"

#include <algorithm>
#include <vector>

#include "core/text.h"
#include "hash/digests.h"

namespace tv {
namespace {

constexpr char kHex[] = "0123456789ABCDEF";
// Behind the "%" of an escaped form no escape can begin with "%S": a digest
// never reads as an escaped name or text.
constexpr std::string_view kDigestMark = "%SHA1:";

bool isControl(unsigned c) { return c < 0x20 || c == 0x7F; }

// What the profile calls take for white space at the ends of a key or value,
// and drop there: the blank, the control characters of white space, ^Z and
// the no-break space.
bool profileTrims(unsigned c) {
    return c == ' ' || (c >= 0x09 && c <= 0x0D) || c == 0x1A || (c >= 0x1C && c <= 0x1F) || c == 0xA0;
}

bool holdsLineBreak(std::string_view text) { return text.find_first_of("\r\n") != std::string_view::npos; }

// A name the profile keeps as it is, that never reads as a section, a comment
// or an escaped key, and that no other name shares.
bool plainName(const RegText& name) {
    const std::string& text = name.text;
    if (!name.spelledExactly() || text.empty()) return false;
    const auto front = static_cast<unsigned char>(text.front()), back = static_cast<unsigned char>(text.back());
    if (profileTrims(front) || profileTrims(back) || front == '[' || front == ';' || front == '%') return false;
    return std::none_of(text.begin(), text.end(),
                        [](char c) { return c == '=' || isControl(static_cast<unsigned char>(c)); });
}

// A stored text the profile gives back as it was written, apart from the
// blanks at its ends, which the comparison forgives.
bool plainText(const RegText& stored) {
    const std::string& text = stored.text;
    if (!stored.spelledExactly() || holdsLineBreak(text) || text.size() > kSnapshotTextChars) return false;
    const auto back = text.empty() ? 0u : static_cast<unsigned char>(text.back());
    return back == ' ' || !profileTrims(back);
}

bool escapedAscii(unsigned c, bool last) {
    return c == '%' || c == '=' || isControl(c) || (last && (c == ' ' || c == 0xA0));
}

void appendByte(std::string& out, unsigned c) {
    out += '%';
    out += kHex[c >> 4];
    out += kHex[c & 15];
}

std::string escaped(const RegText& text) {
    std::string out;
    if (text.spelledExactly()) {
        for (std::size_t i = 0; i < text.text.size(); ++i) {
            const auto c = static_cast<unsigned char>(text.text[i]);
            if (escapedAscii(c, i + 1 == text.text.size()))
                appendByte(out, c);
            else
                out += static_cast<char>(c);
        }
        return out;
    }
    for (std::size_t i = 0; i < text.exact.size(); ++i) {
        const unsigned unit = text.exact[i];
        if (unit >= 0x80) {
            out += "%u";
            for (int shift = 12; shift >= 0; shift -= 4) out += kHex[(unit >> shift) & 15];
        } else if (escapedAscii(unit, i + 1 == text.exact.size())) {
            appendByte(out, unit);
        } else {
            out += static_cast<char>(unit);
        }
    }
    return out;
}

std::string digestOf(std::string_view text) {
    hash::Digest sha1(hash::DigestKind::Sha1);
    sha1.update(reinterpret_cast<const std::uint8_t*>(text.data()), text.size());
    std::string hex(kDigestMark);
    for (const std::uint8_t byte : sha1.finish()) {
        hex += kHex[byte >> 4];
        hex += kHex[byte & 15];
    }
    return hex;
}

// The escaped form while it fits a line behind its " %", else its digest.
std::string escapedOrDigest(const RegText& text) {
    std::string out = escaped(text);
    return out.size() + 2 <= kSnapshotTextChars ? out : digestOf(out);
}

int hexValue(char c) {
    const char* at = std::find(kHex, kHex + 16, c);
    return at == kHex + 16 ? -1 : static_cast<int>(at - kHex);
}

std::optional<unsigned> hexNumber(std::string_view digits) {
    unsigned value = 0;
    for (const char c : digits) {
        const int digit = hexValue(c);
        if (digit < 0) return std::nullopt;
        value = value * 16 + static_cast<unsigned>(digit);
    }
    return value;
}

std::optional<RegText> unescaped(std::string_view text) {
    std::vector<unsigned> units;
    bool wide = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '%') {
            units.push_back(static_cast<unsigned char>(text[i]));
            continue;
        }
        const bool unit = i + 1 < text.size() && text[i + 1] == 'u';
        const std::size_t digits = unit ? 4 : 2, from = i + (unit ? 2 : 1);
        const auto value = from + digits <= text.size() ? hexNumber(text.substr(from, digits)) : std::nullopt;
        if (!value) return std::nullopt;
        units.push_back(*value);
        wide = wide || unit;
        i = from + digits - 1;
    }
    RegText result;
    for (const unsigned u : units) {
        if (wide)
            result.exact += static_cast<char16_t>(u);
        else
            result.text += static_cast<char>(u);
    }
    return result;
}

}  // namespace

std::string snapshotKey(const RegText& name, const RegText& storedText) {
    if (plainName(name)) return name.text;
    if (!name.empty()) return "%" + escaped(name);
    if (!holdsLineBreak(storedText.text) && storedText.text.size() <= kSnapshotTextChars)
        return replaceText(storedText.text, "=", "-");
    return "%" + escapedOrDigest(storedText);
}

// The stored text begins with the blank in front of its "(" , which the
// profile would drop: the escaped form keeps its place for the "%".
std::string snapshotText(const RegText& storedText) {
    if (plainText(storedText)) return storedText.text;
    RegText inner = storedText;
    if (inner.spelledExactly())
        inner.text.erase(0, 1);
    else
        inner.exact.erase(0, 1);
    return " %" + escapedOrDigest(inner);
}

std::optional<RegText> nameOfSnapshotKey(std::string_view key) {
    if (key.empty() || key.front() != '%') return std::nullopt;
    return unescaped(key.substr(1));
}

std::optional<RegText> storedTextOfSnapshotText(std::string_view line) {
    const std::string text = trimBlanks(line);
    if (text.size() < 2 || text.compare(0, 2, "%(") != 0) return std::nullopt;
    auto stored = unescaped(std::string_view(text).substr(1));
    if (stored && stored->spelledExactly())
        stored->text.insert(0, 1, ' ');
    else if (stored)
        stored->exact.insert(0, 1, u' ');
    return stored;
}

std::string shownName(const RegText& name) {
    std::string shown;
    for (const char c : name.text) {
        if (isControl(static_cast<unsigned char>(c)))
            appendByte(shown, static_cast<unsigned char>(c));
        else
            shown += c;
    }
    return shown;
}

}  // namespace tv
