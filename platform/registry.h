// The system's registry calls, one for one, with the buffers their callers
// give. Results are the system's own numbers (0 for success); buffers come
// back as the call left them, so that the rules on top live with the caller.
#pragma once

#include <cstdint>
#include <string>

namespace tv {

namespace hive {
inline constexpr std::uint32_t ClassesRoot = 0x80000000;
inline constexpr std::uint32_t CurrentUser = 0x80000001;
inline constexpr std::uint32_t LocalMachine = 0x80000002;
}  // namespace hive

class Registry {
public:
    using Key = std::uintptr_t;  // an open key's handle as a number; 0 for none
    virtual ~Registry() = default;

    // Opens `subKey` of `root` with all access (0xF003F) into `key`; on failure
    // `key` becomes 0, as the system leaves the handle, so that no stale
    // handle is used afterwards.
    virtual long openKey(std::uint32_t root, const std::string& subKey, Key& key) = 0;
    // The name of sub-key number `index`, written into `buffer`, whose length is the size offered.
    virtual long enumKey(Key key, std::uint32_t index, std::string& buffer) = 0;
    // The name and data of value number `index`, offering only `nameSize` and
    // `dataSize` bytes of the buffers.
    virtual long enumValue(Key key, std::uint32_t index, std::string& name, std::uint32_t nameSize, std::string& data,
                           std::uint32_t dataSize) = 0;
    // The value `name` into `buffer` (its length is the size offered); its type
    // and the size the call reports.
    virtual long queryValue(Key key, const std::string& name, std::string& buffer, std::uint32_t& type,
                            std::uint32_t& size) = 0;
    virtual long deleteValue(Key key, const std::string& name) = 0;
    virtual long closeKey(Key key) = 0;
};

}  // namespace tv
