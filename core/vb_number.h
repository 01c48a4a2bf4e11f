// Conversion of a settings value to a number the way the program has always
// read them: blanks around the number are allowed, a fraction is rounded half to
// even, and text that is no number, or a number out of range, is a failure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace tv {

std::optional<std::int32_t> toInt32(std::string_view text);
std::optional<std::int16_t> toInt16(std::string_view text);

// A number in text as it stands (blanks allowed); nullopt for text that is none.
std::optional<double> toNumber(std::string_view text);

// A value rounded half to even into 16 bits; nullopt when it does not fit.
std::optional<std::int16_t> roundToInt16(double value);

// A single-precision number as the program writes it into a text: at most seven
// significant digits without trailing zeros, a leading "0" before the point,
// and the exponent form ("1E-05", "1.234568E+07") for very small and very
// large values. The decimal sign is a point.
std::string singleText(float value);

}  // namespace tv
