#include "platform/win32/code_page_text.h"

#include "platform/win32/win32_base.h"

namespace tv::win32 {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

std::string codePageText(std::u16string_view units) {
    if (units.empty()) return {};
    const auto* wide = reinterpret_cast<const wchar_t*>(units.data());
    const int length = static_cast<int>(units.size());
    const int count = ::WideCharToMultiByte(CP_ACP, 0, wide, length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(count), '\0');
    ::WideCharToMultiByte(CP_ACP, 0, wide, length, text.data(), count, nullptr, nullptr);
    return text;
}

std::u16string utf16Text(std::string_view text) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int count = ::MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::u16string units(static_cast<std::size_t>(count), u'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text.data(), length, reinterpret_cast<wchar_t*>(units.data()), count);
    return units;
}

std::wstring wideText(std::string_view text) {
    const std::u16string units = utf16Text(text);
    return std::wstring(units.begin(), units.end());
}

bool spellsBack(std::string_view spelling, std::u16string_view units) { return utf16Text(spelling) == units; }

}  // namespace tv::win32
