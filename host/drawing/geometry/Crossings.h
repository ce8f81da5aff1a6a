#pragma once

#include "host/drawing/geometry/Course.h"

namespace geometry {

// Where two curves cross or touch, as seen from above.
struct Crossing
{
    Vector place; // on the first
    double first, second;
};

// In no order. Curves that lie on each other cross nowhere.
std::vector<Crossing> crossings(const Course &first, const Course &second, Span firstSpan = Span::Bounded,
                                Span secondSpan = Span::Bounded);

} // namespace geometry
