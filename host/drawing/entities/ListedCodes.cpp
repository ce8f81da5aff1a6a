#include "host/drawing/entities/ListedCodes.h"

#include <numbers>

namespace drawing {

namespace {

constexpr double HalfTurn = 180; // in degrees

} // namespace

bool isFixed(int code)
{
    return code == groupcode::Type || code == groupcode::Handle || code == groupcode::DimStyleHandle;
}

double inRadians(double degrees)
{
    return degrees * (std::numbers::pi / HalfTurn);
}

Group inRadians(Group group)
{
    if (double *angle = isAngle(group.code) ? std::get_if<double>(&group.value) : nullptr)
        *angle = inRadians(*angle);
    return group;
}

Group inDegrees(Group group)
{
    if (double *angle = isAngle(group.code) ? std::get_if<double>(&group.value) : nullptr)
        *angle *= HalfTurn / std::numbers::pi;
    return group;
}

} // namespace drawing
