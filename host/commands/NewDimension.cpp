#include "host/commands/NewDimension.h"

#include "host/commands/DimensionVariables.h"
#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/edit/CurveWay.h"

#include <algorithm>
#include <cmath>

namespace commands {

using namespace drawing::dimension;
using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

Task<std::u16string> askDimensionText(Context &context, const std::u16string &measurement)
{
    const std::u16string prompt = u"Enter dimension text <" + measurement + u">: ";
    const auto text = co_await context.ask().string({prompt});
    co_return text.value;
}

Task<std::optional<double>> askTextAngle(Context &context)
{
    const auto angle = co_await context.ask().angle({u"Specify angle of dimension text: "});
    co_return angle.hasValue() ? std::optional(angle.value) : std::nullopt;
}

geometry::Course pickedSegment(Context &context, const PickedEntity &picked)
{
    const std::optional<drawing::CurveWay> way = drawing::CurveWay::of(context.drawing(), picked.entity);
    if (!way)
        throw CommandError{u"Object selected is not a line, arc, or circle."};
    double piece = 0;
    if (picked.at)
        piece = std::min(std::floor(way->nearest(WorkPlane(context.session()).world(*picked.at))), way->count() - 1);
    return way->pieces()[static_cast<std::size_t>(piece)];
}

GroupList newDimension(Context &context, std::int64_t kind, const Vector &line, const Vector &text,
                       const DimensionLabel &label)
{
    constexpr int AttachmentCode = 71;
    constexpr std::int64_t MiddleCentre = 5;
    const WorkPlane plane(context.session());
    GroupList groups = newEntity(context, u"DIMENSION");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbDimension"));
    groups.push_back(pointGroup(LineCode, plane.world({line.x, line.y, line.z})));
    groups.push_back(pointGroup(TextCode, plane.object({text.x, text.y, text.z})));
    groups.push_back(integerGroup(KindCode, kind));
    groups.push_back(textGroup(TypedCode, label.text));
    groups.push_back(integerGroup(AttachmentCode, MiddleCentre));
    groups.push_back(textGroup(StyleCode, context.session().text(u"DIMSTYLE")));
    if (const double turn = degrees(-plane.objectAngle(0)); turn != 0)
        groups.push_back(realGroup(HorizontalCode, turn));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(ExtrusionCode, plane.normal()));
    return groups;
}

void addMeasured(Context &context, GroupList &dimension, int code, const Vector &place)
{
    dimension.push_back(pointGroup(code, WorkPlane(context.session()).world({place.x, place.y, place.z})));
}

void addTextAngle(GroupList &dimension, const DimensionLabel &label, double usual)
{
    if (label.angle)
        dimension.push_back(realGroup(TextAngleCode, degrees(*label.angle - usual)));
}

RecordId addDimension(Context &context, GroupList dimension)
{
    giveCurrentStyle(context, dimension);
    const RecordId added = addEntity(context, dimension);
    if (!drawing::drawDimension(context.drawing(), added, currentStyle(context)))
        throw CommandError{u"The picture of the dimension cannot be made."};
    return added;
}

} // namespace commands
