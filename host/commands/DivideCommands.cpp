// DIVIDE and MEASURE: points or blocks along a curve.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/edit/CentreLine.h"
#include "host/drawing/edit/Ruler.h"
#include "host/drawing/entities/EntityPlace.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::pointGroup;
using drawing::Ruler;
using drawing::textGroup;
using drawing::groupcode::FirstX;

namespace {

constexpr int MostSegments = 32767;
constexpr double Rounding = 1e-9;

// What marks the places; without a name it is a point.
struct Marker
{
    std::u16string block;
    bool isAligned = false; // turned as the curve runs
};

Task<Marker> askBlock(Context &context)
{
    Marker marker;
    const auto name = co_await context.ask().string({u"Enter name of block to insert: ", {}, Enter::Refused});
    const RecordId block = findRecord(context, drawing::known::Block, name.value);
    if (block == drawing::NoRecord || drawing::isSpaceBlock(context.database(), name.value))
        throw CommandError{u"Cannot find block \"" + name.value + u"\"."};
    marker.block = context.database().name(block);
    const auto aligns = co_await context.ask().keyword({u"Align block with object? [Yes/No] <Y>: ", u"Yes No"});
    marker.isAligned = !aligns.is(u"No");
    co_return marker;
}

GroupList pointAt(Context &context, const WorkPlane &plane, const Ruler::Mark &mark)
{
    GroupList groups = newEntity(context, u"POINT");
    groups.push_back(pointGroup(FirstX, mark.place));
    extrude(context, plane, groups);
    return groups;
}

GroupList insertAt(Context &context, const WorkPlane &plane, const Ruler::Mark &mark, const Marker &marker)
{
    constexpr int RotationCode = 50, ExtrusionCode = 210;
    const Point place = plane.user(mark.place), ahead = plane.user(mark.place + mark.ahead);
    const double angle = marker.isAligned ? std::atan2(ahead.y - place.y, ahead.x - place.x) : 0;
    GroupList groups = newEntity(context, u"INSERT");
    groups.push_back(textGroup(drawing::groupcode::Name, marker.block));
    groups.push_back(pointGroup(FirstX, plane.object(place)));
    groups.push_back(drawing::realGroup(RotationCode, degrees(plane.objectAngle(angle))));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(ExtrusionCode, plane.normal()));
    return groups;
}

// "Previous" is what was added.
void addMarks(Context &context, const Ruler &ruler, const std::vector<double> &distances, const Marker &marker)
{
    const WorkPlane plane(context.session());
    Selection added;
    for (const double distance : distances) {
        context.session().pulse();
        const Ruler::Mark mark = ruler.at(distance);
        added.push_back(addEntity(context, marker.block.empty() ? pointAt(context, plane, mark)
                                                                : insertAt(context, plane, mark, marker)));
    }
    if (!added.empty())
        context.session().setPreviousSelection(added);
}

// Of an open curve the ends are no places.
std::vector<double> dividing(const Ruler &ruler, int segments)
{
    std::vector<double> distances;
    for (int index = ruler.isClosed() ? 0 : 1; index < segments; ++index)
        distances.push_back(ruler.length() * index / segments);
    return distances;
}

std::vector<double> measuring(const Ruler &ruler, double step)
{
    const double count = std::floor(ruler.length() / step + Rounding);
    if (count > MostSegments)
        throw CommandError{u"The segments are too short."};
    std::vector<double> distances;
    for (int index = 1; index <= static_cast<int>(count); ++index)
        distances.push_back(std::min(step * index, ruler.length()));
    return distances;
}

std::vector<geometry::Curve> curvesOf(Context &context, RecordId entity)
{
    std::vector<geometry::Curve> curves = drawing::centreLine(context.drawing(), entity);
    if (curves.empty() || !(Ruler(curves).length() > 0))
        throw CommandError{u"Cannot divide or measure that object."};
    return curves;
}

// An open curve is measured from the end that is nearer to where it was picked.
Ruler rulerFrom(std::vector<geometry::Curve> curves, const std::optional<Vector> &picked)
{
    const Ruler ruler(curves);
    const auto distance = [&](const Vector &end) { return geometry::length(end - *picked); };
    if (!picked || ruler.isClosed() || distance(startOf(curves.front())) <= distance(endOf(curves.back())))
        return ruler;
    std::ranges::reverse(curves);
    for (geometry::Curve &curve : curves)
        curve = reversed(curve);
    return Ruler(curves);
}

} // namespace

Command divide(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select object to divide: ", {}, Enter::Refused});
    const Ruler ruler(curvesOf(context, picked.value.entity));
    constexpr Range Segments{2, MostSegments};
    Marker marker;
    auto segments = co_await context.ask().integer(
        {u"Enter the number of segments or [Block]: ", u"Block", Enter::Refused}, Segments);
    if (segments.is(u"Block")) {
        marker = co_await askBlock(context);
        segments = co_await context.ask().integer({u"Enter the number of segments: ", {}, Enter::Refused}, Segments);
    }
    addMarks(context, ruler, dividing(ruler, segments.value), marker);
}

Command measure(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select object to measure: ", {}, Enter::Refused});
    const WorkPlane plane(context.session());
    std::optional<Vector> place;
    if (picked.value.at)
        place = plane.world(*picked.value.at);
    const Ruler ruler = rulerFrom(curvesOf(context, picked.value.entity), place);
    Marker marker;
    auto step = co_await context.ask().distance({u"Specify length of segment or [Block]: ", u"Block", Enter::Refused},
                                                Positive);
    if (step.is(u"Block")) {
        marker = co_await askBlock(context);
        step = co_await context.ask().distance({u"Specify length of segment: ", {}, Enter::Refused}, Positive);
    }
    addMarks(context, ruler, measuring(ruler, step.value), marker);
}

} // namespace commands
