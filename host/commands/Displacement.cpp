#include "host/commands/Displacement.h"

namespace commands {

Task<Displacement> askDisplacement(Context &context, const WorkPlane &plane, const Reply<Point> base)
{
    if (!base.hasValue()) { // Displacement, or Enter
        const auto vector = co_await context.ask().point({u"Specify displacement <0,0,0>: "});
        co_return Displacement{plane.toWorld().direction(geometry::vectorOf(vector.value))};
    }
    const auto second = co_await context.ask().point(
        {u"Specify second point or <use first point as displacement>: ", {}, Enter::Allowed, base.value});
    if (second.isNothing())
        co_return Displacement{plane.toWorld().direction(geometry::vectorOf(base.value))};
    co_return Displacement{plane.world(second.value) - plane.world(base.value), true};
}

} // namespace commands
