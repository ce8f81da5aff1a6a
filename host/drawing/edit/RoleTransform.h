#pragma once

#include "host/drawing/edit/TransformRows.h"

namespace drawing {

// Puts groups of an entity to its new place, each by its role.
class RoleTransform
{
public:
    RoleTransform(const Similarity &similarity, const geometry::Vector &extrusion)
        : m_similarity(similarity), m_object(similarity, extrusion)
    {
    }

    const Similarity &similarity() const { return m_similarity; }
    const ObjectSimilarity &object() const { return m_object; }

    void apply(Group &group, GroupRole role, double elevation = 0) const;
    // As the row with the group's code says; a group without one stays what it is.
    void apply(Group &group, std::span<const RoleRow> rows, double elevation = 0) const;
    // Places and lengths in extended data go along by their codes.
    void applyExtended(Group &group) const;

private:
    double number(double old, GroupRole role) const;
    geometry::Vector place(const Point &point, GroupRole role, double elevation) const;

    Similarity m_similarity;
    ObjectSimilarity m_object;
};

// A new place for the point; one of two coordinates keeps to those.
void setPlace(Point &point, const geometry::Vector &place);

} // namespace drawing
