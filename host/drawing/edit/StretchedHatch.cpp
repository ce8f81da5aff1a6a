#include "host/drawing/edit/StretchedHatch.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PlaneMap.h"
#include "host/drawing/edit/RoleTransform.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

enum Code : int {
    PlaceCode = 10,
    SecondCode = 11,
    SizeCode = 40, // the radius of an arc, the ratio of an ellipse's axes
    BulgeCode = 42,
    StartCode = 50,
    EndCode = 51,
    EdgeTypeCode = 72,
    DirectionCode = 73, // of a polyline whether it is closed
    StyleCode = 75,
    PathCountCode = 91,
    PathTypeCode = 92,
    EdgeCountCode = 93,
    SourceCountCode = 97,
    SeedCountCode = 98,
    ExtrusionCode = 210,
};
enum EdgeType : std::int64_t { LineEdge = 1, ArcEdge, EllipseEdge, SplineEdge };

constexpr double Degree = std::numbers::pi / 180;

// An edge of an ellipse: its half diameters, in the direction in which it runs, and from where to where in radians.
struct Arc
{
    Vector centre, u, v;
    double start = 0, sweep = geometry::FullTurn;
    bool isCounterclockwise = true;
};

bool isFull(const Arc &arc)
{
    constexpr double Rounding = 1e-9;
    return arc.sweep >= geometry::FullTurn - Rounding;
}

// More than none and at most a full turn.
double turnFrom(double start, double end)
{
    const double turn = std::fmod(end - start, geometry::FullTurn);
    return turn > 0 ? turn : turn + geometry::FullTurn;
}

bool isWholeTurn(double degrees)
{
    constexpr double Rounding = 1e-9;
    return std::abs(std::remainder(degrees, 360)) < Rounding;
}

// Edges of ellipses have the angles of their places as seen from the centre.
double seenFromCentre(double parameter, double ratio)
{
    return std::atan2(ratio * std::sin(parameter), std::cos(parameter));
}

double parameterSeen(double angle, double ratio)
{
    return std::atan2(std::sin(angle), ratio * std::cos(angle));
}

// What a bulge makes of the way between two places.
Arc arcOfBulge(const Vector &from, const Vector &to, double bulge)
{
    const Vector chord = to - from, across{-chord.y, chord.x, 0};
    Arc arc;
    arc.isCounterclockwise = bulge > 0;
    arc.centre = (from + to) * 0.5 + across * ((1 / bulge - bulge) / 4);
    arc.u = from - arc.centre;
    arc.v = Vector{-arc.u.y, arc.u.x, 0} * (bulge > 0 ? 1.0 : -1.0);
    arc.sweep = 4 * std::atan(std::abs(bulge));
    return arc;
}

class HatchStretch
{
public:
    HatchStretch(const GroupList &hatch, const Matrix &matrix)
        : m_hatch(hatch), m_map(matrix, extrusionOf(hatch)), m_roles({matrix, false}, {0, 0, 1}),
          m_elevation(placeOf(hatch, PlaceCode).z)
    {
    }

    std::optional<GroupList> result()
    {
        if (m_map.isFlat())
            return std::nullopt;
        takeHead();
        while (isAt(PathTypeCode))
            takePath();
        takePattern();
        while (m_at < m_hatch.size())
            takeSeed();
        return std::move(m_result);
    }

private:
    // --- going on in the groups ---

    bool isInside() const { return m_at < m_hatch.size() && m_hatch[m_at].code < groupcode::ExtendedString; }
    bool isAt(int code) const { return isInside() && m_hatch[m_at].code == code; }
    void keep() { m_result.push_back(m_hatch[m_at++]); }
    template <class Value> Value taken(Value fallback)
    {
        const auto *value = std::get_if<Value>(&m_hatch[m_at++].value);
        return value ? *value : fallback;
    }

    Vector moved(const Vector &place) const
    {
        const Vector there = m_map.place({place.x, place.y, m_elevation});
        return {there.x, there.y, 0};
    }
    void keepMoved()
    {
        Group group = m_hatch[m_at++];
        if (auto *point = std::get_if<Point>(&group.value))
            setPlace(*point, moved(geometry::vectorOf(*point)));
        m_result.push_back(std::move(group));
    }
    void keepTurned()
    {
        Group group = m_hatch[m_at++];
        if (auto *point = std::get_if<Point>(&group.value))
            setPlace(*point, m_map.direction({point->x, point->y, 0}));
        m_result.push_back(std::move(group));
    }

    // --- the parts of a hatch in their order ---

    void takeHead()
    {
        while (isInside() && !isAt(PathTypeCode) && !isAt(StyleCode)) {
            if (isAt(PlaceCode))
                putElevation();
            else if (isAt(ExtrusionCode))
                ++m_at;
            else
                keep();
        }
    }

    void putElevation()
    {
        m_result.push_back(pointGroup(PlaceCode, {0, 0, m_map.place({0, 0, m_elevation}).z}));
        m_result.push_back(pointGroup(ExtrusionCode, m_map.extrusion()));
        ++m_at;
    }

    void takePath()
    {
        constexpr std::int64_t PolylineFlag = 2;
        const std::int64_t flags = taken(std::int64_t{0});
        if ((flags & PolylineFlag) == 0) {
            m_result.push_back(integerGroup(PathTypeCode, flags));
            takeEdges();
            return;
        }
        if (hasBulge()) {
            m_result.push_back(integerGroup(PathTypeCode, flags & ~PolylineFlag));
            putSegments();
        } else {
            m_result.push_back(integerGroup(PathTypeCode, flags));
        }
        while (isInside() && !isAt(PathTypeCode) && !isAt(StyleCode))
            if (isAt(PlaceCode))
                keepMoved();
            else
                keep();
    }

    bool hasBulge() const
    {
        for (std::size_t at = m_at; at < m_hatch.size() && m_hatch[at].code != PathTypeCode; ++at) {
            const auto *bulge = std::get_if<double>(&m_hatch[at].value);
            if (m_hatch[at].code == StyleCode)
                break;
            if (m_hatch[at].code == BulgeCode && bulge && *bulge != 0)
                return true;
        }
        return false;
    }

    void putSegments()
    {
        struct Vertex
        {
            Vector place;
            double bulge = 0;
        };
        std::vector<Vertex> vertices;
        while (isInside() && !isAt(SourceCountCode) && !isAt(PathTypeCode) && !isAt(StyleCode)) {
            if (isAt(PlaceCode))
                vertices.push_back({geometry::vectorOf(taken(Point()))});
            else if (isAt(BulgeCode) && !vertices.empty())
                vertices.back().bulge = taken(0.0);
            else
                ++m_at;
        }
        m_result.push_back(integerGroup(EdgeCountCode, static_cast<std::int64_t>(vertices.size())));
        for (std::size_t index = 0; index < vertices.size(); ++index) {
            const Vector from = vertices[index].place, to = vertices[(index + 1) % vertices.size()].place;
            if (const double bulge = vertices[index].bulge; bulge != 0 && from != to)
                putArc(arcOfBulge(from, to, bulge));
            else
                putLine(from, to);
        }
    }

    void takeEdges()
    {
        std::int64_t edge = LineEdge;
        while (isInside() && !isAt(PathTypeCode) && !isAt(StyleCode)) {
            if (isAt(EdgeTypeCode)) {
                edge = taken(std::int64_t{LineEdge});
                if (edge == ArcEdge || edge == EllipseEdge)
                    takeArc(edge);
                else
                    m_result.push_back(integerGroup(EdgeTypeCode, edge));
            } else if (isAt(PlaceCode) || isAt(SecondCode)) {
                keepMoved();
            } else if (edge == SplineEdge && (isAt(12) || isAt(13))) {
                keepTurned();
            } else {
                keep();
            }
        }
    }

    void takeArc(std::int64_t type)
    {
        double size = 1, start = 0, end = 360;
        Arc arc;
        for (bool isOwn = true; isOwn && isInside();) {
            switch (m_hatch[m_at].code) {
            case PlaceCode:
                arc.centre = geometry::vectorOf(taken(Point()));
                break;
            case SecondCode:
                arc.u = geometry::vectorOf(taken(Point()));
                break;
            case SizeCode:
                size = taken(size);
                break;
            case StartCode:
                start = taken(start);
                break;
            case EndCode:
                end = taken(end);
                break;
            case DirectionCode:
                arc.isCounterclockwise = taken(std::int64_t{1}) != 0;
                break;
            default:
                isOwn = false;
            }
        }
        const bool isEllipse = type == EllipseEdge;
        if (!isEllipse)
            arc.u = {size, 0, 0};
        const double ratio = isEllipse ? size : 1;
        arc.v = Vector{-arc.u.y, arc.u.x, 0} * (arc.isCounterclockwise ? ratio : -ratio);
        arc.start = parameterSeen(start * Degree, ratio);
        arc.sweep =
            isWholeTurn(end - start) ? geometry::FullTurn : turnFrom(arc.start, parameterSeen(end * Degree, ratio));
        putArc(arc);
    }

    void putLine(const Vector &from, const Vector &to)
    {
        m_result.push_back(integerGroup(EdgeTypeCode, LineEdge));
        m_result.push_back(flatPointGroup(PlaceCode, moved(from)));
        m_result.push_back(flatPointGroup(SecondCode, moved(to)));
    }

    void putArc(const Arc &arc)
    {
        const PrincipalAxes axes = principalAxes(m_map.direction(arc.u), m_map.direction(arc.v));
        const double ratio = length(axes.minor) / length(axes.major), start = arc.start - axes.turn;
        const auto seen = [ratio](double parameter) {
            const double angle = seenFromCentre(parameter, ratio) / Degree;
            return angle < 0 ? angle + 360 : angle;
        };
        m_result.insert(m_result.end(),
                        {integerGroup(EdgeTypeCode, EllipseEdge), flatPointGroup(PlaceCode, moved(arc.centre)),
                         flatPointGroup(SecondCode, axes.major), realGroup(SizeCode, ratio),
                         realGroup(StartCode, isFull(arc) ? 0 : seen(start)),
                         realGroup(EndCode, isFull(arc) ? 360 : seen(start + arc.sweep)),
                         integerGroup(DirectionCode, arc.isCounterclockwise ? 1 : 0)});
    }

    // Of a line of the pattern: a place on it, the way to the next line, and the lengths of its dashes. The pattern's
    // own angle and scale, by which it could be made anew, are those that come closest.
    void takePattern()
    {
        enum PatternCode : int {
            ScaleCode = 41,
            BaseX = 43,
            BaseY,
            OffsetX,
            OffsetY,
            DashCode = 49,
            AngleCode = 52,
            LineAngleCode
        };
        double stretch = 1;
        while (isInside() && !isAt(SeedCountCode)) {
            const int code = m_hatch[m_at].code;
            if (code == AngleCode || code == LineAngleCode) {
                const double angle = taken(0.0) * Degree;
                const Vector way = m_map.direction({std::cos(angle), std::sin(angle), 0});
                stretch = length(way);
                const double turned = std::atan2(way.y, way.x) / Degree;
                m_result.push_back(realGroup(code, turned < 0 ? turned + 360 : turned));
            } else if (code == ScaleCode) {
                const Vector x = m_map.direction({1, 0, 0}), y = m_map.direction({0, 1, 0});
                m_result.push_back(realGroup(code, taken(1.0) * std::sqrt(length(cross(x, y)))));
            } else if (code == DashCode) {
                m_result.push_back(realGroup(code, taken(0.0) * stretch));
            } else if ((code == BaseX || code == OffsetX) && m_at + 1 < m_hatch.size() &&
                       m_hatch[m_at + 1].code == code + 1) {
                const double x = taken(0.0), y = taken(0.0);
                const Vector there = code == BaseX ? moved({x, y, 0}) : m_map.direction({x, y, 0});
                m_result.push_back(realGroup(code, there.x));
                m_result.push_back(realGroup(code + 1, there.y));
            } else {
                keep();
            }
        }
    }

    void takeSeed()
    {
        if (isAt(PlaceCode)) {
            keepMoved();
            return;
        }
        keep();
        if (m_result.back().code >= groupcode::ExtendedString)
            m_roles.applyExtended(m_result.back());
    }

    const GroupList &m_hatch;
    PlaneMap m_map;
    RoleTransform m_roles;
    double m_elevation;
    std::size_t m_at = 0;
    GroupList m_result;
};

} // namespace

std::optional<GroupList> stretchedHatch(const GroupList &hatch, const Matrix &matrix)
{
    return HatchStretch(hatch, matrix).result();
}

} // namespace drawing
