#pragma once

#include <cmath>
#include <numbers>

namespace lisp {

// Of the way x along the X axis and y along the Y axis: radians counter-clockwise from the X axis, 0 to 2 pi; 0 for no
// way.
inline double directionOf(double x, double y)
{
    const double direction = std::atan2(y, x);
    return direction < 0 ? direction + 2 * std::numbers::pi : direction;
}

} // namespace lisp
