#include "host/drawing/dimensions/MeasuredAngle.h"

#include <cmath>

namespace drawing {

using geometry::counterclockwise;
using geometry::FullTurn;
using geometry::Vector;

namespace {

double angleTo(const Vector &vertex, const Vector &place)
{
    return std::atan2(place.y - vertex.y, place.x - vertex.x);
}

double crossed(const Vector &a, const Vector &b)
{
    return a.x * b.y - a.y * b.x;
}

std::optional<Vector> crossing(const MeasuredLine &first, const MeasuredLine &second)
{
    constexpr double Rounding = 1e-9;
    const Vector along = first.end - first.start, other = second.end - second.start;
    const double area = crossed(along, other);
    if (std::abs(area) <= Rounding * length(along) * length(other))
        return std::nullopt;
    return first.start + along * (crossed(second.start - first.start, other) / area);
}

AngleSide sideOf(const MeasuredLine &line, const Vector &vertex, double direction)
{
    const Vector along{std::cos(direction), std::sin(direction), 0};
    const double start = dot(line.start - vertex, along), end = dot(line.end - vertex, along);
    return {direction, std::min(start, end), std::max(start, end)};
}

} // namespace

std::optional<MeasuredAngle> angleBetween(const MeasuredLine &first, const MeasuredLine &second, const Vector &onArc)
{
    const std::optional<Vector> vertex = crossing(first, second);
    if (!vertex)
        return std::nullopt;
    // Each line gives one of the two directions that the arc runs between: of its two that which is ahead of the place
    // by less than half a turn, or the one behind it.
    const double place = angleTo(*vertex, onArc);
    const double firstAngle = angleTo(first.start, first.end), secondAngle = angleTo(second.start, second.end);
    const auto ahead = [place](double angle) { return std::fmod(counterclockwise(place, angle), FullTurn / 2); };
    const bool startsAtFirst = ahead(secondAngle) < ahead(firstAngle);
    const double end = place + std::min(ahead(firstAngle), ahead(secondAngle));
    const double start = place + std::max(ahead(firstAngle), ahead(secondAngle)) - FullTurn / 2;
    return MeasuredAngle{*vertex,
                         std::hypot(onArc.x - vertex->x, onArc.y - vertex->y),
                         start,
                         end - start,
                         sideOf(first, *vertex, startsAtFirst ? start : end),
                         sideOf(second, *vertex, startsAtFirst ? end : start)};
}

MeasuredAngle angleAbout(const Vector &vertex, const Vector &first, const Vector &second, const Vector &onArc)
{
    const double firstAngle = angleTo(vertex, first), secondAngle = angleTo(vertex, second);
    const double sweep = counterclockwise(firstAngle, secondAngle);
    const bool startsAtFirst = counterclockwise(firstAngle, angleTo(vertex, onArc)) <= sweep;
    const double firstLength = std::hypot(first.x - vertex.x, first.y - vertex.y);
    const double secondLength = std::hypot(second.x - vertex.x, second.y - vertex.y);
    return {vertex,
            std::hypot(onArc.x - vertex.x, onArc.y - vertex.y),
            startsAtFirst ? firstAngle : secondAngle,
            startsAtFirst ? sweep : FullTurn - sweep,
            {firstAngle, firstLength, firstLength},
            {secondAngle, secondLength, secondLength}};
}

} // namespace drawing
