// HATCH: boundaries of four kinds of edges, and the lines of a pattern.
#include "host/drawing/geometry/PlanePolyline.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

enum class EdgeType { None, Line, CircularArc, EllipticArc, Spline };

// One edge as its groups say; which they are depends on the type.
struct EdgeGroups
{
    EdgeType type = EdgeType::None;
    Vector first, second; // 10 and 11: ends, or centre and end of the major axis
    double ratio = 1;     // 40: radius, or of the axes
    double start = 0, end = 360;
    bool isCounterclockwise = true;
    Nurbs nurbs;
    std::vector<Vector> fitPoints;
    std::optional<Vector> startTangent, endTangent;
};

// The angles of elliptic edges are those of the places as seen from the centre.
double parameterAt(double angle, double ratio)
{
    return ratio > 0 ? std::atan2(std::sin(angle) / ratio, std::cos(angle)) : angle;
}

enum class Angles { Seen, Parameters };

Curve arcOf(const EdgeGroups &edge, Angles angles = Angles::Seen)
{
    const bool isCircular = edge.type == EdgeType::CircularArc;
    const Vector cosineAxis = isCircular ? Vector{edge.ratio, 0, 0} : edge.second;
    const Vector sineAxis = Vector{-cosineAxis.y, cosineAxis.x, 0} * (isCircular ? 1 : edge.ratio);
    // Clockwise edges have their angles measured clockwise too.
    const auto parameter = [&](double degrees) {
        const bool isSeen = !isCircular && angles == Angles::Seen;
        return isSeen ? parameterAt(radians(degrees), edge.ratio) : radians(degrees);
    };
    const double start = reducedAngle(parameter(edge.start)), sweep = counterclockwise(start, parameter(edge.end));
    return EllipticArc{edge.first, cosineAxis, edge.isCounterclockwise ? sineAxis : -sineAxis, start, start + sweep};
}

std::optional<Curve> curveOf(const EdgeGroups &edge)
{
    switch (edge.type) {
    case EdgeType::Line:
        return Line{edge.first, edge.second};
    case EdgeType::CircularArc:
    case EdgeType::EllipticArc:
        return arcOf(edge);
    case EdgeType::Spline:
        return usableSpline(edge.nurbs, edge.fitPoints, edge.startTangent, edge.endTangent);
    case EdgeType::None:
        break;
    }
    return std::nullopt;
}

void setSplineValue(EdgeGroups &edge, const Item &item)
{
    if (item.code == 94)
        edge.nurbs.degree = static_cast<int>(std::clamp<std::int64_t>(item.integer, 0, 1000));
    else if (item.code == 40)
        edge.nurbs.knots.push_back(item.real);
    else if (item.code == 42)
        edge.nurbs.weights.push_back(item.real);
    else if (item.code == 10)
        edge.nurbs.points.push_back(vectorOf(item.point));
    else if (item.code == 11)
        edge.fitPoints.push_back(vectorOf(item.point));
    else if (item.code == 12)
        edge.startTangent = vectorOf(item.point);
    else if (item.code == 13)
        edge.endTangent = vectorOf(item.point);
}

void setEdgeValue(EdgeGroups &edge, const Item &item)
{
    if (edge.type == EdgeType::Spline)
        setSplineValue(edge, item);
    else if (item.code == 10)
        edge.first = vectorOf(item.point);
    else if (item.code == 11)
        edge.second = vectorOf(item.point);
    else if (item.code == 40)
        edge.ratio = item.real;
    else if (item.code == 50)
        edge.start = item.real;
    else if (item.code == 51)
        edge.end = item.real;
    else if (item.code == 73)
        edge.isCounterclockwise = item.integer != 0;
}

double distance(const Vector &a, const Vector &b)
{
    return length(a - b);
}

// How far the ends of an edge are from its neighbours in the loop, whichever way round these are.
double gapAt(const Area::Loop &loop, std::size_t place, const Curve &edge)
{
    const Curve &before = loop[(place + loop.size() - 1) % loop.size()], &after = loop[(place + 1) % loop.size()];
    const auto gap = [](const Vector &end, const Curve &curve) {
        return std::min(distance(end, startOf(curve)), distance(end, endOf(curve)));
    };
    return std::min(gap(startOf(edge), before) + gap(endOf(edge), after),
                    gap(endOf(edge), before) + gap(startOf(edge), after));
}

// Turns edges round so that each begins where the one before ends: files hold them either way.
void orient(Area::Loop &loop)
{
    if (loop.size() > 1) {
        const Vector start = startOf(loop[1]), end = endOf(loop[1]), first = startOf(loop[0]), last = endOf(loop[0]);
        if (std::min(distance(first, start), distance(first, end)) <
            std::min(distance(last, start), distance(last, end)))
            loop[0] = reversed(loop[0]);
    }
    for (std::size_t i = 1; i < loop.size(); ++i) {
        const Vector before = endOf(loop[i - 1]);
        if (distance(before, endOf(loop[i])) < distance(before, startOf(loop[i])))
            loop[i] = reversed(loop[i]);
    }
}

// Takes the groups in their order, which is what gives most of them their meaning.
class HatchGroups
{
public:
    void take(const Item &item)
    {
        if (item.code == code::Extrusion)
            m_extrusion = vectorOf(item.point);
        else if (item.code == 92)
            beginPath(item.integer);
        else if (item.code == 75 || item.code == 76 || item.code == 98) // behind the boundaries
            endPath();
        else if (m_part == Part::Polyline)
            takePolyline(item);
        else if (m_part == Part::Edges)
            takeEdge(item);
        else
            takeOther(item);
    }
    Area area()
    {
        endPath();
        const Matrix plane = Matrix::ofExtrusion(m_extrusion) * Matrix::translation({0, 0, m_elevation});
        for (Area::Loop &loop : m_area.loops)
            for (Curve &curve : loop)
                curve = transformed(curve, plane);
        for (PatternLine &line : m_area.pattern) {
            line.base = plane.place(line.base);
            line.direction = plane.direction(line.direction);
            line.offset = plane.direction(line.offset);
        }
        if (m_area.isFilled)
            m_area.pattern.clear();
        return std::move(m_area);
    }

private:
    enum class Part { Other, Polyline, Edges };

    void beginPath(std::int64_t flags)
    {
        constexpr std::int64_t IsPolyline = 2;
        endPath();
        m_part = (flags & IsPolyline) != 0 ? Part::Polyline : Part::Edges;
    }
    void endPath()
    {
        endEdge();
        const std::vector<PlanePolyline::Vertex> vertices = std::exchange(m_vertices, {});
        for (std::size_t i = 0; i < vertices.size(); ++i)
            m_loop.push_back(segment(vertices[i].place, vertices[(i + 1) % vertices.size()].place, vertices[i].bulge));
        chooseAngles();
        if (m_part == Part::Edges)
            orient(m_loop);
        if (!m_loop.empty())
            m_area.loops.push_back(std::exchange(m_loop, {}));
        m_part = Part::Other;
    }
    void endEdge()
    {
        const auto curve = curveOf(m_edge);
        if (curve && m_edge.type == EdgeType::EllipticArc)
            m_otherArcs.emplace_back(m_loop.size(), arcOf(m_edge, Angles::Parameters));
        if (curve)
            m_loop.push_back(*curve);
        m_edge = {};
    }
    // Some programs write an ellipse's parameters as the angles of its edges. Only with them the loop then closes.
    void chooseAngles()
    {
        constexpr double MuchCloser = 0.01;
        for (const auto &[place, arc] : std::exchange(m_otherArcs, {}))
            if (m_loop.size() > 1 && gapAt(m_loop, place, arc) < MuchCloser * gapAt(m_loop, place, m_loop[place]))
                m_loop[place] = arc;
    }
    void takePolyline(const Item &item)
    {
        if (item.code == 10)
            m_vertices.push_back({vectorOf(item.point), 0, 0, 0});
        else if (item.code == 42 && !m_vertices.empty())
            m_vertices.back().bulge = item.real;
    }
    void takeEdge(const Item &item)
    {
        if (item.code == 72) {
            endEdge();
            m_edge.type = item.integer >= 1 && item.integer <= 4 ? static_cast<EdgeType>(item.integer) : EdgeType::None;
        } else {
            setEdgeValue(m_edge, item);
        }
    }
    void takeOther(const Item &item)
    {
        if (item.code == 10 && m_area.loops.empty()) // later: seed points
            m_elevation = item.point.z;
        else if (item.code == 70)
            m_area.isFilled = item.integer != 0;
        else if (item.code == 450)
            m_area.isFilled = m_area.isFilled || item.integer != 0; // a gradient
        else if (item.code == 53)
            m_area.pattern.push_back({{}, {std::cos(radians(item.real)), std::sin(radians(item.real)), 0}, {}, {}});
        else if (!m_area.pattern.empty())
            takePattern(m_area.pattern.back(), item);
    }
    static void takePattern(PatternLine &line, const Item &item)
    {
        if (item.code == 43)
            line.base.x = item.real;
        else if (item.code == 44)
            line.base.y = item.real;
        else if (item.code == 45)
            line.offset.x = item.real;
        else if (item.code == 46)
            line.offset.y = item.real;
        else if (item.code == 49)
            line.dashes.push_back(item.real);
    }

    Area m_area{{}, false, false, {}, {}};
    Vector m_extrusion{0, 0, 1};
    double m_elevation = 0;
    Part m_part = Part::Other;
    Area::Loop m_loop;
    std::vector<PlanePolyline::Vertex> m_vertices;
    EdgeGroups m_edge;
    std::vector<std::pair<std::size_t, Curve>> m_otherArcs; // places in the loop, and what may stand there too
};

} // namespace

void hatchShapes(ShapeWalk &walk, RecordId id)
{
    HatchGroups groups;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        groups.take(item);
    walk.area(groups.area());
}

} // namespace geometry
