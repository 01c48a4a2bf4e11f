#include "ui/settings_boxes.h"

#include "core/text.h"
#include "core/vb_number.h"

namespace tv::ui {

bool applyFlagList(const std::string& list, std::span<Control* const> boxes) {
    const auto parts = splitText(list, ",");
    for (std::size_t i = 0; i < parts.size() && i < boxes.size(); ++i) {
        const auto number = toInt16(parts[i]);
        if (!number) return false;
        boxes[i]->setValue(*number != 0 ? 1 : 0);
    }
    return true;
}

std::string joinValues(std::span<Control* const> boxes) {
    std::string list;
    for (const Control* box : boxes) {
        if (!list.empty()) list += ',';
        list += std::to_string(box->value());
    }
    return list;
}

}  // namespace tv::ui
