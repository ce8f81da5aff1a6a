#include "host/interpreter/text/AngularUnits.h"

#include "host/interpreter/text/AngularMeasure.h"
#include "host/interpreter/text/RealText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace lisp {

namespace {

constexpr std::int64_t SecondsPerDegree = 3600;
constexpr int SecondsPrecision = 4; // of minutes and seconds: whole seconds
constexpr int MaximumAngularPrecision = 8;

// The way through radians leaves 22.5 degrees a hair off; without this it would round to 22 or to 23 as it happens.
double cleaned(double measure)
{
    constexpr double Resolution = 1e10;
    return std::round(measure * Resolution) / Resolution;
}

double fromRadians(double angle, double unitsPerTurn)
{
    return cleaned(angle / FullTurn * unitsPerTurn);
}

std::u16string decimalAngle(double angle, double unitsPerTurn, int precision, UnitStyle style)
{
    std::u16string text = fixedText(fromRadians(angle, unitsPerTurn), precision);
    if (leadingReal(text) >= unitsPerTurn)
        text = fixedText(0, precision);
    return withoutZeros(text, style.zeroSuppression);
}

// Degrees as a whole number of the smallest seconds that the precision shows.
struct RoundedDegrees
{
    std::int64_t count;
    std::int64_t perSecond;

    bool is(std::int64_t degrees) const { return count == degrees * SecondsPerDegree * perSecond; }
};

RoundedDegrees roundedDegrees(double degrees, int precision)
{
    constexpr std::int64_t steps[] = {SecondsPerDegree, 600, 60, 10, 1}; // seconds
    const double seconds = cleaned(degrees) * SecondsPerDegree;
    if (precision <= SecondsPrecision) {
        const std::int64_t step = steps[precision];
        return {std::llround(seconds / static_cast<double>(step)) * step, 1};
    }
    std::int64_t perSecond = 1;
    for (int digit = SecondsPrecision; digit < precision; ++digit)
        perSecond *= 10;
    return {std::llround(seconds * static_cast<double>(perSecond)), perSecond};
}

std::u16string wholeText(std::int64_t number)
{
    return fixedText(static_cast<double>(number), 0);
}

std::u16string minutesAndSecondsText(const RoundedDegrees &angle, int precision, UnitStyle style)
{
    const std::int64_t perMinute = 60 * angle.perSecond;
    const std::int64_t perDegree = SecondsPerDegree * angle.perSecond;
    std::u16string text = wholeText(angle.count / perDegree) + u"d";
    if (precision >= 1)
        text += wholeText(angle.count % perDegree / perMinute) + u"'";
    if (precision >= 3) {
        const double seconds = static_cast<double>(angle.count % perMinute) / static_cast<double>(angle.perSecond);
        const int decimals = std::max(precision - SecondsPrecision, 0);
        text += withoutZeros(fixedText(seconds, decimals), style.zeroSuppression) + u"\"";
    }
    return text;
}

std::u16string degreesMinutesSeconds(double degrees, int precision, UnitStyle style)
{
    RoundedDegrees angle = roundedDegrees(degrees, precision);
    if (angle.is(360))
        angle.count = 0;
    return minutesAndSecondsText(angle, precision, style);
}

// From north or south toward east or west; a due direction is its letter alone.
std::u16string bearing(double degrees, int precision, UnitStyle style)
{
    const bool north = degrees < 180;
    const bool east = degrees < 90 || degrees >= 270;
    const double fromNorthSouth = std::fabs(degrees - (north ? 90 : 270));
    const RoundedDegrees angle = roundedDegrees(fromNorthSouth, precision);
    const std::u16string meridian = north ? u"N" : u"S", side = east ? u"E" : u"W";
    if (angle.is(0))
        return meridian;
    if (angle.is(90))
        return side;
    const std::u16string gap = style.unitMode == 0 ? u" " : u"";
    return meridian + gap + minutesAndSecondsText(angle, precision, style) + gap + side;
}

} // namespace

std::optional<AngularUnits> angularUnits(int mode)
{
    if (mode < static_cast<int>(AngularUnits::Degrees) || mode > static_cast<int>(AngularUnits::Surveyor))
        return std::nullopt;
    return static_cast<AngularUnits>(mode);
}

std::u16string angtos(double angle, AngularUnits units, int precision, UnitStyle style)
{
    if (!std::isfinite(angle))
        return realText(angle);
    precision = std::clamp(precision, 0, MaximumAngularPrecision);
    angle = withinTurn(angle);
    switch (units) {
    case AngularUnits::Degrees:
        return decimalAngle(angle, DegreesPerTurn, precision, style);
    case AngularUnits::DegreesMinutesSeconds:
        return degreesMinutesSeconds(fromRadians(angle, DegreesPerTurn), precision, style);
    case AngularUnits::Grads:
        return decimalAngle(angle, GradsPerTurn, precision, style) + u"g";
    case AngularUnits::Radians:
        return withoutZeros(fixedText(angle, precision), style.zeroSuppression) + u"r";
    case AngularUnits::Surveyor:
        return bearing(fromRadians(angle, DegreesPerTurn), precision, style);
    }
    return {};
}

} // namespace lisp
