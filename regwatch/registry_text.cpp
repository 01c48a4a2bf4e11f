#include "regwatch/registry_text.h"

#include <algorithm>

#include "core/text.h"

namespace tv {
namespace {

// A byte's code in hexadecimal through the format "00": only a one-digit
// number gets its leading zero; a one-letter code stays one letter.
void appendBinaryByte(std::string& text, unsigned char byte) {
    static constexpr char kDigits[] = "0123456789ABCDEF";
    if (byte >= 16)
        text += kDigits[byte >> 4];
    else if (byte < 10)
        text += '0';
    text += kDigits[byte & 15];
    text += ' ';
}

}  // namespace

std::string renderRegistryValue(std::uint32_t type, std::string_view buffer, std::uint32_t size) {
    const std::size_t kept = size == 0 ? 0 : std::min<std::size_t>(size - 1, buffer.size());
    if (type == regtype::Sz) return std::string(buffer.substr(0, kept));
    if (type == regtype::Binary) {
        std::string text;
        text.reserve(kept * 3);
        for (std::size_t i = 0; i < kept; ++i) appendBinaryByte(text, static_cast<unsigned char>(buffer[i]));
        return text;
    }
    return std::string(buffer);
}

RegText registryValueText(const RegValue& value) {
    constexpr std::size_t kQueryBuffer = 256;
    std::string buffer = value.bytes;
    if (buffer.size() < kQueryBuffer) buffer.resize(kQueryBuffer, ' ');
    RegText text(renderRegistryValue(value.type, buffer, static_cast<std::uint32_t>(value.bytes.size())));
    if (!value.exact.empty())
        text.exact = value.type == regtype::Sz ? value.exact.substr(0, value.exact.size() - 1) : value.exact;
    return text;
}

bool isDefaultOpenCommand(std::string_view value) { return value == "\"%1\" %*"; }

std::string storedTextOf(std::string_view value) {
    std::string stored = " (";
    stored += value;
    stored += ')';
    return stored;
}

RegText storedTextOf(const RegText& value) {
    RegText stored(storedTextOf(value.text));
    if (!value.spelledExactly()) stored.exact = u" (" + value.exact + u")";
    return stored;
}

std::string cutAtNul(std::string_view text) { return std::string(text.substr(0, text.find('\0'))); }

RegText cutAtNul(const RegText& text) {
    return RegText(cutAtNul(text.text), text.exact.substr(0, text.exact.find(u'\0')));
}

bool storedTextChanged(std::string_view storedText, std::string_view entry) {
    return trimBlanks(storedText) != trimBlanks(entry);
}

std::string keyTail(std::string_view keyPath) {
    const auto slash = keyPath.rfind('\\');
    return std::string(slash == std::string_view::npos ? keyPath : keyPath.substr(slash + 1));
}

std::string warningRow(std::string_view rootText, std::string_view tail, std::string_view name,
                       std::string_view storedText, EntryCheck result) {
    std::string row(rootText);
    row += "|Loaded in ";
    row += tail;
    row += '\\';
    row += name;
    row += storedText;
    row += result == EntryCheck::New ? " New Entry!" : " Entry Modified!";
    return row;
}

std::string valueNodeKey(int groupIndex, std::string_view viewSuffix, std::string_view storedText) {
    return "#" + std::to_string(groupIndex) + std::string(viewSuffix) + std::string(storedText);
}

}  // namespace tv
