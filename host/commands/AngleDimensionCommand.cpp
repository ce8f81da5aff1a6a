// DIMANGULAR, and the same within DIM and DIM1.

#include "host/commands/Commands.h"
#include "host/commands/DimensionKinds.h"
#include "host/commands/DimensionVariables.h"
#include "host/drawing/dimensions/DimensionText.h"
#include "host/drawing/dimensions/MeasuredAngle.h"

#include <cmath>

namespace commands {

using namespace drawing::dimension;
using drawing::MeasuredAngle;
using drawing::MeasuredLine;
using drawing::textGroup;

namespace {

// Places are in the user's coordinates.
struct AngleDimension
{
    std::int64_t kind;
    MeasuredLine first, second; // about a vertex both start there
    Vector onArc = {};
    DimensionLabel label = {};
    std::optional<Vector> text = {}; // where it is put, if it is

    std::optional<MeasuredAngle> angle() const
    {
        return kind == AngleOfLines ? drawing::angleBetween(first, second, onArc)
                                    : drawing::angleAbout(first.start, first.end, second.end, onArc);
    }
    std::u16string shown(Context &context) const
    {
        const std::optional<MeasuredAngle> measured = angle();
        return drawing::angleText(currentStyle(context), measured ? measured->sweep : 0, label.text);
    }
};

AngleDimension aboutVertex(const Vector &vertex, const Vector &first, const Vector &second)
{
    return {AngleByThreePoints, {vertex, first}, {vertex, second}};
}

MeasuredLine userLine(const WorkPlane &plane, const geometry::Line &line)
{
    return {geometry::vectorOf(plane.user(line.start)), geometry::vectorOf(plane.user(line.end))};
}

Task<AngleDimension> askPlaces(Context &context)
{
    const auto vertex = co_await context.ask().point({u"Specify angle vertex: ", {}, Enter::Refused});
    const auto first =
        co_await context.ask().point({u"Specify first angle endpoint: ", {}, Enter::Refused, vertex.value});
    const auto second =
        co_await context.ask().point({u"Specify second angle endpoint: ", {}, Enter::Refused, vertex.value});
    co_return aboutVertex(geometry::vectorOf(vertex.value), geometry::vectorOf(first.value),
                          geometry::vectorOf(second.value));
}

Task<AngleDimension> askOtherLine(Context &context, const MeasuredLine &first)
{
    const auto picked = co_await context.ask().entity({u"Select second line: ", {}, Enter::Refused});
    const geometry::Course segment = pickedSegment(context, picked.value);
    if (!segment.line())
        throw CommandError{u"Object selected is not a line."};
    const AngleDimension result{AngleOfLines, first, userLine(WorkPlane(context.session()), *segment.line())};
    if (!result.angle())
        throw CommandError{u"Lines are parallel."};
    co_return result;
}

// A circle is measured from where it was picked, an arc from end to end.
Task<AngleDimension> askArcEnds(Context &context, const geometry::Course &segment, const PickedEntity &picked)
{
    const WorkPlane plane(context.session());
    const auto user = [&plane](const Vector &world) { return geometry::vectorOf(plane.user(world)); };
    const Vector centre = user(segment.arc()->centre);
    if (!segment.isClosed())
        co_return aboutVertex(centre, user(segment.at(segment.first())), user(segment.at(segment.last())));
    const double parameter = picked.at ? segment.nearest(plane.world(*picked.at)) : segment.first();
    const auto second = co_await context.ask().point({u"Specify second angle endpoint: ", {}, Enter::Refused});
    co_return aboutVertex(centre, user(segment.at(parameter)), geometry::vectorOf(second.value));
}

Task<AngleDimension> askAngle(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select arc, circle, line, or <specify vertex>: "});
    if (picked.isNothing()) {
        AngleDimension angle = co_await askPlaces(context);
        co_return angle;
    }
    const geometry::Course segment = pickedSegment(context, picked.value);
    if (const geometry::Line *line = segment.line()) {
        AngleDimension angle = co_await askOtherLine(context, userLine(WorkPlane(context.session()), *line));
        co_return angle;
    }
    if (!segment.arc() || context.database().type(picked.value.entity) == u"ELLIPSE")
        throw CommandError{u"Object selected is not a line, arc, or circle."};
    AngleDimension angle = co_await askArcEnds(context, segment, picked.value);
    co_return angle;
}

Task<Vector> askArcPlace(Context &context, AngleDimension &dimension)
{
    for (;;) {
        const auto place = co_await context.ask().point(
            {u"Specify dimension arc line location or [Mtext/Text/Angle]: ", u"Mtext Text Angle", Enter::Refused});
        if (place.hasValue())
            co_return geometry::vectorOf(place.value);
        if (place.is(u"Angle"))
            dimension.label.angle = co_await askTextAngle(context);
        else
            dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
    }
}

void addAngle(Context &context, const AngleDimension &dimension)
{
    const bool isOfLines = dimension.kind == AngleOfLines;
    const std::optional<MeasuredAngle> angle = dimension.angle();
    if (!angle || !(angle->radius > 0))
        throw CommandError{u"Invalid dimension arc location."};
    GroupList groups = newDimension(context, dimension.kind | (dimension.text ? TextPlacedFlag : 0),
                                    isOfLines ? dimension.second.end : dimension.onArc,
                                    dimension.text.value_or(dimension.onArc), dimension.label);
    addTextAngle(groups, dimension.label, angle->start + angle->sweep / 2 + geometry::FullTurn / 4);
    groups.push_back(textGroup(drawing::groupcode::Subclass,
                               isOfLines ? u"AcDb2LineAngularDimension" : u"AcDb3PointAngularDimension"));
    addMeasured(context, groups, FirstCode, isOfLines ? dimension.first.start : dimension.first.end);
    addMeasured(context, groups, SecondCode, isOfLines ? dimension.first.end : dimension.second.end);
    addMeasured(context, groups, TipCode, dimension.second.start);
    const Point onArc{dimension.onArc.x, dimension.onArc.y, dimension.onArc.z};
    if (isOfLines)
        groups.push_back(drawing::pointGroup(ArcCode, WorkPlane(context.session()).object(onArc)));
    addDimension(context, groups);
}

} // namespace

Command measureAngle(Context &context, TextQuestion question)
{
    AngleDimension dimension = co_await askAngle(context);
    dimension.onArc = (dimension.first.end + dimension.second.end) * 0.5; // for what is shown until it is known
    dimension.onArc = co_await askArcPlace(context, dimension);
    if (question == TextQuestion::AtEnd) {
        dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
        const auto text = co_await context.ask().point({u"Enter text location (or press ENTER): "});
        if (text.hasValue())
            dimension.text = geometry::vectorOf(text.value);
    }
    addAngle(context, dimension);
}

Command dimensionAngular(Context &context)
{
    return measureAngle(context, TextQuestion::AsOption);
}

} // namespace commands
