#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Numbers in texts: blanks around, an optional sign, digits with an optional point, an optional exponent.
/// No currency, thousands or hexadecimal forms, and never the locale's.
namespace zorvo {

bool isNumeric(std::string_view text);

/// Throws RunTimeError 13 when the text is not numeric, 6 when it is past the range of a double.
double toDouble(std::string_view text);
/// A fraction rounds half to even. Throws 13 when not numeric, 6 past the range.
std::int32_t toLong(std::string_view text);
std::int16_t toInteger(std::string_view text);

/// The number that the text begins with, 0 when it begins with none: "11.0" is 11, "16 beta" is 16.
double leadingNumber(std::string_view text);

/// The shortest text that reads as the same number: 8 is "8", 8.9 is "8.9".
std::string numberText(double number);

} // namespace zorvo
