#pragma once

#include "host/drawing/geometry/Vector.h"

#include <optional>

namespace drawing {

// One side of an angle: the direction from the vertex, and how far from it what is measured begins and ends on it. What
// lies on the other side of the vertex is less than 0.
struct AngleSide
{
    double direction; // radians
    double begin, end;
};

// The angle that an angular dimension measures, in its plane. Angles are radians, counter-clockwise.
struct MeasuredAngle
{
    geometry::Vector vertex;
    double radius; // of the dimension arc
    double start, sweep;
    AngleSide first, second; // as they were named; the arc may start at either

    geometry::Vector at(double angle) const
    {
        return vertex + geometry::Vector{std::cos(angle), std::sin(angle), 0} * radius;
    }
};

struct MeasuredLine
{
    geometry::Vector start, end;
};

// Of the four angles between the lines the one in which `onArc` lies. None for lines that are parallel.
std::optional<MeasuredAngle> angleBetween(const MeasuredLine &first, const MeasuredLine &second,
                                          const geometry::Vector &onArc);

// Of the two angles between the directions to the places the one in which `onArc` lies.
MeasuredAngle angleAbout(const geometry::Vector &vertex, const geometry::Vector &first, const geometry::Vector &second,
                         const geometry::Vector &onArc);

} // namespace drawing
