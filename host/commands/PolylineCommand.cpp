// PLINE: lines and arcs that hang together, each with its width at both ends.

#include "host/commands/Commands.h"
#include "host/commands/NewEntity.h"

#include <cmath>
#include <numbers>

namespace commands {

namespace {

// One vertex as it is typed, in user coordinates; what it says of its segment is for the one that begins there.
struct TypedVertex
{
    Point place;
    double startWidth = 0, endWidth = 0, bulge = 0;
    double endDirection = 0; // of the segment before it
};

class TypedPolyline
{
public:
    TypedPolyline(Context &context, const Point &start, double width)
        : m_context(context), m_plane(context.session()), m_startWidth(width), m_endWidth(width)
    {
        m_vertices.push_back({start});
    }

    const Point &last() const { return m_vertices.back().place; }
    double direction() const { return m_vertices.back().endDirection; }
    bool hasSegments() const { return m_vertices.size() > 1; }

    void addSegment(const Point &end, double bulge)
    {
        TypedVertex &start = m_vertices.back();
        start.startWidth = m_startWidth;
        start.endWidth = m_endWidth;
        start.bulge = bulge;
        const double chord = std::atan2(end.y - start.place.y, end.x - start.place.x);
        m_vertices.push_back({end, 0, 0, 0, chord + 2 * std::atan(bulge)});
        m_startWidth = m_endWidth;
    }
    void removeSegment()
    {
        if (hasSegments())
            m_vertices.pop_back();
    }
    void setWidths(double start, double end)
    {
        m_startWidth = start;
        m_endWidth = end;
    }
    double startWidth() const { return m_startWidth; }
    double endWidth() const { return m_endWidth; }

    // The bulge of the arc that goes on smoothly from the last segment.
    double tangentBulge(const Point &end) const { return bulgeFrom(direction(), end); }
    double bulgeFrom(double direction, const Point &end) const
    {
        const double chord = std::atan2(end.y - last().y, end.x - last().x);
        return std::tan(std::remainder(chord - direction, geometry::FullTurn) / 2);
    }

    void finish(Closing closing, double closingBulge)
    {
        if (!hasSegments())
            return;
        TypedVertex &back = m_vertices.back();
        if (closing == Closing::Closed) {
            back.startWidth = m_startWidth;
            back.endWidth = m_endWidth;
            back.bulge = closingBulge;
        }
        std::vector<PolylineVertex> vertices;
        for (const TypedVertex &vertex : m_vertices)
            vertices.push_back({m_plane.object(vertex.place), vertex.startWidth, vertex.endWidth, vertex.bulge});
        addPolyline(m_context, m_plane, vertices, closing);
        rememberItsEnd(closing, closingBulge);
        m_context.session().assign(u"PLINEWID", m_endWidth);
    }

private:
    void rememberItsEnd(Closing closing, double closingBulge) const
    {
        const bool isClosed = closing == Closing::Closed;
        const Point &end = isClosed ? m_vertices.front().place : last();
        const double closingDirection = std::atan2(end.y - last().y, end.x - last().x) + 2 * std::atan(closingBulge);
        const double bulge = isClosed ? closingBulge : m_vertices[m_vertices.size() - 2].bulge;
        rememberEnd(m_context, m_plane, end, isClosed ? closingDirection : direction(),
                    bulge != 0 ? Shape::Curved : Shape::Straight);
    }

    Context &m_context;
    WorkPlane m_plane;
    std::vector<TypedVertex> m_vertices;
    double m_startWidth, m_endWidth;
};

Command askWidths(Context &context, TypedPolyline &polyline, double factor)
{
    const auto start =
        co_await context.ask().distance({factor == 1 ? u"Specify starting width: " : u"Specify starting half-width: ",
                                         {},
                                         Enter::Allowed,
                                         polyline.last()},
                                        NotNegative);
    const double startWidth = start.hasValue() ? start.value * factor : polyline.startWidth();
    const auto end = co_await context.ask().distance(
        {factor == 1 ? u"Specify ending width: " : u"Specify ending half-width: ", {}, Enter::Allowed, polyline.last()},
        NotNegative);
    polyline.setWidths(startWidth, end.hasValue() ? end.value * factor : startWidth);
}

Command askLength(Context &context, TypedPolyline &polyline)
{
    const auto length =
        co_await context.ask().distance({u"Specify length of line: ", {}, Enter::Refused, polyline.last()});
    const Point from = polyline.last();
    polyline.addSegment({from.x + length.value * std::cos(polyline.direction()),
                         from.y + length.value * std::sin(polyline.direction()), from.z},
                        0);
}

// Half of the included angle that an arc about a centre has from one point to another, counter-clockwise.
double halfAngleAbout(const Point &centre, const Point &from, const Point &to)
{
    double angle = std::atan2(to.y - centre.y, to.x - centre.x) - std::atan2(from.y - centre.y, from.x - centre.x);
    if (angle <= 0)
        angle += geometry::FullTurn;
    return angle / 2;
}

// Through a second point: the angle at it, between the chords, is half of what the rest of the circle sees.
double bulgeThrough(const Point &from, const Point &through, const Point &to)
{
    const double first = std::atan2(from.y - through.y, from.x - through.x);
    const double second = std::atan2(to.y - through.y, to.x - through.x);
    const double inner = std::remainder(first - second, geometry::FullTurn);
    return inner == 0 ? 0 : std::tan((std::numbers::pi * (inner < 0 ? -1 : 1) - inner) / 2);
}

Command askArcByAngle(Context &context, TypedPolyline &polyline)
{
    const auto angle = co_await context.ask().angle({u"Specify included angle: ", {}, Enter::Refused}, Nonzero);
    const auto end = co_await context.ask().point({u"Specify endpoint of arc: ", {}, Enter::Refused});
    polyline.addSegment(end.value, std::tan(std::remainder(angle.value, 2 * geometry::FullTurn) / 4));
}

Command askArcByCentre(Context &context, TypedPolyline &polyline)
{
    const auto centre = co_await context.ask().point({u"Specify center point of arc: ", {}, Enter::Refused});
    const auto end =
        co_await context.ask().point({u"Specify endpoint of arc or [Angle/Length]: ", u"Angle", Enter::Refused});
    if (end.hasValue()) {
        const double half = halfAngleAbout(centre.value, polyline.last(), end.value);
        polyline.addSegment(end.value, std::tan(half / 2));
        co_return;
    }
    const auto angle = co_await context.ask().angle({u"Specify included angle: ", {}, Enter::Refused}, Nonzero);
    const Point from = polyline.last(), about = centre.value;
    const double c = std::cos(angle.value), s = std::sin(angle.value);
    const double x = from.x - about.x, y = from.y - about.y;
    polyline.addSegment({about.x + c * x - s * y, about.y + s * x + c * y, from.z}, std::tan(angle.value / 4));
}

Command askArcByDirection(Context &context, TypedPolyline &polyline)
{
    const auto direction = co_await context.ask().direction(
        {u"Specify the tangent direction for the start point of arc: ", {}, Enter::Refused, polyline.last()});
    const auto end = co_await context.ask().point({u"Specify endpoint of the arc: ", {}, Enter::Refused});
    polyline.addSegment(end.value, polyline.bulgeFrom(direction.value, end.value));
}

Command askArcThrough(Context &context, TypedPolyline &polyline)
{
    const auto through = co_await context.ask().point({u"Specify second point on arc: ", {}, Enter::Refused});
    const auto end = co_await context.ask().point({u"Specify end point of arc: ", {}, Enter::Refused});
    polyline.addSegment(end.value, bulgeThrough(polyline.last(), through.value, end.value));
}

Command askArcByRadius(Context &context, TypedPolyline &polyline)
{
    const auto radius = co_await context.ask().distance({u"Specify radius of arc: ", {}, Enter::Refused}, Nonzero);
    const auto end = co_await context.ask().point({u"Specify endpoint of arc: ", {}, Enter::Refused});
    const Point from = polyline.last();
    const double half = std::hypot(end.value.x - from.x, end.value.y - from.y) / 2;
    if (std::abs(radius.value) < half) { // no reason to lose what is drawn so far
        context.session().print(u"\nThe arc does not exist.\n");
        co_return;
    }
    const double bulge = std::tan(std::asin(half / std::abs(radius.value)) / 2);
    polyline.addSegment(end.value, std::copysign(bulge, polyline.tangentBulge(end.value)));
}

enum class Segments { Lines, Arcs };

constexpr std::u16string_view LinePrompt = u"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: ";
constexpr std::u16string_view ArcPrompt =
    u"Specify endpoint of arc or "
    u"[Angle/CEnter/CLose/Direction/Halfwidth/Line/Radius/Second pt/Undo/Width]: ";

} // namespace

Command polyline(Context &context)
{
    const auto start = co_await context.ask().point({u"Specify start point: "});
    const Point first = start.hasValue() ? start.value : context.session().point(u"LASTPOINT");
    const double width = context.session().real(u"PLINEWID");
    context.say(u"Current line-width is " + context.session().distanceText(width));
    TypedPolyline polyline(context, first, width);
    Segments segments = Segments::Lines;
    for (;;) {
        const bool isLine = segments == Segments::Lines;
        const auto next = co_await context.ask().point(
            {isLine ? LinePrompt : ArcPrompt,
             isLine ? u"Arc Close Halfwidth Length Undo Width"
                    : u"Angle CEnter CLose Direction Halfwidth Line Radius Second Undo Width",
             Enter::Allowed, polyline.last()});
        if (next.hasValue())
            polyline.addSegment(next.value, isLine ? 0 : polyline.tangentBulge(next.value));
        else if (next.isNothing())
            co_return polyline.finish(Closing::Open, 0);
        else if (next.is(u"Close"))
            co_return polyline.finish(Closing::Closed, 0);
        else if (next.is(u"CLose"))
            co_return polyline.finish(Closing::Closed, polyline.tangentBulge(first));
        else if (next.is(u"Arc") || next.is(u"Line"))
            segments = next.is(u"Arc") ? Segments::Arcs : Segments::Lines;
        else if (next.is(u"Undo"))
            polyline.removeSegment();
        else if (next.is(u"Width"))
            co_await askWidths(context, polyline, 1);
        else if (next.is(u"Halfwidth"))
            co_await askWidths(context, polyline, 2);
        else if (next.is(u"Length"))
            co_await askLength(context, polyline);
        else if (next.is(u"Angle"))
            co_await askArcByAngle(context, polyline);
        else if (next.is(u"CEnter"))
            co_await askArcByCentre(context, polyline);
        else if (next.is(u"Direction"))
            co_await askArcByDirection(context, polyline);
        else if (next.is(u"Second"))
            co_await askArcThrough(context, polyline);
        else
            co_await askArcByRadius(context, polyline);
    }
}

} // namespace commands
