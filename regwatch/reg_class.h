// RegClass, the program's one door to the registry: one open key at a time,
// in either view of a 64-bit system, its sub-keys and value names, one value
// as text, and the removal of a value. Every value type folds into text;
// names and values are read whole, however long, and names exactly as the
// registry holds them. Nothing is ever reported: failures answer false,
// nothing or the empty text.
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
    // Every value's name, whatever the length of the names and data before it.
    std::vector<RegText> getAllValues();
    RegText getValue(const RegText& name);
    std::uint32_t registryRootKey() const { return root_; }
    const std::string& subDirectory() const { return subKey_.text; }
    // All access unless told otherwise; the other view opens only where it
    // is a key of its own (see Registry::openKey).
    bool openRegistry(std::uint32_t root, const RegText& subKey, RegView view = RegView::Native,
                      RegAccess access = RegAccess::All);
    bool openRegistry(std::uint32_t root, const std::string& subKey, RegView view = RegView::Native,
                      RegAccess access = RegAccess::All) {
        return openRegistry(root, RegText(subKey), view, access);
    }
    // Removes the value `name` (never a key, whatever the name says); always false.
    bool deleteKey(const RegText& name);
    bool closeRegistry();

private:
    Registry& registry_;
    std::uint32_t root_ = 0;
    RegText subKey_;
    Registry::Key key_ = 0;
    bool open_ = false;
};

}  // namespace tv
