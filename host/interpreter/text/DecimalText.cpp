#include "host/interpreter/text/DecimalText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace lisp {

namespace {

// Only a multiple of 1/2^(decimals + 1) that is no multiple of twice that lies exactly between two decimals.
bool isHalfWay(double number, int decimals)
{
    return std::fmod(std::ldexp(std::fabs(number), decimals + 1), 2.0) == 1.0;
}

int limited(int decimals)
{
    return std::clamp(decimals, 0, MaximumDecimals);
}

std::u16string converted(double number, std::chars_format format, int decimals)
{
    std::array<char, std::numeric_limits<double>::max_exponent10 + MaximumDecimals + 8> buffer;
    const auto written = std::to_chars(buffer.begin(), buffer.end(), number, format, decimals);
    return {buffer.begin(), written.ptr};
}

} // namespace

std::u16string fixedText(double number, int decimals)
{
    decimals = limited(decimals);
    if (isHalfWay(number, decimals))
        number = std::nextafter(number, std::copysign(std::numeric_limits<double>::infinity(), number));
    std::u16string text = converted(number, std::chars_format::fixed, decimals);
    if (text[0] == u'-' && text.find_first_not_of(u"-0.") == std::u16string::npos)
        text.erase(0, 1);
    return text;
}

std::u16string scientificText(double number, int decimals, int zeroSuppression)
{
    const std::u16string text = converted(number, std::chars_format::scientific, limited(decimals));
    const std::size_t exponent = std::min(text.find(u'e'), text.size());
    std::u16string result = withoutZeros(text.substr(0, exponent), zeroSuppression);
    if (exponent < text.size())
        result.append(u"E").append(text, exponent + 1);
    return result;
}

std::u16string withoutZeros(std::u16string text, int zeroSuppression)
{
    const std::size_t point = text.find(u'.');
    if ((zeroSuppression & 8) && point != std::u16string::npos) {
        text.erase(text.find_last_not_of(u'0') + 1);
        if (text.back() == u'.')
            text.pop_back();
    }
    const std::size_t start = text[0] == u'-' ? 1 : 0;
    if ((zeroSuppression & 4) && text[start] == u'0' && start + 1 < text.size() && text[start + 1] == u'.')
        text.erase(start, 1);
    return text;
}

} // namespace lisp
