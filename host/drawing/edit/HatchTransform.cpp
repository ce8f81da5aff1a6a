#include "host/drawing/edit/HatchTransform.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/RoleTransform.h"

namespace drawing {

using geometry::Vector;

namespace {

// What a group means depends on those before it: the same codes serve boundaries of all kinds, the pattern and seeds.
class HatchWalk
{
public:
    HatchWalk(const GroupList &groups, const Similarity &similarity)
        : m_roles(similarity, extrusionOf(groups)), m_groups(groups), m_elevation(placeOf(groups, groupcode::FirstX).z)
    {
    }

    GroupList result()
    {
        for (std::size_t at = 0; at < m_groups.size(); ++at)
            if (m_groups[at].code >= groupcode::ExtendedString)
                m_roles.applyExtended(m_groups[at]);
            else
                transform(at);
        setGroup(m_groups, pointGroup(groupcode::FirstX, {0, 0, map().place({0, 0, m_elevation}).z}));
        if (hasGroup(m_groups, ExtrusionCode) || map().extrusion() != Vector{0, 0, 1})
            setGroup(m_groups, pointGroup(ExtrusionCode, map().extrusion()));
        return std::move(m_groups);
    }

private:
    enum Code : int {
        ExtrusionCode = 210,
        PathCountCode = 91,
        PathTypeCode = 92,
        EdgeTypeCode = 72,
        ClockwiseCode = 73,
        StyleCode = 75,
        SeedCountCode = 98
    };
    enum class Part { Head, Path, Pattern, Seeds };
    enum class Edge { Polyline, Line, Arc, Ellipse, Spline };

    void transform(std::size_t at)
    {
        Group &group = m_groups[at];
        if (m_part == Part::Path && group.code == EdgeTypeCode && !m_isPolyline)
            return beginEdge(at);
        switch (group.code) {
        case PathCountCode:
            m_part = Part::Path;
            return;
        case StyleCode:
            m_part = Part::Pattern;
            return;
        case SeedCountCode:
            m_part = Part::Seeds;
            return;
        case PathTypeCode:
            beginPath(std::get<std::int64_t>(group.value));
            return;
        default:
            break;
        }
        if (m_part == Part::Path)
            transformBoundary(group);
        else if (m_part == Part::Pattern)
            transformPattern(group);
        else if (m_part == Part::Seeds && group.code == groupcode::FirstX)
            movePlace(group);
    }

    void beginPath(std::int64_t flags)
    {
        constexpr std::int64_t PolylineFlag = 2;
        m_edge = (flags & PolylineFlag) != 0 ? Edge::Polyline : Edge::Line;
        m_isPolyline = m_edge == Edge::Polyline;
    }

    void beginEdge(std::size_t at)
    {
        m_edge = static_cast<Edge>(std::get<std::int64_t>(m_groups[at].value));
        m_isClockwise = false;
        for (++at; at < m_groups.size() && m_groups[at].code != EdgeTypeCode; ++at) {
            const auto *direction = std::get_if<std::int64_t>(&m_groups[at].value);
            if (m_groups[at].code == ClockwiseCode && direction) {
                m_isClockwise = *direction == 0;
                return;
            }
        }
    }

    void transformBoundary(Group &group)
    {
        switch (m_edge) {
        case Edge::Polyline:
            if (group.code == 10)
                movePlace(group);
            else if (group.code == 42 && map().mirrors())
                std::get<double>(group.value) *= -1;
            break;
        case Edge::Line:
            if (group.code == 10 || group.code == 11)
                movePlace(group);
            break;
        case Edge::Arc:
        case Edge::Ellipse:
            transformArc(group);
            break;
        case Edge::Spline:
            if (group.code == 10 || group.code == 11)
                movePlace(group);
            else if (group.code == 12 || group.code == 13)
                moveOffset(group);
            break;
        }
    }

    // The angles of a clockwise edge are counted clockwise, so a mirror only turns the counting round. Those of
    // ellipses are counted from the major axis, which the mirror takes along.
    void transformArc(Group &group)
    {
        if (group.code == 10) {
            movePlace(group);
        } else if (group.code == 11) {
            moveOffset(group);
        } else if (group.code == ClockwiseCode) {
            auto &isCounterClockwise = std::get<std::int64_t>(group.value);
            if (map().mirrors())
                isCounterClockwise = isCounterClockwise == 0 ? 1 : 0;
        } else if (m_edge == Edge::Arc && group.code == 40) {
            std::get<double>(group.value) *= map().scale();
        } else if (m_edge == Edge::Arc && (group.code == 50 || group.code == 51)) {
            turnArcAngle(std::get<double>(group.value));
        }
    }

    void turnArcAngle(double &angle) const
    {
        const double turn = map().angle(0);
        angle += m_isClockwise != map().mirrors() ? -turn : turn;
    }

    void transformPattern(Group &group)
    {
        constexpr int AngleCode = 52, ScaleCode = 41, LineAngleCode = 53, DashCode = 49;
        if (group.code == ScaleCode || group.code == DashCode)
            std::get<double>(group.value) *= map().scale();
        else if (group.code == AngleCode || group.code == LineAngleCode)
            group.value = map().angle(std::get<double>(group.value));
        else if (group.code == 43 || group.code == 45)
            m_x = &std::get<double>(group.value);
        else if (group.code == 44 || group.code == 46)
            movePatternPlace(group);
    }

    void movePatternPlace(Group &y)
    {
        if (!m_x)
            return;
        const Vector old{*m_x, std::get<double>(y.value), 0};
        const Vector moved = y.code == 44 ? map().place(old) : map().direction(old);
        *m_x = moved.x;
        y.value = moved.y;
        m_x = nullptr;
    }

    void movePlace(Group &group) const
    {
        auto &point = std::get<Point>(group.value);
        const Vector moved = map().place({point.x, point.y, m_elevation});
        point.x = moved.x;
        point.y = moved.y;
    }
    void moveOffset(Group &group) const
    {
        auto &point = std::get<Point>(group.value);
        const Vector moved = map().direction({point.x, point.y, 0});
        point.x = moved.x;
        point.y = moved.y;
    }

    const ObjectSimilarity &map() const { return m_roles.object(); }

    RoleTransform m_roles;
    GroupList m_groups;
    double m_elevation;
    Part m_part = Part::Head;
    Edge m_edge = Edge::Line;
    bool m_isPolyline = false;
    bool m_isClockwise = false; // the edge
    double *m_x = nullptr;
};

} // namespace

GroupList transformedHatch(const GroupList &groups, const Similarity &similarity)
{
    return HatchWalk(groups, similarity).result();
}

} // namespace drawing
