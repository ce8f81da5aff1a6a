#include "host/commands/LinearDimension.h"

#include "host/commands/DimensionVariables.h"
#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/dimensions/DimensionText.h"

#include <algorithm>
#include <cmath>

namespace commands {

using namespace drawing::dimension;
using drawing::placeOf;
using drawing::realGroup;
using drawing::textGroup;

// A place beside the two is meant for a vertical dimension, above or below for a horizontal one.
double LinearDimension::lineAngle() const
{
    const Vector between = second - first;
    if (direction == Direction::Turned)
        return angle;
    if (direction == Direction::Aligned)
        return std::atan2(between.y, between.x);
    const double left = std::min(first.x, second.x), right = std::max(first.x, second.x);
    const double low = std::min(first.y, second.y), high = std::max(first.y, second.y);
    const double beside = std::max({left - at.x, at.x - right, 0.0}), above = std::max({low - at.y, at.y - high, 0.0});
    const bool isVertical = direction == Direction::Vertical || (direction == Direction::Free && beside > above);
    return isVertical ? geometry::FullTurn / 4 : 0;
}

Vector LinearDimension::across() const
{
    const double along = lineAngle();
    return {-std::sin(along), std::cos(along), 0};
}

std::u16string shownLength(Context &context, const LinearDimension &dimension)
{
    const double angle = dimension.lineAngle();
    const Vector along{std::cos(angle), std::sin(angle), 0};
    return drawing::dimensionText(currentStyle(context), std::abs(dot(dimension.second - dimension.first, along)), {});
}

RecordId addLinear(Context &context, const LinearDimension &dimension)
{
    const double angle = dimension.lineAngle();
    const Vector across = dimension.across();
    const Vector foot = dimension.second + across * dot(dimension.at - dimension.second, across);
    const bool isAligned = dimension.direction == Direction::Aligned;
    GroupList groups = newDimension(context, isAligned ? Aligned : Rotated, foot, foot, dimension.label);
    addTextAngle(groups, dimension.label, angle);
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbAlignedDimension"));
    addMeasured(context, groups, FirstCode, dimension.first);
    addMeasured(context, groups, SecondCode, dimension.second);
    if (!isAligned) {
        groups.push_back(realGroup(AngleCode, degrees(WorkPlane(context.session()).objectAngle(angle))));
        groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbRotatedDimension"));
    }
    return context.memory().dimension = addDimension(context, groups);
}

std::optional<LinearDimension> linearDimension(Context &context, RecordId entity)
{
    if (entity == drawing::NoRecord || context.database().record(entity).isGone())
        return std::nullopt;
    const GroupList groups = context.database().groups(entity);
    const std::int64_t kind = kindOf(groups);
    if (!drawing::isDrawable(groups) || (kind != Rotated && kind != Aligned))
        return std::nullopt;
    const WorkPlane plane(context.session());
    const auto place = [&](int code) { return geometry::vectorOf(plane.user(placeOf(groups, code))); };
    LinearDimension result{place(FirstCode), place(SecondCode), place(LineCode), Direction::Aligned};
    result.angle = kind == Aligned ? result.lineAngle()
                                   : geometry::radians(drawing::realOf(groups, AngleCode)) - plane.objectAngle(0);
    result.direction = Direction::Turned;
    return result;
}

} // namespace commands
