#include "base/numbers.h"

#include "base/RunTimeError.h"
#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <system_error>

namespace zorvo {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

/// Length of the number at the start of `text`: sign, digits with an optional point, exponent. 0 when none.
std::size_t numberLength(std::string_view text)
{
    std::size_t at = 0;
    if (at < text.size() && (text[at] == '+' || text[at] == '-'))
        ++at;
    std::size_t digits = 0;
    for (; at < text.size() && isDigit(text[at]); ++at)
        ++digits;
    if (at < text.size() && text[at] == '.') {
        ++at;
        for (; at < text.size() && isDigit(text[at]); ++at)
            ++digits;
    }
    if (digits == 0)
        return 0;
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        std::size_t exponent = at + 1;
        if (exponent < text.size() && (text[exponent] == '+' || text[exponent] == '-'))
            ++exponent;
        const std::size_t first = exponent;
        while (exponent < text.size() && isDigit(text[exponent]))
            ++exponent;
        if (exponent > first)
            at = exponent;
    }
    return at;
}

/// The number, which has a digit that isn't 0, is below 1.
bool isBelowOne(std::string_view number)
{
    const std::size_t exponentSign = number.find_first_of("eE");
    const std::string_view mantissa = number.substr(0, exponentSign);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t firstDigit = mantissa.find_first_of("123456789");
    // Places that the first digit stands in front of the point; below 1 behind it.
    double places = static_cast<double>(point) - static_cast<double>(firstDigit);
    if (exponentSign != std::string_view::npos) {
        double exponent = 0;
        for (const char c : number.substr(exponentSign + 1))
            exponent = isDigit(c) ? exponent * 10 + (c - '0') : exponent;
        places += number[exponentSign + 1] == '-' ? -exponent : exponent;
    }
    return places < 1;
}

double parse(std::string_view number)
{
    if (number.starts_with('+'))
        number.remove_prefix(1);
    double value = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), value);
    if (result.ec == std::errc::result_out_of_range) {
        // Too small reads as zero; too large is an overflow.
        if (isBelowOne(number))
            return 0;
        throw RunTimeError(kOverflow);
    }
    return value;
}

template <typename Whole>
Whole toWhole(std::string_view text)
{
    const double rounded = std::nearbyint(toDouble(text));
    if (rounded < static_cast<double>(std::numeric_limits<Whole>::min()) ||
        rounded > static_cast<double>(std::numeric_limits<Whole>::max()))
        throw RunTimeError(kOverflow);
    return static_cast<Whole>(rounded);
}

} // namespace

bool isNumeric(std::string_view text)
{
    const std::string trimmed = trimBlanks(text);
    return !trimmed.empty() && numberLength(trimmed) == trimmed.size();
}

double toDouble(std::string_view text)
{
    if (!isNumeric(text))
        throw RunTimeError(kTypeMismatch);
    return parse(trimBlanks(text));
}

std::int32_t toLong(std::string_view text)
{
    return toWhole<std::int32_t>(text);
}

std::int16_t toInteger(std::string_view text)
{
    return toWhole<std::int16_t>(text);
}

double leadingNumber(std::string_view text)
{
    const std::string trimmed = trimBlanks(text);
    const std::size_t length = numberLength(trimmed);
    return length == 0 ? 0 : parse(std::string_view(trimmed).substr(0, length));
}

std::string numberText(double number)
{
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.begin(), text.end(), number);
    return {text.begin(), written.ptr};
}

} // namespace zorvo
