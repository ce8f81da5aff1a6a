// Dimensions: DIMLINEAR, DIMALIGNED, DIMRADIUS, DIMDIAMETER, and the same within DIM and DIM1.

#include "host/commands/Commands.h"
#include "host/commands/DimensionVariables.h"
#include "host/commands/NewEntity.h"
#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/dimensions/DimensionText.h"
#include "host/drawing/edit/CurveWay.h"

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

enum class Direction { Free, Horizontal, Vertical, Rotated, Aligned };

// What DIM and DIM1 ask in a way of their own: the text at the end.
enum class TextQuestion { AsOption, AtEnd };

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
    const std::optional<drawing::CurveWay> way = drawing::CurveWay::of(context.drawing(), picked.value.entity);
    if (!way)
        throw CommandError{u"Object selected is not a line, arc, or circle."};
    const WorkPlane plane(context.session());
    double piece = 0;
    if (picked.value.at)
        piece = std::min(std::floor(way->nearest(plane.world(*picked.value.at))), way->count() - 1);
    const geometry::Course &course = way->pieces()[static_cast<std::size_t>(piece)];
    if (course.isClosed()) {
        const double half = course.first() + geometry::FullTurn / 2;
        co_return Measured{plane.user(course.at(half)), plane.user(course.at(course.first()))};
    }
    co_return Measured{plane.user(course.at(course.first())), plane.user(course.at(course.last()))};
}

// What is typed for the text instead of the measurement, and how it is turned.
struct DimensionLabel
{
    std::u16string text;         // empty: the measurement
    std::optional<double> angle; // radians; none: along the line
};

struct LinearDimension
{
    Vector first, second, at; // `at` lies on the dimension line
    Direction direction = Direction::Free;
    double angle = 0; // radians
    DimensionLabel label;

    // A place beside the two is meant for a vertical dimension, above or below for a horizontal one.
    double lineAngle() const
    {
        const Vector across = second - first;
        if (direction == Direction::Rotated)
            return angle;
        if (direction == Direction::Aligned)
            return std::atan2(across.y, across.x);
        const double left = std::min(first.x, second.x), right = std::max(first.x, second.x);
        const double low = std::min(first.y, second.y), high = std::max(first.y, second.y);
        const double beside = std::max({left - at.x, at.x - right, 0.0}),
                     above = std::max({low - at.y, at.y - high, 0.0});
        const bool isVertical = direction == Direction::Vertical || (direction == Direction::Free && beside > above);
        return isVertical ? geometry::FullTurn / 4 : 0;
    }
};

std::u16string shownLength(Context &context, const LinearDimension &dimension)
{
    const double angle = dimension.lineAngle();
    const Vector along{std::cos(angle), std::sin(angle), 0};
    return drawing::dimensionText(currentStyle(context), std::abs(dot(dimension.second - dimension.first, along)), {});
}

// `line` and `text` are in the user's coordinates.
GroupList commonDimension(Context &context, std::int64_t type, const Vector &line, const Vector &text,
                          const DimensionLabel &label)
{
    constexpr std::int64_t MiddleCentre = 5;
    const WorkPlane plane(context.session());
    GroupList groups = newEntity(context, u"DIMENSION");
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbDimension"));
    groups.push_back(pointGroup(10, plane.world({line.x, line.y, line.z})));
    groups.push_back(pointGroup(11, plane.object({text.x, text.y, text.z})));
    groups.push_back(integerGroup(70, type));
    groups.push_back(textGroup(1, label.text));
    groups.push_back(integerGroup(71, MiddleCentre));
    groups.push_back(textGroup(3, context.session().text(u"DIMSTYLE")));
    if (const double turn = degrees(-plane.objectAngle(0)); turn != 0)
        groups.push_back(realGroup(51, turn));
    if (plane.normal() != Vector{0, 0, 1})
        groups.push_back(pointGroup(210, plane.normal()));
    return groups;
}

void addDimension(Context &context, GroupList groups)
{
    giveCurrentStyle(context, groups);
    const RecordId dimension = addEntity(context, groups);
    if (!drawing::drawDimension(context.drawing(), dimension, currentStyle(context)))
        throw CommandError{u"The picture of the dimension cannot be made."};
}

// The file has the angle from how the text would stand otherwise.
void addTextAngle(GroupList &groups, const DimensionLabel &label, double usual)
{
    if (label.angle)
        groups.push_back(realGroup(53, degrees(*label.angle - usual)));
}

void addLinear(Context &context, const LinearDimension &dimension)
{
    constexpr std::int64_t Rotated = 0, Aligned = 1;
    const double angle = dimension.lineAngle();
    const Vector across{-std::sin(angle), std::cos(angle), 0};
    const Vector foot = dimension.second + across * dot(dimension.at - dimension.second, across);
    const bool isAligned = dimension.direction == Direction::Aligned;
    const WorkPlane plane(context.session());
    GroupList groups = commonDimension(context, isAligned ? Aligned : Rotated, foot, foot, dimension.label);
    addTextAngle(groups, dimension.label, angle);
    groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbAlignedDimension"));
    groups.push_back(pointGroup(13, plane.world({dimension.first.x, dimension.first.y, dimension.first.z})));
    groups.push_back(pointGroup(14, plane.world({dimension.second.x, dimension.second.y, dimension.second.z})));
    if (!isAligned) {
        groups.push_back(realGroup(50, degrees(plane.objectAngle(angle))));
        groups.push_back(textGroup(drawing::groupcode::Subclass, u"AcDbRotatedDimension"));
    }
    addDimension(context, groups);
}

Task<std::u16string> askText(Context &context, const std::u16string length)
{
    const std::u16string prompt = u"Enter dimension text <" + length + u">: ";
    const auto text = co_await context.ask().string({prompt});
    co_return text.value;
}

Task<std::optional<double>> askTextAngle(Context &context)
{
    const auto angle = co_await context.ask().angle({u"Specify angle of dimension text: "});
    co_return angle.hasValue() ? std::optional(angle.value) : std::nullopt;
}

std::u16string_view linearKeywords(Direction direction)
{
    return direction == Direction::Free ? u"Mtext Text Angle Horizontal Vertical Rotated" : u"Mtext Text Angle";
}

Command linear(Context &context, Direction direction, TextQuestion question)
{
    LinearDimension dimension;
    dimension.direction = direction;
    if (direction == Direction::Rotated) {
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
            dimension.direction = Direction::Rotated;
            dimension.angle = angle.value;
        } else if (place.is(u"Angle")) {
            dimension.label.angle = co_await askTextAngle(context);
        } else {
            dimension.label.text = co_await askText(context, shownLength(context, dimension));
        }
    }
    if (question == TextQuestion::AtEnd)
        dimension.label.text = co_await askText(context, shownLength(context, dimension));
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
    constexpr std::int64_t DiameterType = 3, RadiusType = 4;
    const bool isRadius = dimension.across == Across::Radius;
    const Vector out = normalized(dimension.at - dimension.centre, {1, 0, 0}) * dimension.radius;
    const Vector tip = dimension.centre + out, start = isRadius ? dimension.centre : dimension.centre - out;
    GroupList groups =
        commonDimension(context, isRadius ? RadiusType : DiameterType, start, dimension.at, dimension.label);
    addTextAngle(groups, dimension.label, 0);
    groups.push_back(
        textGroup(drawing::groupcode::Subclass, isRadius ? u"AcDbRadialDimension" : u"AcDbDiametricDimension"));
    groups.push_back(pointGroup(15, WorkPlane(context.session()).world({tip.x, tip.y, tip.z})));
    groups.push_back(realGroup(40, length(dimension.at - tip)));
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
            dimension.label.text = co_await askText(context, dimension.shown(context));
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
        dimension.label.text = co_await askText(context, dimension.shown(context));
    addRadial(context, dimension);
}

constexpr std::u16string_view subcommands = u"HORizontal VERtical ALigned ROtated RAdius Diameter Exit";

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
        co_await linear(context, Direction::Rotated, Question);
    else if (choice.is(u"RAdius"))
        co_await radial(context, Across::Radius, Question);
    else if (choice.is(u"Diameter"))
        co_await radial(context, Across::Diameter, Question);
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
