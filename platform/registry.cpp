#include "platform/registry.h"

namespace tv {
namespace {

void appendUtf16(std::u16string& out, const RegText& part) {
    if (!part.spelledExactly()) {
        out += part.exact;
        return;
    }
    for (const char c : part.text) out += static_cast<char16_t>(static_cast<unsigned char>(c));
}

}  // namespace

RegText joinedRegText(const RegText& front, std::string_view separator, const RegText& back) {
    RegText joined(front.text + std::string(separator) + back.text);
    if (front.spelledExactly() && back.spelledExactly()) return joined;
    appendUtf16(joined.exact, front);
    appendUtf16(joined.exact, RegText(std::string(separator)));
    appendUtf16(joined.exact, back);
    return joined;
}

}  // namespace tv
