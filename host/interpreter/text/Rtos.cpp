#include "host/interpreter/text/LinearUnits.h"

#include "host/interpreter/text/RealText.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace lisp {

namespace {

constexpr int MaximumFractionPrecision = 8; // 1/256

// A length split for writing, all parts positive and rounded.
struct MixedNumber
{
    double whole;
    int numerator;
    int denominator;
};

MixedNumber roundedToFraction(double number, int precision)
{
    const int denominator = 1 << std::clamp(precision, 0, MaximumFractionPrecision);
    double whole = std::floor(number);
    int numerator = static_cast<int>(std::round((number - whole) * denominator));
    if (numerator == denominator) {
        whole += 1;
        numerator = 0;
    }
    const int divisor = std::gcd(numerator, denominator);
    return {whole, numerator / divisor, denominator / divisor};
}

// A whole number that is zero is left out before a fraction unless feet stand before it.
std::u16string mixedText(const MixedNumber &number, bool alwaysWhole, UnitStyle style)
{
    const std::u16string whole = fixedText(number.whole, 0);
    if (number.numerator == 0)
        return whole;
    const std::u16string fraction = fixedText(number.numerator, 0) + u"/" + fixedText(number.denominator, 0);
    if (number.whole == 0 && !alwaysWhole)
        return fraction;
    return whole + (style.unitMode == 0 ? u" " : u"-") + fraction;
}

bool showsZeroFeet(UnitStyle style)
{
    const int feetAndInches = style.zeroSuppression & 3;
    return feetAndInches == 1 || feetAndInches == 2;
}

bool showsZeroInches(UnitStyle style)
{
    const int feetAndInches = style.zeroSuppression & 3;
    return feetAndInches == 1 || feetAndInches == 3;
}

bool showsFeet(double feet, UnitStyle style)
{
    return feet > 0 || showsZeroFeet(style);
}

std::u16string feetAndInches(double feet, const std::u16string &inches, bool noInches, UnitStyle style)
{
    std::u16string text;
    if (showsFeet(feet, style)) {
        text = fixedText(feet, 0) + u"'";
        if (noInches && !showsZeroInches(style))
            return text;
        if (style.unitMode == 0)
            text += u'-';
    }
    return text + inches + u'"';
}

std::u16string engineeringText(double length, int precision, UnitStyle style)
{
    double inches = std::fmod(length, InchesPerFoot);
    double feet = std::round((length - inches) / InchesPerFoot);
    std::u16string text = fixedText(inches, precision);
    if (leadingReal(text) >= InchesPerFoot) {
        feet += 1;
        text = fixedText(0, precision);
    }
    const bool noInches = leadingReal(text) == 0;
    return feetAndInches(feet, withoutZeros(text, style.zeroSuppression), noInches, style);
}

std::u16string architecturalText(double length, int precision, UnitStyle style)
{
    MixedNumber inches = roundedToFraction(length, precision);
    const double feet = std::floor(inches.whole / InchesPerFoot);
    inches.whole = std::fmod(inches.whole, InchesPerFoot);
    const bool noInches = inches.whole == 0 && inches.numerator == 0;
    return feetAndInches(feet, mixedText(inches, showsFeet(feet, style), style), noInches, style);
}

std::u16string unsignedText(double number, LinearUnits mode, int precision, UnitStyle style)
{
    switch (mode) {
    case LinearUnits::Scientific:
        return scientificText(number, precision, style.zeroSuppression);
    case LinearUnits::Decimal:
        return withoutZeros(fixedText(number, precision), style.zeroSuppression);
    case LinearUnits::Engineering:
        return engineeringText(number, precision, style);
    case LinearUnits::Architectural:
        return architecturalText(number, precision, style);
    case LinearUnits::Fractional:
        return mixedText(roundedToFraction(number, precision), false, style);
    }
    return {};
}

} // namespace

std::optional<LinearUnits> linearUnits(int mode)
{
    if (mode < static_cast<int>(LinearUnits::Scientific) || mode > static_cast<int>(LinearUnits::Fractional))
        return std::nullopt;
    return static_cast<LinearUnits>(mode);
}

std::u16string rtos(double number, LinearUnits mode, int precision, UnitStyle style)
{
    if (!std::isfinite(number))
        return realText(number);
    const std::u16string text = unsignedText(std::fabs(number), mode, precision, style);
    // Without a digit other than 0 in front of an exponent nothing is left of the number, and of its sign.
    const bool isZero = text.substr(0, text.find(u'E')).find_first_of(u"123456789") == std::u16string::npos;
    return number < 0 && !isZero ? u"-" + text : text;
}

} // namespace lisp
