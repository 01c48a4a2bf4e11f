#include "regwatch/reg_class.h"

#include "regwatch/registry_text.h"

namespace tv {
namespace {

constexpr std::uint32_t kLastIndex = 32767;  // the listings count in 16 bits

// Lists entries until the call fails; an index beyond the 16-bit counter
// ends the listing with nothing, as an overflow would.
template <typename Name, typename Fetch>
std::vector<Name> listUntilFailure(Fetch fetch) {
    std::vector<Name> names;
    for (std::uint32_t index = 0;; ++index) {
        Name name;
        if (!fetch(index, name)) return names;
        if (index == kLastIndex) return {};
        names.push_back(std::move(name));
    }
}

}  // namespace

RegClass::~RegClass() { registry_.closeKey(key_); }

bool RegClass::openRegistry(std::uint32_t root, const RegText& subKey, RegView view, RegAccess access) {
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
    if (registry_.openKey(root, subKey, view, access, key_) != 0) return false;
    open_ = true;
    return true;
}

std::vector<std::string> RegClass::getAllSubDirectories() {
    if (!open_) return {};
    return listUntilFailure<std::string>([this](std::uint32_t index, std::string& name) {
        RegText found;
        if (registry_.enumKey(key_, index, found) != 0) return false;
        name = cutAtNul(found.text);
        return true;
    });
}

std::vector<RegText> RegClass::getAllValues() {
    if (!open_) return {};
    return listUntilFailure<RegText>(
        [this](std::uint32_t index, RegText& name) { return registry_.enumValue(key_, index, name) == 0; });
}

RegText RegClass::getValue(const RegText& name) {
    if (!open_) return {};
    RegValue value;
    if (registry_.queryValue(key_, name, value) != 0) return {};
    return registryValueText(value);
}

bool RegClass::deleteKey(const RegText& name) {
    registry_.deleteValue(key_, name);
    return false;
}

bool RegClass::closeRegistry() {
    if (registry_.closeKey(key_) != 0) return false;
    open_ = false;
    return true;
}

}  // namespace tv
