// DIMLINEAR, DIMALIGNED, DIMRADIUS and DIMDIAMETER; DIM and DIM1, within which these and others have names of their
// own.

#include "host/commands/Commands.h"
#include "host/commands/DimensionKinds.h"
#include "host/commands/DimensionVariables.h"
#include "host/commands/LinearDimension.h"
#include "host/drawing/dimensions/DimensionText.h"
#include "host/drawing/edit/CurveWay.h"

#include <algorithm>
#include <cmath>

namespace commands {

using namespace drawing::dimension;
using drawing::realGroup;
using drawing::textGroup;

namespace {

struct Measured
{
    Point first, second;
};

// Two places, or for Enter the ends of a line, an arc, a polyline's segment, or of a circle's diameter.
Task<Measured> askOrigins(Context &context)
{
    const auto first = co_await context.ask().point({u"Specify first extension line origin or <select object>: "});
    if (first.hasValue()) {
        const auto second =
            co_await context.ask().point({u"Specify second extension line origin: ", {}, Enter::Refused, first.value});
        co_return Measured{first.value, second.value};
    }
    const auto picked = co_await context.ask().entity({u"Select object to dimension: ", {}, Enter::Refused});
    const geometry::Course course = pickedSegment(context, picked.value);
    const WorkPlane plane(context.session());
    if (course.isClosed()) {
        const double half = course.first() + geometry::FullTurn / 2;
        co_return Measured{plane.user(course.at(half)), plane.user(course.at(course.first()))};
    }
    co_return Measured{plane.user(course.at(course.first())), plane.user(course.at(course.last()))};
}

std::u16string_view linearKeywords(Direction direction)
{
    return direction == Direction::Free ? u"Mtext Text Angle Horizontal Vertical Rotated" : u"Mtext Text Angle";
}

Command linear(Context &context, Direction direction, TextQuestion question)
{
    LinearDimension dimension;
    dimension.direction = direction;
    if (direction == Direction::Turned) {
        const auto angle = co_await context.ask().angle({u"Specify angle of dimension line <0>: "});
        dimension.angle = angle.value;
    }
    const Measured measured = co_await askOrigins(context);
    dimension.first = geometry::vectorOf(measured.first);
    dimension.second = geometry::vectorOf(measured.second);
    for (;;) {
        const auto place = co_await context.ask().point(
            {dimension.direction == Direction::Free
                 ? u"Specify dimension line location or [Mtext/Text/Angle/Horizontal/Vertical/Rotated]: "
                 : u"Specify dimension line location or [Mtext/Text/Angle]: ",
             linearKeywords(dimension.direction), Enter::Refused, measured.second});
        if (place.hasValue()) {
            dimension.at = geometry::vectorOf(place.value);
            break;
        }
        if (place.is(u"Horizontal")) {
            dimension.direction = Direction::Horizontal;
        } else if (place.is(u"Vertical")) {
            dimension.direction = Direction::Vertical;
        } else if (place.is(u"Rotated")) {
            const auto angle = co_await context.ask().angle({u"Specify angle of dimension line <0>: "});
            dimension.direction = Direction::Turned;
            dimension.angle = angle.value;
        } else if (place.is(u"Angle")) {
            dimension.label.angle = co_await askTextAngle(context);
        } else {
            dimension.label.text = co_await askDimensionText(context, shownLength(context, dimension));
        }
    }
    if (question == TextQuestion::AtEnd)
        dimension.label.text = co_await askDimensionText(context, shownLength(context, dimension));
    addLinear(context, dimension);
}

enum class Across { Radius, Diameter };

struct RadialDimension
{
    Across across;
    Vector centre, at; // `at` is where the text hangs
    double radius = 0;
    DimensionLabel label;

    double measurement() const { return across == Across::Radius ? radius : 2 * radius; }
    std::u16string shown(Context &context) const
    {
        return drawing::dimensionText(currentStyle(context), measurement(), label.text,
                                      across == Across::Radius ? drawing::RadiusPrefix : drawing::DiameterPrefix);
    }
};

void addRadial(Context &context, const RadialDimension &dimension)
{
    const bool isRadius = dimension.across == Across::Radius;
    const Vector out = normalized(dimension.at - dimension.centre, {1, 0, 0}) * dimension.radius;
    const Vector tip = dimension.centre + out, start = isRadius ? dimension.centre : dimension.centre - out;
    GroupList groups = newDimension(context, isRadius ? Radius : Diameter, start, dimension.at, dimension.label);
    addTextAngle(groups, dimension.label, 0);
    groups.push_back(
        textGroup(drawing::groupcode::Subclass, isRadius ? u"AcDbRadialDimension" : u"AcDbDiametricDimension"));
    addMeasured(context, groups, TipCode, tip);
    groups.push_back(realGroup(LeaderCode, length(dimension.at - tip)));
    addDimension(context, groups);
}

// Where the text hangs, before which its wording and its angle can be given.
Task<Point> askRadialPlace(Context &context, RadialDimension &dimension)
{
    for (;;) {
        const auto place = co_await context.ask().point(
            {u"Specify dimension line location or [Mtext/Text/Angle]: ", u"Mtext Text Angle", Enter::Refused});
        if (place.hasValue())
            co_return place.value;
        if (place.is(u"Angle"))
            dimension.label.angle = co_await askTextAngle(context);
        else
            dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
    }
}

Command radial(Context &context, Across across, TextQuestion question)
{
    const auto picked = co_await context.ask().entity({u"Select arc or circle: ", {}, Enter::Refused});
    const std::optional<drawing::CurveWay> way = drawing::CurveWay::of(context.drawing(), picked.value.entity);
    const geometry::EllipticArc *arc = way ? way->pieces().front().arc() : nullptr;
    const std::u16string type = context.database().type(picked.value.entity);
    if (!arc || (type != u"ARC" && type != u"CIRCLE"))
        throw CommandError{u"Object selected is not an arc or circle."};
    RadialDimension dimension{
        across, geometry::vectorOf(WorkPlane(context.session()).user(arc->centre)), {}, length(arc->cosineAxis), {}};
    dimension.at = geometry::vectorOf(co_await askRadialPlace(context, dimension));
    if (question == TextQuestion::AtEnd)
        dimension.label.text = co_await askDimensionText(context, dimension.shown(context));
    addRadial(context, dimension);
}

constexpr std::u16string_view subcommands =
    u"HORizontal VERtical ALigned ROtated RAdius Diameter ANgular ORdinate Leader COntinue Baseline Exit";

// One of DIM's own commands; false for Exit and Enter.
Task<bool> runSubcommand(Context &context)
{
    const auto choice = co_await context.ask().keyword({u"Dim: ", subcommands});
    if (choice.isNothing() || choice.is(u"Exit"))
        co_return false;
    constexpr TextQuestion Question = TextQuestion::AtEnd;
    if (choice.is(u"HORizontal"))
        co_await linear(context, Direction::Horizontal, Question);
    else if (choice.is(u"VERtical"))
        co_await linear(context, Direction::Vertical, Question);
    else if (choice.is(u"ALigned"))
        co_await linear(context, Direction::Aligned, Question);
    else if (choice.is(u"ROtated"))
        co_await linear(context, Direction::Turned, Question);
    else if (choice.is(u"RAdius"))
        co_await radial(context, Across::Radius, Question);
    else if (choice.is(u"Diameter"))
        co_await radial(context, Across::Diameter, Question);
    else if (choice.is(u"ANgular"))
        co_await measureAngle(context, Question);
    else if (choice.is(u"ORdinate"))
        co_await measureOrdinate(context, Question);
    else if (choice.is(u"Leader"))
        co_await drawLeader(context, Question);
    else if (choice.is(u"COntinue"))
        co_await chainDimensions(context, Chain::Continued, Question);
    else if (choice.is(u"Baseline"))
        co_await chainDimensions(context, Chain::FromBase, Question);
    co_return true;
}

} // namespace

Command dimensionLinear(Context &context)
{
    return linear(context, Direction::Free, TextQuestion::AsOption);
}

Command dimensionAligned(Context &context)
{
    return linear(context, Direction::Aligned, TextQuestion::AsOption);
}

Command dimensionRadius(Context &context)
{
    return radial(context, Across::Radius, TextQuestion::AsOption);
}

Command dimensionDiameter(Context &context)
{
    return radial(context, Across::Diameter, TextQuestion::AsOption);
}

Command dimensionOnce(Context &context)
{
    co_await runSubcommand(context);
}

Command dimensions(Context &context)
{
    bool goesOn = true;
    while (goesOn)
        goesOn = co_await runSubcommand(context);
}

} // namespace commands
