#include "host/drawing/edit/RoleTransform.h"

#include <algorithm>

namespace drawing {

using geometry::Vector;

void RoleTransform::apply(Group &group, GroupRole role, double elevation) const
{
    if (auto *old = std::get_if<double>(&group.value))
        *old = number(*old, role);
    if (auto *point = std::get_if<Point>(&group.value))
        setPlace(*point, place(*point, role, elevation));
}

void RoleTransform::apply(Group &group, std::span<const RoleRow> rows, double elevation) const
{
    if (const auto row = std::ranges::find(rows, group.code, &RoleRow::code); row != rows.end())
        apply(group, row->role, elevation);
}

void RoleTransform::applyExtended(Group &group) const
{
    constexpr RoleRow rows[] = {{1011, GroupRole::Place},
                                {1012, GroupRole::Offset},
                                {1013, GroupRole::Direction},
                                {1041, GroupRole::Length},
                                {1042, GroupRole::Length}};
    apply(group, rows);
}

double RoleTransform::number(double old, GroupRole role) const
{
    switch (role) {
    case GroupRole::Length:
        return old * m_object.scale();
    case GroupRole::ObjectAngle:
    case GroupRole::Rotation:
        return m_object.angle(old);
    case GroupRole::Bulge:
    case GroupRole::Deviation:
        return m_object.mirrors() ? -old : old;
    default:
        return old;
    }
}

Vector RoleTransform::place(const Point &point, GroupRole role, double elevation) const
{
    const Vector old = geometry::vectorOf(point);
    switch (role) {
    case GroupRole::Place:
        return m_similarity.matrix.place(old);
    case GroupRole::Offset:
        return m_similarity.matrix.direction(old);
    case GroupRole::Direction:
        return geometry::normalized(m_similarity.matrix.direction(old), {}); // none stays none
    case GroupRole::Length:
        return old * m_object.scale();
    case GroupRole::Extrusion:
        return m_object.extrusion();
    case GroupRole::ObjectPlace:
        return m_object.place(point.dimensions == 2 ? Vector{old.x, old.y, elevation} : old);
    default:
        return old;
    }
}

void setPlace(Point &point, const Vector &place)
{
    point.x = place.x;
    point.y = place.y;
    if (point.dimensions > 2)
        point.z = place.z;
}

} // namespace drawing
