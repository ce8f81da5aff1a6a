#include "host/interpreter/text/AngularUnits.h"

#include "host/interpreter/text/AngularMeasure.h"
#include "host/interpreter/text/TextCursor.h"

#include <cmath>

namespace lisp {

namespace {

// Minutes or seconds before their mark, which may be left out at the end of the text.
std::optional<double> takeSixtieths(TextCursor &cursor, char16_t mark)
{
    cursor.skipBlanks();
    const std::u16string_view start = cursor.rest();
    const std::optional<double> number = cursor.takeReal();
    if (number && *number < 60 && (cursor.take(mark) || cursor.atEnd()))
        return number;
    cursor.goBack(start);
    return std::nullopt;
}

double takeMinutesAndSeconds(TextCursor &cursor)
{
    const double minutes = takeSixtieths(cursor, u'\'').value_or(0.0);
    const double seconds = takeSixtieths(cursor, u'"').value_or(0.0);
    return minutes / 60 + seconds / 3600;
}

std::optional<double> takeDegrees(TextCursor &cursor)
{
    std::optional<double> degrees = cursor.takeReal();
    if (degrees && cursor.take(u'D'))
        *degrees += takeMinutesAndSeconds(cursor);
    return degrees;
}

// "45d30'" before its E or W, counted from the meridian that has been taken.
std::optional<double> takeBearing(TextCursor &cursor, bool north)
{
    cursor.skipBlanks();
    if (cursor.atEnd())
        return north ? 90.0 : 270.0;
    const std::optional<double> degrees = takeDegrees(cursor);
    cursor.skipBlanks();
    const char16_t side = cursor.takeAny(u"EW");
    if (!degrees || *degrees > 90 || side == 0)
        return std::nullopt;
    const bool towardLargerAngles = north == (side == u'W');
    return (north ? 90.0 : 270.0) + (towardLargerAngles ? *degrees : -*degrees);
}

double toRadians(double measure, double unitsPerTurn)
{
    return measure / unitsPerTurn * FullTurn;
}

std::optional<double> takeAngle(TextCursor &cursor, AngularUnits units)
{
    const std::optional<double> number = cursor.takeReal();
    if (!number)
        return std::nullopt;
    switch (cursor.takeAny(u"DGR")) {
    case u'D':
        return toRadians(*number + takeMinutesAndSeconds(cursor), DegreesPerTurn);
    case u'G':
        return toRadians(*number, GradsPerTurn);
    case u'R':
        return *number;
    default:
        break;
    }
    if (units == AngularUnits::Radians)
        return *number;
    return toRadians(*number, units == AngularUnits::Grads ? GradsPerTurn : DegreesPerTurn);
}

std::optional<double> takeDirection(TextCursor &cursor, AngularUnits units)
{
    if (const char16_t side = cursor.takeAny(u"EW"))
        return side == u'E' ? 0.0 : FullTurn / 2;
    if (const char16_t meridian = cursor.takeAny(u"NS")) {
        const std::optional<double> degrees = takeBearing(cursor, meridian == u'N');
        return degrees ? std::optional(toRadians(*degrees, DegreesPerTurn)) : std::nullopt;
    }
    const bool negative = cursor.takeAny(u"+-") == u'-';
    const std::optional<double> angle = takeAngle(cursor, units);
    return angle && negative ? std::optional(-*angle) : angle;
}

} // namespace

std::optional<double> angtof(std::u16string_view text, AngularUnits units)
{
    TextCursor cursor(text);
    const std::optional<double> angle = takeDirection(cursor, units);
    if (!angle || !cursor.atEnd() || !std::isfinite(*angle))
        return std::nullopt;
    return withinTurn(*angle);
}

} // namespace lisp
