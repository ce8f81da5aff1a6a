// Things whose points lie anywhere in space, whatever the work plane: straight polylines, faces, splines.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

#include "host/drawing/edit/CurveWay.h"
#include "host/drawing/geometry/Bezier.h"

#include <array>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::groupcode::FirstX;

namespace {

constexpr int FlagsCode = 70;
constexpr std::size_t PointsOfALoop = 3; // the fewest that can be closed

// What is typed point after point.
class TypedPath
{
public:
    TypedPath(Context &context, const Point &start) : m_context(context), m_points{start} {}

    std::size_t size() const { return m_points.size(); }
    const Point &last() const { return m_points.back(); }
    void add(const Point &point) { m_points.push_back(point); }
    void close() { m_points.push_back(m_points.front()); }
    void removeLast()
    {
        if (m_points.size() > 1)
            m_points.pop_back();
        m_context.session().assign(u"LASTPOINT", m_points.back());
    }
    std::vector<Vector> inWorld(const WorkPlane &plane) const
    {
        std::vector<Vector> places;
        for (const Point &point : m_points)
            places.push_back(plane.world(point));
        return places;
    }

private:
    Context &m_context;
    std::vector<Point> m_points;
};

void addSpatialPolyline(Context &context, const std::vector<Vector> &places, Closing closing)
{
    constexpr int FollowCode = 66;
    constexpr std::int64_t ClosedFlag = 1, SpatialFlag = 8, SpatialVertexFlag = 32;
    drawing::GroupList groups = newEntity(context, u"POLYLINE");
    groups.push_back(integerGroup(FollowCode, 1));
    groups.push_back(pointGroup(FirstX, {}));
    groups.push_back(integerGroup(FlagsCode, SpatialFlag | (closing == Closing::Closed ? ClosedFlag : 0)));
    const RecordId added = addEntity(context, groups);
    for (const Vector &place : places) {
        drawing::GroupList vertex = newEntity(context, u"VERTEX");
        vertex.push_back(pointGroup(FirstX, place));
        vertex.push_back(integerGroup(FlagsCode, SpatialVertexFlag));
        addPart(context, added, vertex);
    }
    addPart(context, added, newEntity(context, u"SEQEND"));
}

// A corner of a face; whether the edge that begins there is hidden.
struct Corner
{
    Vector place;
    bool hidesEdge = false;
};

// None: Enter.
Task<std::optional<Corner>> askCorner(Context &context, const std::u16string prompt, Enter enter)
{
    const WorkPlane plane(context.session());
    bool hidesEdge = false;
    for (;;) {
        const auto corner = co_await context.ask().point({prompt, u"Invisible", enter});
        if (corner.isNothing())
            co_return std::nullopt;
        if (corner.hasValue())
            co_return Corner{plane.world(corner.value), hidesEdge};
        hidesEdge = true;
    }
}

void addFace(Context &context, const std::array<Corner, 4> &corners)
{
    drawing::GroupList groups = newEntity(context, u"3DFACE");
    std::int64_t hidden = 0;
    for (int corner = 0; corner < 4; ++corner) {
        const Corner &each = corners[static_cast<std::size_t>(corner)];
        groups.push_back(pointGroup(FirstX + corner, each.place));
        hidden |= each.hidesEdge ? std::int64_t{1} << corner : 0;
    }
    groups.push_back(integerGroup(FlagsCode, hidden));
    addEntity(context, groups);
}

// In the direction from the end of the spline to the point; none: Enter, or the end itself.
Task<std::optional<Vector>> askTangent(Context &context, const std::u16string prompt, const Point end)
{
    const WorkPlane plane(context.session());
    const auto towards = co_await context.ask().point({prompt, {}, Enter::Allowed, end});
    if (towards.isNothing() || towards.value == end)
        co_return std::nullopt;
    co_return plane.world(towards.value) - plane.world(end);
}

void addSpline(Context &context, const std::vector<Vector> &places, const std::optional<Vector> &startTangent,
               const std::optional<Vector> &endTangent)
{
    const geometry::Nurbs nurbs = geometry::splineThrough(places, startTangent, endTangent);
    addEntity(context, drawing::splineGroups(newEntity(context, u"SPLINE"), nurbs));
}

} // namespace

Command spatialPolyline(Context &context)
{
    const auto start = co_await context.ask().point({u"Specify start point of polyline: ", {}, Enter::Refused});
    TypedPath path(context, start.value);
    for (;;) {
        const std::u16string prompt = path.size() < PointsOfALoop ? u"Specify endpoint of line or [Undo]: "
                                                                  : u"Specify endpoint of line or [Close/Undo]: ";
        const auto next = co_await context.ask().point({prompt, u"Close Undo", Enter::Allowed, path.last()});
        if (next.hasValue())
            path.add(next.value);
        else if (next.is(u"Undo"))
            path.removeLast();
        else if (next.isNothing() || path.size() >= PointsOfALoop) {
            if (path.size() > 1)
                addSpatialPolyline(context, path.inWorld(WorkPlane(context.session())),
                                   next.isNothing() ? Closing::Open : Closing::Closed);
            co_return;
        }
    }
}

// The last two corners of a face are the first two of the next.
Command face(Context &context)
{
    const auto first = co_await askCorner(context, u"Specify first point or [Invisible]: ", Enter::Refused);
    const auto second = co_await askCorner(context, u"Specify second point or [Invisible]: ", Enter::Refused);
    std::array<Corner, 4> corners{*first, *second};
    for (;;) {
        const auto third = co_await askCorner(context, u"Specify third point or [Invisible] <exit>: ", Enter::Allowed);
        if (!third)
            co_return;
        const auto fourth = co_await askCorner(
            context, u"Specify fourth point or [Invisible] <create three-sided face>: ", Enter::Allowed);
        corners[2] = *third;
        corners[3] = fourth.value_or(Corner{third->place});
        addFace(context, corners);
        corners[0] = corners[2];
        corners[1] = corners[3];
    }
}

// Enter for a tangent leaves that end free.
Command spline(Context &context)
{
    const auto first = co_await context.ask().point({u"Specify first point: ", {}, Enter::Refused});
    TypedPath path(context, first.value);
    bool isClosed = false;
    for (bool isEnded = false; !isEnded;) {
        const std::u16string prompt = path.size() < 2 ? u"Specify next point or [Undo]: "
                                                      : u"Specify next point or [Close/Undo] <start tangent>: ";
        const auto next = co_await context.ask().point({prompt, u"Close Undo", Enter::Allowed, path.last()});
        if (next.hasValue())
            path.add(next.value);
        else if (next.is(u"Undo"))
            path.removeLast();
        else {
            isClosed = next.is(u"Close") && path.size() >= PointsOfALoop;
            isEnded = isClosed || (next.isNothing() && path.size() > 1);
        }
    }
    if (isClosed) { // smooth where it meets itself
        path.close();
        const auto tangent = co_await askTangent(context, u"Specify tangent: ", path.last());
        const std::vector<Vector> places = path.inWorld(WorkPlane(context.session()));
        const Vector direction = tangent.value_or(places[1] - places[places.size() - 2]);
        addSpline(context, places, direction, direction);
        co_return;
    }
    const auto startTangent = co_await askTangent(context, u"Specify start tangent: ", first.value);
    const auto endTangent = co_await askTangent(context, u"Specify end tangent: ", path.last());
    addSpline(context, path.inWorld(WorkPlane(context.session())), startTangent, endTangent);
}

} // namespace commands
