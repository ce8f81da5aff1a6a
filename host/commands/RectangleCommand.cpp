// RECTANG: a closed polyline with its sides along the axes, its corners maybe cut off or rounded.

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
};

// The bulge of a quarter circle.
const double QuarterBulge = std::tan(std::numbers::pi / 8);

std::vector<PolylineVertex> rectangle(const Point &from, const Point &to, const Corners &corners,
                                      const WorkPlane &plane)
{
    const double x[] = {from.x, to.x, to.x, from.x}, y[] = {from.y, from.y, to.y, to.y};
    const double turn = (to.x - from.x) * (to.y - from.y) < 0 ? -1 : 1;
    std::vector<PolylineVertex> vertices;
    const auto add = [&](double px, double py, double bulge) {
        vertices.push_back({plane.object({px, py, from.z}), corners.width, corners.width, bulge});
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

bool hasRoom(const Point &from, const Point &to, const Corners &corners)
{
    const double taken = corners.before + corners.after;
    return std::abs(to.x - from.x) >= taken && std::abs(to.y - from.y) >= taken;
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

Task<Point> otherCorner(Context &context, const Point first)
{
    const auto other = co_await context.ask().corner(
        {u"Specify other corner point or [Area/Dimensions/Rotation]: ", u"Dimensions", Enter::Refused, first});
    if (other.hasValue())
        co_return other.value;
    const auto length =
        co_await context.ask().distance({u"Specify length for rectangles: ", {}, Enter::Refused}, Nonzero);
    const auto width =
        co_await context.ask().distance({u"Specify width for rectangles: ", {}, Enter::Refused}, Nonzero);
    const auto side = co_await context.ask().point({u"Specify other corner point: ", {}, Enter::Refused});
    co_return Point{first.x + std::copysign(length.value, side.value.x - first.x),
                    first.y + std::copysign(width.value, side.value.y - first.y), first.z};
}

} // namespace

Command rectangle(Context &context)
{
    const WorkPlane plane(context.session());
    Corners corners;
    const Point first = co_await firstCorner(context, corners);
    const Point other = co_await otherCorner(context, first);
    if (other.x == first.x || other.y == first.y)
        throw CommandError{u"The corners must differ in both directions."};
    if (!hasRoom(first, other, corners))
        corners.kind = Corners::Kind::Sharp;
    corners.width = context.session().real(u"PLINEWID");
    addPolyline(context, plane, rectangle(first, other, corners, plane), Closing::Closed);
}

} // namespace commands
