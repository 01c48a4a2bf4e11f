// RegClass, the program's one door to the registry: one open key at a time,
// its sub-keys and value names, one value as text, and the removal of a
// value. Every value type folds into text, with fixed buffers whose limits
// are part of what the registry snapshot records. Nothing is ever reported:
// failures answer false, nothing or the empty text.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/registry.h"

namespace tv {

class RegClass {
public:
    explicit RegClass(Registry& registry) : registry_(registry) {}
    ~RegClass();  // closes the handle it holds, open or not
    RegClass(const RegClass&) = delete;
    RegClass& operator=(const RegClass&) = delete;

    std::vector<std::string> getAllSubDirectories();
    // The value names up to the first whose name or data does not fit in 240 bytes.
    std::vector<std::string> getAllValues();
    std::string getValue(const std::string& name);
    std::uint32_t registryRootKey() const { return root_; }
    const std::string& subDirectory() const { return subKey_; }
    bool openRegistry(std::uint32_t root, const std::string& subKey);
    // Removes the value `name` (never a key, whatever the name says); always false.
    bool deleteKey(const std::string& name);
    bool closeRegistry();

private:
    Registry& registry_;
    std::uint32_t root_ = 0;
    std::string subKey_;
    Registry::Key key_ = 0;
    bool open_ = false;
};

}  // namespace tv
