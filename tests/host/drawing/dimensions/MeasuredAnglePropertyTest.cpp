#include "host/drawing/dimensions/MeasuredAngle.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

namespace drawing {
namespace {

using geometry::FullTurn;
using geometry::Vector;

RC_GTEST_PROP(MeasuredAngleProperty, TheArcRunsFromOneLineToTheOtherThroughThePlace, ())
{
    const auto coordinate = [] { return *rc::gen::inRange(-1000, 1000) / 8.0; };
    const auto place = [&] { return Vector{coordinate(), coordinate(), 0}; };
    const MeasuredLine first{place(), place()}, second{place(), place()};
    const Vector onArc = place();
    const auto angle = angleBetween(first, second, onArc);
    RC_PRE(angle.has_value());
    RC_PRE(angle->radius > 1e-3);
    RC_PRE(angle->radius < 1e6);

    const auto onLine = [](const MeasuredLine &line, const Vector &vertex, double direction) {
        const Vector along = normalized(line.end - line.start);
        return std::abs(along.x * std::sin(direction) - along.y * std::cos(direction)) < 1e-9 &&
               std::abs(along.x * (vertex.y - line.start.y) - along.y * (vertex.x - line.start.x)) <
                   1e-6 * (1 + length(vertex));
    };
    RC_ASSERT(onLine(first, angle->vertex, angle->first.direction));
    RC_ASSERT(onLine(second, angle->vertex, angle->second.direction));
    RC_ASSERT(angle->sweep > 0 && angle->sweep < FullTurn / 2 + 1e-9);

    const Vector arm = onArc - angle->vertex;
    const double before = std::remainder(std::atan2(arm.y, arm.x) - angle->start, FullTurn);
    RC_ASSERT(before > -1e-6 && before < angle->sweep + 1e-6);
}

} // namespace
} // namespace drawing
