#include "host/interpreter/text/RealText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace lisp {

namespace {

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isSign(char16_t unit)
{
    return unit == u'+' || unit == u'-';
}

// How much of a text each part of a number takes.
struct NumberShape
{
    std::size_t integerEnd = 0; // sign and digits before the point
    std::size_t end = 0;        // 0: no number
    bool isInteger = false;
};

std::size_t skipDigits(std::u16string_view text, std::size_t from)
{
    while (from < text.size() && isDigit(text[from]))
        ++from;
    return from;
}

// An exponent counts only with digits, so that "1e" is not a number with something missing.
std::size_t skipExponent(std::u16string_view text, std::size_t from)
{
    if (from == text.size() || (text[from] != u'e' && text[from] != u'E'))
        return from;
    std::size_t digits = from + 1;
    if (digits < text.size() && isSign(text[digits]))
        ++digits;
    const std::size_t end = skipDigits(text, digits);
    return end == digits ? from : end;
}

NumberShape shapeOf(std::u16string_view text)
{
    const std::size_t start = !text.empty() && isSign(text[0]) ? 1 : 0;
    NumberShape shape;
    shape.integerEnd = skipDigits(text, start);
    std::size_t digits = shape.integerEnd - start;
    std::size_t end = shape.integerEnd;
    if (end < text.size() && text[end] == u'.') {
        const std::size_t fractionEnd = skipDigits(text, end + 1);
        digits += fractionEnd - end - 1;
        end = fractionEnd;
    }
    if (digits == 0)
        return {};
    shape.end = skipExponent(text, end);
    shape.isInteger = shape.end == shape.integerEnd;
    return shape;
}

// The decimal exponent of the first digit that is not 0; only its sign matters to the caller.
long long magnitude(std::string_view digits)
{
    const std::size_t exponentAt = std::min(digits.find_first_of("eE"), digits.size());
    long long exponent = 0;
    if (exponentAt < digits.size()) {
        const std::string_view text = digits.substr(exponentAt + 1);
        const std::string_view unsignedText = text.substr(text[0] == '+' ? 1 : 0);
        const auto scanned = std::from_chars(unsignedText.data(), unsignedText.data() + unsignedText.size(), exponent);
        if (scanned.ec != std::errc())
            exponent = text[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    const std::size_t point = std::min(digits.substr(0, exponentAt).find('.'), exponentAt);
    const std::size_t first = std::min(digits.find_first_of("123456789"), exponentAt);
    return exponent + static_cast<long long>(point) - static_cast<long long>(first);
}

// The text has the shape of a number.
double realFrom(std::u16string_view text)
{
    std::string digits(text.begin(), text.end());
    const bool negative = digits[0] == '-';
    if (isSign(text[0]))
        digits.erase(0, 1);
    double value = 0.0;
    const auto scanned = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (scanned.ec == std::errc::result_out_of_range)
        value = magnitude(digits) > 0 ? std::numeric_limits<double>::infinity() : 0.0;
    return negative ? -value : value;
}

std::optional<std::int32_t> integerFrom(std::u16string_view text)
{
    constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max();
    std::int64_t value = 0;
    for (const char16_t unit : text.substr(isSign(text[0]) ? 1 : 0)) {
        value = value * 10 + (unit - u'0');
        if (value > Largest)
            return std::nullopt;
    }
    return static_cast<std::int32_t>(text[0] == u'-' ? -value : value);
}

std::u16string_view withoutLeadingBlanks(std::u16string_view text)
{
    return text.substr(std::min(text.find_first_not_of(u" \t\n\v\f\r"), text.size()));
}

} // namespace

std::u16string realText(double number)
{
    std::array<char, 32> buffer;
    const auto written = std::to_chars(buffer.begin(), buffer.end(), number, std::chars_format::general, 6);
    std::u16string text(buffer.begin(), written.ptr);
    if (std::isfinite(number) && text.find(u'.') == std::u16string::npos)
        text.insert(std::min(text.find(u'e'), text.size()), u".0");
    return text;
}

std::optional<Number> scanNumber(std::u16string_view token)
{
    const NumberShape shape = shapeOf(token);
    if (shape.end == 0 || shape.end != token.size())
        return std::nullopt;
    if (shape.isInteger)
        if (const std::optional<std::int32_t> integer = integerFrom(token))
            return *integer;
    return realFrom(token);
}

ScannedReal scanReal(std::u16string_view text)
{
    const NumberShape shape = shapeOf(text);
    if (shape.end == 0)
        return {};
    return {realFrom(text.substr(0, shape.end)), shape.end};
}

std::int32_t leadingInteger(std::u16string_view text)
{
    const std::u16string_view digits = withoutLeadingBlanks(text);
    const NumberShape shape = shapeOf(digits);
    if (shape.integerEnd == 0 || !isDigit(digits[shape.integerEnd - 1]))
        return 0;
    if (const std::optional<std::int32_t> integer = integerFrom(digits.substr(0, shape.integerEnd)))
        return *integer;
    return digits[0] == u'-' ? std::numeric_limits<std::int32_t>::min() : std::numeric_limits<std::int32_t>::max();
}

double leadingReal(std::u16string_view text)
{
    return scanReal(withoutLeadingBlanks(text)).value;
}

} // namespace lisp
