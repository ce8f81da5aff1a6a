// DIMORDINATE, and the same within DIM and DIM1: how far a place is from the origin along one axis.

#include "host/commands/Commands.h"
#include "host/commands/DimensionKinds.h"
#include "host/commands/DimensionVariables.h"
#include "host/drawing/dimensions/DimensionText.h"

#include <cmath>

namespace commands {

using namespace drawing::dimension;

namespace {

enum class Axis { Free, X, Y };

struct OrdinateDimension
{
    Vector measured, end; // from the origin of the user's coordinate system, which is what they are measured from
    Axis axis = Axis::Free;
    DimensionLabel label;

    // A text above or below shows how far it is along the x axis, one beside along the y axis.
    bool isAlongX() const
    {
        if (axis != Axis::Free)
            return axis == Axis::X;
        return std::abs(end.y - measured.y) > std::abs(end.x - measured.x);
    }
    std::u16string shown(Context &context) const
    {
        return drawing::dimensionText(currentStyle(context), std::abs(isAlongX() ? measured.x : measured.y),
                                      label.text);
    }
};

Task<Vector> askEnd(Context &context, OrdinateDimension &dimension)
{
    const Point measured{dimension.measured.x, dimension.measured.y, dimension.measured.z};
    for (;;) {
        const auto end = co_await context.ask().point({u"Specify leader endpoint or [Xdatum/Ydatum/Mtext/Text/Angle]: ",
                                                       u"Xdatum Ydatum Mtext Text Angle", Enter::Refused, measured});
        if (end.hasValue())
            co_return geometry::vectorOf(end.value);
        if (end.is(u"Xdatum"))
            dimension.axis = Axis::X;
        else if (end.is(u"Ydatum"))
            dimension.axis = Axis::Y;
        else if (end.is(u"Angle"))
            dimension.label.angle = co_await askTextAngle(context);
        else
            dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
    }
}

void addOrdinate(Context &context, const OrdinateDimension &dimension)
{
    const bool isAlongX = dimension.isAlongX();
    GroupList groups =
        newDimension(context, Ordinate | (isAlongX ? AlongXFlag : 0), Vector{}, dimension.end, dimension.label);
    addTextAngle(groups, dimension.label, isAlongX ? geometry::FullTurn / 4 : 0);
    groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbOrdinateDimension"));
    addMeasured(context, groups, FirstCode, dimension.measured);
    addMeasured(context, groups, SecondCode, dimension.end);
    addDimension(context, groups);
}

} // namespace

Command measureOrdinate(Context &context, TextQuestion question)
{
    OrdinateDimension dimension;
    const auto measured = co_await context.ask().point({u"Specify feature location: ", {}, Enter::Refused});
    dimension.measured = dimension.end = geometry::vectorOf(measured.value);
    dimension.end = co_await askEnd(context, dimension);
    if (question == TextQuestion::AtEnd)
        dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
    addOrdinate(context, dimension);
}

Command dimensionOrdinate(Context &context)
{
    return measureOrdinate(context, TextQuestion::AsOption);
}

} // namespace commands
