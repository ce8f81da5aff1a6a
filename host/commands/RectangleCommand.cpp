// RECTANG: a closed polyline with four right angles, its corners maybe cut off or rounded.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

#include <cmath>

namespace commands {

namespace {

struct Corners
{
    enum class Kind { Sharp, Chamfered, Rounded };

    Kind kind = Kind::Sharp;
    double before = 0, after = 0; // how much of the sides a corner takes
    double width = 0;

    double areaTaken() const // of the four together
    {
        if (kind == Kind::Rounded)
            return (4 - std::numbers::pi) * before * before;
        return 2 * before * after;
    }
};

// Two opposite corners, in axes that are turned by the rotation.
struct Sides
{
    Point from, to;
    double rotation = 0; // radians
};

Point turned(const Point &point, double angle)
{
    const Vector place = geometry::Matrix::rotation(angle).place(geometry::vectorOf(point));
    return {place.x, place.y, place.z};
}

// The bulge of a quarter circle.
const double QuarterBulge = std::tan(std::numbers::pi / 8);

std::vector<PolylineVertex> rectangle(const Sides &sides, const Corners &corners, const WorkPlane &plane)
{
    const Point &from = sides.from, &to = sides.to;
    const double x[] = {from.x, to.x, to.x, from.x}, y[] = {from.y, from.y, to.y, to.y};
    const double turn = (to.x - from.x) * (to.y - from.y) < 0 ? -1 : 1;
    std::vector<PolylineVertex> vertices;
    const auto add = [&](double px, double py, double bulge) {
        const Point place = turned({px, py, from.z}, sides.rotation);
        vertices.push_back({plane.object(place), corners.width, corners.width, bulge});
    };
    for (int corner = 0; corner < 4; ++corner) {
        const int previous = (corner + 3) % 4, next = (corner + 1) % 4;
        if (corners.kind == Corners::Kind::Sharp) {
            add(x[corner], y[corner], 0);
            continue;
        }
        const double back = std::hypot(x[previous] - x[corner], y[previous] - y[corner]);
        const double ahead = std::hypot(x[next] - x[corner], y[next] - y[corner]);
        const double bulge = corners.kind == Corners::Kind::Rounded ? turn * QuarterBulge : 0;
        add(x[corner] + (x[previous] - x[corner]) / back * corners.before,
            y[corner] + (y[previous] - y[corner]) / back * corners.before, bulge);
        add(x[corner] + (x[next] - x[corner]) / ahead * corners.after,
            y[corner] + (y[next] - y[corner]) / ahead * corners.after, 0);
    }
    return vertices;
}

bool hasRoom(double length, double width, const Corners &corners)
{
    const double taken = corners.before + corners.after;
    return std::abs(length) >= taken && std::abs(width) >= taken;
}

// The distances are asked for one after the other; Enter takes none, or the same again.
Command askChamfer(Context &context, Corners &corners)
{
    const auto before = co_await context.ask().distance({u"Specify first chamfer distance: "}, NotNegative);
    const auto after = co_await context.ask().distance({u"Specify second chamfer distance: "}, NotNegative);
    corners.before = before.value;
    corners.after = after.hasValue() ? after.value : before.value;
    corners.kind = corners.before + corners.after > 0 ? Corners::Kind::Chamfered : Corners::Kind::Sharp;
}

Command askFillet(Context &context, Corners &corners)
{
    const auto radius = co_await context.ask().distance({u"Specify fillet radius for rectangles: "}, NotNegative);
    corners.before = corners.after = radius.value;
    corners.kind = radius.value > 0 ? Corners::Kind::Rounded : Corners::Kind::Sharp;
}

Command askSetting(Context &context, std::u16string_view variable)
{
    const Limits limits = variable == u"PLINEWID" ? NotNegative : Limits{};
    const auto value = co_await context.ask().distance({u"Specify the new value: "}, limits);
    if (value.hasValue())
        context.session().assign(variable, value.value);
}

Task<Point> firstCorner(Context &context, Corners &corners)
{
    for (;;) {
        const auto first =
            co_await context.ask().point({u"Specify first corner point or [Chamfer/Elevation/Fillet/Thickness/Width]: ",
                                          u"Chamfer Elevation Fillet Thickness Width", Enter::Refused});
        if (first.hasValue())
            co_return first.value;
        if (first.is(u"Chamfer"))
            co_await askChamfer(context, corners);
        else if (first.is(u"Fillet"))
            co_await askFillet(context, corners);
        else
            co_await askSetting(context, first.is(u"Width")       ? u"PLINEWID"
                                         : first.is(u"Thickness") ? u"THICKNESS"
                                                                  : u"ELEVATION");
    }
}

Task<double> askRotation(Context &context, const Point first)
{
    auto angle = co_await context.ask().direction(
        {u"Specify rotation angle or [Pick points] <0>: ", u"Pick", Enter::Allowed, first});
    if (angle.is(u"Pick"))
        angle = co_await context.ask().direction({u"Specify first point: ", {}, Enter::Refused});
    co_return angle.value;
}

// What the corners take is no part of the area, unless they do not fit and stay sharp.
double otherSide(double area, double side, const Corners &corners)
{
    const double other = (area + corners.areaTaken()) / side;
    return hasRoom(side, other, corners) ? other : area / side;
}

// Length and width, of which one follows from the area.
Task<Vector> askArea(Context &context, const Corners &corners)
{
    const auto area = co_await context.ask().distance({u"Enter area of rectangle: ", {}, Enter::Refused}, Positive);
    const auto given = co_await context.ask().keyword(
        {u"Calculate rectangle dimensions based on [Length/Width] <Length>: ", u"Length Width"});
    const bool givesWidth = given.is(u"Width");
    const auto side = co_await context.ask().distance(
        {givesWidth ? u"Enter rectangle width: " : u"Enter rectangle length: ", {}, Enter::Refused}, Positive);
    const double other = otherSide(area.value, side.value, corners);
    co_return givesWidth ? Vector{other, side.value, 0} : Vector{side.value, other, 0};
}

// The point says on which sides of the first corner the rectangle lies.
Task<Vector> askDimensions(Context &context, const Point from, const double rotation)
{
    const auto length =
        co_await context.ask().distance({u"Specify length for rectangles: ", {}, Enter::Refused}, Nonzero);
    const auto width =
        co_await context.ask().distance({u"Specify width for rectangles: ", {}, Enter::Refused}, Nonzero);
    const auto side = co_await context.ask().point({u"Specify other corner point: ", {}, Enter::Refused});
    const Point towards = turned(side.value, -rotation);
    co_return Vector{std::copysign(length.value, towards.x - from.x), std::copysign(width.value, towards.y - from.y),
                     0};
}

Task<Sides> askSides(Context &context, const Point first, const Corners &corners)
{
    double rotation = 0;
    for (;;) {
        const auto other = co_await context.ask().corner({u"Specify other corner point or [Area/Dimensions/Rotation]: ",
                                                          u"Area Dimensions Rotation", Enter::Refused, first});
        if (other.is(u"Rotation")) {
            rotation = co_await askRotation(context, first);
            continue;
        }
        const Point from = turned(first, -rotation);
        if (other.hasValue())
            co_return Sides{from, turned(other.value, -rotation), rotation};
        Vector size;
        if (other.is(u"Area"))
            size = co_await askArea(context, corners);
        else
            size = co_await askDimensions(context, from, rotation);
        co_return Sides{from, {from.x + size.x, from.y + size.y, from.z}, rotation};
    }
}

} // namespace

Command rectangle(Context &context)
{
    const WorkPlane plane(context.session());
    Corners corners;
    const Point first = co_await firstCorner(context, corners);
    const Sides sides = co_await askSides(context, first, corners);
    const double length = sides.to.x - sides.from.x, width = sides.to.y - sides.from.y;
    if (length == 0 || width == 0)
        throw CommandError{u"The corners must differ in both directions."};
    if (!hasRoom(length, width, corners))
        corners.kind = Corners::Kind::Sharp;
    corners.width = context.session().real(u"PLINEWID");
    addPolyline(context, plane, rectangle(sides, corners, plane), Closing::Closed);
}

} // namespace commands
