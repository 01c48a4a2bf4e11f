#include "custom/custom_slots.h"

#include "core/settings_store.h"
#include "core/text.h"

namespace tv {

CustomSlot readSlot(const AppContext& ctx, int slot) {
    return {readIni(ctx, ctx.settFile, "path", slot), readIni(ctx, ctx.settFile, "args", slot),
            readIni(ctx, ctx.settFile, "args2", slot)};
}

bool joinsRun(const std::string& list) { return !list.empty() && list.back() == '1'; }

std::array<bool, 6> wantedGroups(const std::string& list) {
    std::array<bool, 6> wanted{};
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < wanted.size() && i < parts.size(); ++i) wanted[i] = parts[i] == "1";
    return wanted;
}

}  // namespace tv
