// Points and angles: angle, distance, polar, inters. Points are lists of two or three numbers.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Direction.h"

#include <cmath>
#include <optional>

namespace lisp {

namespace {

struct Point
{
    double x = 0, y = 0, z = 0;
    bool hasZ = false;
};

Point pointOf(Value value)
{
    double coordinates[3] = {0, 0, 0};
    int count = 0;
    Value rest = value;
    for (; rest.isCons() && count < 3; rest = rest.asCons()->cdr, ++count) {
        if (!rest.asCons()->car.isNumber())
            badArgument(u"point:", value);
        coordinates[count] = rest.asCons()->car.asDouble();
    }
    if (count < 2 || rest.isTrue())
        badArgument(u"point:", value);
    return {coordinates[0], coordinates[1], coordinates[2], count == 3};
}

Value makePoint(Machine &machine, const Point &point)
{
    ListBuilder list(machine.heap());
    list.add(Value::canonicalReal(point.x));
    list.add(Value::canonicalReal(point.y));
    if (point.hasZ)
        list.add(Value::canonicalReal(point.z));
    return list.list();
}

Value angle(Machine &, Args arguments)
{
    const Point from = pointOf(arguments[0]), to = pointOf(arguments[1]);
    return Value::real(directionOf(to.x - from.x, to.y - from.y));
}

Value distance(Machine &, Args arguments)
{
    const Point from = pointOf(arguments[0]), to = pointOf(arguments[1]);
    const bool spatial = from.hasZ && to.hasZ; // a 2D point makes the distance a planar one
    return Value::canonicalReal(std::hypot(to.x - from.x, to.y - from.y, spatial ? to.z - from.z : 0.0));
}

Value polar(Machine &machine, Args arguments)
{
    Point point = pointOf(arguments[0]);
    const double direction = arguments.number(1), length = arguments.number(2);
    point.x += length * std::cos(direction);
    point.y += length * std::sin(direction);
    return makePoint(machine, point);
}

double dot(const Point &a, const Point &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Point cross(const Point &a, const Point &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Point difference(const Point &a, const Point &b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

// Where the lines from a to b and from c to d meet; onSegments: only within both.
std::optional<Point> intersection(const Point &a, const Point &b, const Point &c, const Point &d, bool onSegments)
{
    constexpr double Tolerance = 1e-10; // of the lines' own lengths
    const Point first = difference(b, a), second = difference(d, c), between = difference(c, a);
    const Point normal = cross(first, second);
    const double square = dot(normal, normal);
    const double scale = dot(first, first) * dot(second, second);
    if (square <= Tolerance * Tolerance * scale)
        return std::nullopt; // parallel
    if (std::fabs(dot(between, normal)) > 1e-8 * std::sqrt(square) * (1 + std::sqrt(dot(between, between))))
        return std::nullopt; // skew
    const double along = dot(cross(between, second), normal) / square;
    const double alongSecond = dot(cross(between, first), normal) / square;
    const auto outside = [](double part) { return part < -Tolerance || part > 1 + Tolerance; };
    if (onSegments && (outside(along) || outside(alongSecond)))
        return std::nullopt;
    return Point{a.x + along * first.x, a.y + along * first.y, a.z + along * first.z};
}

Value inters(Machine &machine, Args arguments)
{
    Point points[4];
    bool spatial = true;
    for (std::uint32_t i = 0; i < 4; ++i) {
        points[i] = pointOf(arguments[i]);
        spatial = spatial && points[i].hasZ;
    }
    for (Point &point : points)
        point.z = spatial ? point.z : 0.0;
    const bool onSegments = !arguments.has(4) || arguments[4].isTrue();
    std::optional<Point> result = intersection(points[0], points[1], points[2], points[3], onSegments);
    if (!result)
        return Value::nil();
    result->hasZ = spatial;
    return makePoint(machine, *result);
}

constexpr BuiltinRow rows[] = {
    {"angle", "(angle FROM TO)", "Gives the angle of the line between two points in radians.", angle},
    {"distance", "(distance FROM TO)", "Gives the distance of two points.", distance},
    {"polar", "(polar POINT ANGLE DISTANCE)", "Gives the point at an angle and a distance from a point.", polar},
    {"inters", "(inters FROM1 TO1 FROM2 TO2 [ONSEGMENTS])",
     "Gives the point where two lines meet; with nil as the last argument also outside of their ends.", inters},
};

} // namespace

std::span<const BuiltinRow> geometryBuiltins()
{
    return rows;
}

} // namespace lisp
