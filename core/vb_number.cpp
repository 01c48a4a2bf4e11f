#include "core/vb_number.h"

#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <limits>

#include "core/text.h"

namespace tv {
namespace {

std::optional<double> parseNumber(std::string_view raw) {
    const std::string text = trimBlanks(raw);
    std::size_t i = 0;
    bool negative = false;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) negative = text[i++] == '-';
    double whole = 0;
    bool digits = false;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i, digits = true)
        whole = whole * 10 + (text[i] - '0');
    double fraction = 0, scale = 1;
    if (i < text.size() && text[i] == '.') {
        for (++i; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i, digits = true)
            fraction += (text[i] - '0') * (scale /= 10);
    }
    if (!digits || i != text.size()) return std::nullopt;
    const double value = std::nearbyint(whole + fraction);  // default rounding: half to even
    return negative ? -value : value;
}

template <class Int>
std::optional<Int> toInt(std::string_view text) {
    const auto value = parseNumber(text);
    if (!value || *value < std::numeric_limits<Int>::min() || *value > std::numeric_limits<Int>::max())
        return std::nullopt;
    return static_cast<Int>(*value);
}

}  // namespace

std::optional<std::int32_t> toInt32(std::string_view text) { return toInt<std::int32_t>(text); }

std::optional<double> toNumber(std::string_view text) {
    const std::string trimmed = trimBlanks(text);
    std::size_t i = 0;
    bool digits = false;
    if (i < trimmed.size() && (trimmed[i] == '+' || trimmed[i] == '-')) ++i;
    for (; i < trimmed.size() && std::isdigit(static_cast<unsigned char>(trimmed[i])); ++i) digits = true;
    if (i < trimmed.size() && trimmed[i] == '.')
        for (++i; i < trimmed.size() && std::isdigit(static_cast<unsigned char>(trimmed[i])); ++i) digits = true;
    if (!digits || i != trimmed.size()) return std::nullopt;
    return std::strtod(trimmed.c_str(), nullptr);
}

std::optional<std::int16_t> roundToInt16(double value) {
    const double rounded = std::nearbyint(value);
    if (!(rounded >= std::numeric_limits<std::int16_t>::min() && rounded <= std::numeric_limits<std::int16_t>::max()))
        return std::nullopt;
    return static_cast<std::int16_t>(rounded);
}
std::optional<std::int16_t> toInt16(std::string_view text) { return toInt<std::int16_t>(text); }

std::string singleText(float value) {
    if (value == 0) return "0";  // also for -0
    char text[32];
    const auto written = std::to_chars(text, text + sizeof text, value, std::chars_format::general, 7);
    std::string result(text, written.ptr);
    for (char& c : result)
        if (c == 'e') c = 'E';
    return result;
}

}  // namespace tv
