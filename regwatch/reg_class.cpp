#include "regwatch/reg_class.h"

#include <algorithm>
#include <cctype>

namespace tv {
namespace {

constexpr std::uint32_t kRegSz = 1;
constexpr std::uint32_t kRegBinary = 3;
constexpr std::size_t kValueBuffer = 256;
constexpr std::size_t kListBuffer = 250;
constexpr std::uint32_t kListSize = 240;  // the size offered of the 250-blank buffers
constexpr std::uint32_t kLastIndex = 32767;  // the listings count in 16 bits

std::string cutAtNul(const std::string& buffer) { return buffer.substr(0, buffer.find('\0')); }

// A byte's code in hexadecimal through the format "00": only a one-digit
// number gets its leading zero ("05"); "A" stays one letter.
std::string binaryByte(unsigned char byte) {
    static const char* digits = "0123456789ABCDEF";
    std::string hex;
    if (byte >= 16) hex += digits[byte >> 4];
    hex += digits[byte & 15];
    if (hex.size() == 1 && std::isdigit(static_cast<unsigned char>(hex[0]))) hex.insert(0, "0");
    return hex + " ";
}

// Lists entries until the call fails; an index beyond the 16-bit counter
// ends the listing with nothing, as an overflow would.
template <typename Fetch>
std::vector<std::string> listUntilFailure(Fetch fetch) {
    std::vector<std::string> names;
    for (std::uint32_t index = 0;; ++index) {
        std::string name;
        if (!fetch(index, name)) return names;
        if (index == kLastIndex) return {};
        names.push_back(std::move(name));
    }
}

}  // namespace

RegClass::~RegClass() { registry_.closeKey(key_); }

bool RegClass::openRegistry(std::uint32_t root, const std::string& subKey) {
    if (root == 0) {
        open_ = false;
        return false;
    }
    root_ = root;
    subKey_ = subKey;
    if (open_) {
        closeRegistry();
        open_ = false;
    }
    if (registry_.openKey(root, subKey, key_) != 0) return false;
    open_ = true;
    return true;
}

std::vector<std::string> RegClass::getAllSubDirectories() {
    if (!open_) return {};
    return listUntilFailure([this](std::uint32_t index, std::string& name) {
        std::string buffer(kValueBuffer, ' ');
        if (registry_.enumKey(key_, index, buffer) != 0) return false;
        name = cutAtNul(buffer);
        return true;
    });
}

std::vector<std::string> RegClass::getAllValues() {
    if (!open_) return {};
    return listUntilFailure([this](std::uint32_t index, std::string& name) {
        std::string buffer(kListBuffer, ' '), data(kListBuffer, ' ');
        if (registry_.enumValue(key_, index, buffer, kListSize, data, kListSize) != 0) return false;
        name = cutAtNul(buffer);
        return true;
    });
}

std::string RegClass::getValue(const std::string& name) {
    if (!open_) return {};
    std::string buffer(kValueBuffer, ' ');
    std::uint32_t type = 0, size = 0;
    if (registry_.queryValue(key_, name, buffer, type, size) != 0) return {};
    const std::size_t kept = size == 0 ? 0 : std::min<std::size_t>(size - 1, buffer.size());
    if (type == kRegSz) return buffer.substr(0, kept);
    if (type == kRegBinary) {
        std::string text;
        for (std::size_t i = 0; i < kept; ++i) text += binaryByte(static_cast<unsigned char>(buffer[i]));
        return text;
    }
    return buffer;
}

bool RegClass::deleteKey(const std::string& name) {
    registry_.deleteValue(key_, name);
    return false;
}

bool RegClass::closeRegistry() {
    if (registry_.closeKey(key_) != 0) return false;
    open_ = false;
    return true;
}

}  // namespace tv
