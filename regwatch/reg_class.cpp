#include "regwatch/reg_class.h"

#include "regwatch/registry_text.h"

namespace tv {
namespace {

constexpr std::size_t kValueBuffer = 256;
constexpr std::size_t kListBuffer = 250;
constexpr std::uint32_t kListSize = 240;  // the size offered of the 250-blank buffers
constexpr std::uint32_t kLastIndex = 32767;  // the listings count in 16 bits

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
    return renderRegistryValue(type, buffer, size);
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
