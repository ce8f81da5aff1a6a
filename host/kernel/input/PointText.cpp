#include "host/kernel/input/PointText.h"

#include "host/interpreter/text/AngularUnits.h"
#include "host/interpreter/text/LinearUnits.h"

#include <cmath>
#include <numbers>

namespace {

std::u16string_view trimmed(std::u16string_view text)
{
    while (!text.empty() && text.front() == u' ')
        text.remove_prefix(1);
    while (!text.empty() && text.back() == u' ')
        text.remove_suffix(1);
    return text;
}

std::optional<LispPoint> polarFromText(std::u16string_view text, std::size_t mark, const CoordinateContext &context)
{
    const std::optional<double> distance = distanceFromText(text.substr(0, mark), context);
    const std::optional<double> angle = angleFromText(text.substr(mark + 1), context);
    if (!distance || !angle)
        return std::nullopt;
    const double direction = directionOf(*angle, context);
    return LispPoint{*distance * std::cos(direction), *distance * std::sin(direction), 0};
}

std::optional<LispPoint> cartesianFromText(std::u16string_view text, const CoordinateContext &context)
{
    double coordinates[3] = {0, 0, 0};
    int count = 0;
    for (;;) {
        const std::size_t comma = std::min(text.find(u','), text.size());
        const std::optional<double> coordinate = distanceFromText(text.substr(0, comma), context);
        if (!coordinate || count == 3)
            return std::nullopt;
        coordinates[count++] = *coordinate;
        if (comma == text.size())
            break;
        text.remove_prefix(comma + 1);
    }
    if (count < 2)
        return std::nullopt;
    return LispPoint{coordinates[0], coordinates[1], coordinates[2]};
}

} // namespace

std::optional<LispPoint> pointFromText(std::u16string_view text, const CoordinateContext &context)
{
    text = trimmed(text);
    if (text == u"@")
        return context.lastPoint;
    const bool isRelative = !text.empty() && text.front() == u'@';
    if (isRelative || (!text.empty() && (text.front() == u'*' || text.front() == u'#')))
        text.remove_prefix(1);
    const std::size_t mark = text.find(u'<');
    std::optional<LispPoint> point =
        mark == text.npos ? cartesianFromText(text, context) : polarFromText(text, mark, context);
    if (point && isRelative)
        *point = {context.lastPoint.x + point->x, context.lastPoint.y + point->y, context.lastPoint.z + point->z};
    return point;
}

std::optional<double> distanceFromText(std::u16string_view text, const CoordinateContext &context)
{
    const lisp::LinearUnits units = lisp::linearUnits(context.units.lunits).value_or(lisp::LinearUnits::Decimal);
    return lisp::distof(trimmed(text), units);
}

std::optional<double> angleFromText(std::u16string_view text, const CoordinateContext &context)
{
    text = trimmed(text);
    const bool isNegative = !text.empty() && text.front() == u'-';
    if (isNegative)
        text.remove_prefix(1);
    const lisp::AngularUnits units = lisp::angularUnits(context.units.aunits).value_or(lisp::AngularUnits::Degrees);
    std::optional<double> angle = lisp::angtof(text, units);
    if (angle && isNegative)
        *angle = -*angle;
    return angle;
}

double directionOf(double typedAngle, const CoordinateContext &context)
{
    constexpr double FullTurn = 2 * std::numbers::pi;
    const double direction = std::fmod(context.angleBase + (context.clockwise ? -typedAngle : typedAngle), FullTurn);
    return direction < 0 ? direction + FullTurn : direction;
}
