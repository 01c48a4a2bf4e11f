#include "custom/custom_slots.h"

#include <algorithm>

#include "core/settings_store.h"
#include "core/text.h"

namespace tv {

CustomSlot readSlot(const AppContext& ctx, int slot) {
    return {readIni(ctx, ctx.settFile, "path", slot), readIni(ctx, ctx.settFile, "args", slot),
            readIni(ctx, ctx.settFile, "args2", slot)};
}

bool joinsRun(const std::string& list) { return !list.empty() && list.back() == '1'; }

std::array<bool, 7> splitPositions(const std::string& list) {
    std::array<bool, 7> ticked{};
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < ticked.size() && i < parts.size(); ++i) ticked[i] = parts[i] == "1";
    return ticked;
}

std::array<bool, 6> wantedGroups(const std::string& list) {
    const auto positions = splitPositions(list);
    std::array<bool, 6> wanted{};
    std::copy_n(positions.begin(), wanted.size(), wanted.begin());
    return wanted;
}

}  // namespace tv
