#include "platform/win32/pictures.h"

#include <functional>
#include <map>

namespace tv::win32 {
namespace {

using Painter = std::function<void(HDC, const RECT&)>;

const std::map<std::string, Painter>& painters() {
    static const std::map<std::string, Painter> all{};
    return all;
}

}  // namespace

bool drawPicture(const DRAWITEMSTRUCT& item, const std::string& name) {
    const auto found = painters().find(name);
    if (found == painters().end()) return false;
    found->second(item.hDC, item.rcItem);
    return true;
}

}  // namespace tv::win32
