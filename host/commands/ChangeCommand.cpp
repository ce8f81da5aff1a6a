// CHANGE: where single objects lie, and what they say; or their properties, as CHPROP.

#include "host/commands/Commands.h"
#include "host/commands/ObjectProperties.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/TextPlacing.h"
#include "host/drawing/edit/Transform.h"

#include <cmath>

namespace commands {

using drawing::GroupList;
using drawing::placeOf;
using drawing::realGroup;
using drawing::realOf;
using drawing::textGroup;
using drawing::textOf;
using drawing::groupcode::FirstX;
using geometry::Matrix;

namespace {

enum Code : int {
    TextCode = 1,
    TagCode = 2,
    PromptCode = 3,
    StyleCode = 7,
    EndCode = 11,
    RadiusCode = 40,
    HeightCode = 40,
    RotationCode = 50
};

void put(Context &context, RecordId entity, const GroupList &groups)
{
    if (!context.database().replace(entity, groups))
        throw CommandError{u"The value cannot be written."};
}

WorkPlane ownPlane(const GroupList &groups)
{
    return WorkPlane(Matrix::ofExtrusion(drawing::extrusionOf(groups)));
}

double turned(const Matrix &matrix, double angle)
{
    const Vector direction = matrix.direction({std::cos(angle), std::sin(angle), 0});
    return std::atan2(direction.y, direction.x);
}

// In the world; none: it shall stay where it is.
Task<std::optional<Vector>> askPlace(Context &context, const std::u16string_view prompt)
{
    const auto place = co_await context.ask().point({prompt});
    if (place.isNothing())
        co_return std::nullopt;
    co_return WorkPlane(context.session()).world(place.value);
}

// An angle in the object's own plane, in radians.
Task<double> askRotation(Context &context, const std::u16string_view wanted, const WorkPlane own, const double now)
{
    const Matrix ownToUser = geometry::inverse(WorkPlane(context.session()).toWorld()) * own.toWorld();
    const double origin = context.session().real(u"ANGBASE");
    const std::u16string prompt =
        std::u16string(wanted) + u" <" + context.session().angleText(turned(ownToUser, now) - origin) + u">: ";
    const auto angle = co_await context.ask().direction({prompt});
    co_return angle.hasValue() ? turned(geometry::inverse(ownToUser), angle.value) : now;
}

// The end that is nearer to the place moves there.
void changeLine(Context &context, RecordId line, const Vector &place)
{
    GroupList groups = context.database().groups(line);
    const double toStart = geometry::length(place - placeOf(groups, FirstX));
    const double toEnd = geometry::length(place - placeOf(groups, EndCode));
    drawing::setGroup(groups, drawing::pointGroup(toEnd < toStart ? EndCode : FirstX, place));
    put(context, line, groups);
}

void changePoint(Context &context, RecordId point, const Vector &place)
{
    GroupList groups = context.database().groups(point);
    drawing::setGroup(groups, drawing::pointGroup(FirstX, place));
    put(context, point, groups);
}

// It then goes through the place.
Command changeCircle(Context &context, const RecordId circle, const std::optional<Vector> place)
{
    GroupList groups = context.database().groups(circle);
    const WorkPlane own = ownPlane(groups);
    const Vector centre = placeOf(groups, FirstX);
    double radius = 0;
    if (place) {
        const Point through = own.user(*place);
        radius = std::hypot(through.x - centre.x, through.y - centre.y);
    } else {
        const Point base = WorkPlane(context.session()).user(own.toWorld().place(centre));
        const auto asked = co_await context.ask().distance(
            {u"Specify new circle radius <no change>: ", {}, Enter::Allowed, base}, Positive);
        if (asked.isNothing())
            co_return;
        radius = asked.value;
    }
    if (!(radius > 0))
        throw CommandError{u"Value must be positive and nonzero."};
    drawing::setGroup(groups, realGroup(RadiusCode, radius));
    put(context, circle, groups);
}

void transform(Context &context, RecordId entity, const Matrix &matrix)
{
    if (!drawing::transformEntity(context.drawing(), entity, {matrix, false}))
        throw CommandError{u"The value cannot be written."};
}

// With its attributes.
Command changeInsert(Context &context, const RecordId insert, std::optional<Vector> place)
{
    const GroupList groups = context.database().groups(insert);
    const WorkPlane own = ownPlane(groups);
    const Vector was = own.toWorld().place(placeOf(groups, FirstX));
    if (!place)
        place = co_await askPlace(context, u"Specify new block insertion point <no change>: ");
    if (place)
        transform(context, insert, Matrix::translation(*place - was));
    const double before = geometry::radians(realOf(groups, RotationCode));
    const double after = co_await askRotation(context, u"Specify new block rotation angle", own, before);
    const Vector centre = place.value_or(was);
    if (after != before)
        transform(context, insert,
                  Matrix::translation(centre) * Matrix::rotation(own.normal(), after - before) *
                      Matrix::translation(-centre));
}

double fixedHeight(Context &context, const GroupList &text)
{
    const RecordId style = findRecord(context, drawing::known::Style, textOf(text, StyleCode, u"Standard"));
    return style != drawing::NoRecord ? realOf(context.database().groups(style), HeightCode) : 0;
}

Command changeStyle(Context &context, GroupList &text)
{
    const std::u16string prompt = u"Enter new text style <" + textOf(text, StyleCode, u"Standard") + u">: ";
    const auto name = co_await context.ask().string({prompt});
    if (name.isNothing())
        co_return;
    const RecordId style = findRecord(context, drawing::known::Style, name.value);
    if (style == drawing::NoRecord)
        throw CommandError{u"Cannot find text style \"" + name.value + u"\"."};
    drawing::setGroupInFirstPart(text, textGroup(StyleCode, context.database().name(style)));
    if (const double height = fixedHeight(context, text); height > 0)
        drawing::setGroup(text, realGroup(HeightCode, height));
}

// That of a style is not asked for.
Command changeHeight(Context &context, GroupList &text)
{
    if (fixedHeight(context, text) > 0)
        co_return;
    const std::u16string prompt =
        u"Specify new height <" + context.session().distanceText(realOf(text, HeightCode)) + u">: ";
    const auto height = co_await context.ask().distance({prompt}, Positive);
    if (height.isNothing())
        co_return;
    drawing::setGroup(text, realGroup(HeightCode, height.value));
}

Command changeRotation(Context &context, GroupList &text)
{
    const double before = geometry::radians(realOf(text, RotationCode));
    const double after = co_await askRotation(context, u"Specify new rotation angle", ownPlane(text), before);
    if (after != before)
        drawing::setGroupInFirstPart(text, realGroup(RotationCode, degrees(after)));
}

Command changeString(Context &context, GroupList &text, const std::u16string_view wanted, const int code)
{
    const std::u16string prompt = std::u16string(wanted) + u" <" + textOf(text, code) + u">: ";
    const auto string = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    if (string.hasValue())
        drawing::setGroup(text, textGroup(code, string.value));
}

Command changeText(Context &context, const RecordId entity, std::optional<Vector> place)
{
    GroupList text = context.database().groups(entity);
    if (!place)
        place = co_await askPlace(context, u"Specify new text insertion point <no change>: ");
    if (place)
        drawing::moveText(text, geometry::vectorOf(ownPlane(text).user(*place)));
    co_await changeStyle(context, text);
    co_await changeHeight(context, text);
    co_await changeRotation(context, text);
    if (textOf(text, drawing::groupcode::Type) == u"TEXT") {
        co_await changeString(context, text, u"Enter new text", TextCode);
    } else {
        co_await changeString(context, text, u"Enter new tag", TagCode);
        co_await changeString(context, text, u"Enter new prompt", PromptCode);
        co_await changeString(context, text, u"Enter new default value", TextCode);
    }
    drawing::settleText(context.drawing(), text);
    put(context, entity, text);
}

Command changeOne(Context &context, const RecordId entity, const std::optional<Vector> place)
{
    const std::u16string type = context.database().type(entity);
    if (type == u"CIRCLE")
        co_await changeCircle(context, entity, place);
    else if (type == u"INSERT")
        co_await changeInsert(context, entity, place);
    else if (type == u"TEXT" || type == u"ATTDEF")
        co_await changeText(context, entity, place);
    else if (type == u"LINE" && place)
        changeLine(context, entity, *place);
    else if (type == u"POINT" && place)
        changePoint(context, entity, *place);
}

} // namespace

Command change(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const auto point = co_await context.ask().point({u"Specify change point or [Properties]: ", u"Properties"});
    if (point.is(u"Properties"))
        co_return co_await changeProperties(context, entities);
    std::optional<Vector> place;
    if (point.hasValue())
        place = WorkPlane(context.session()).world(point.value);
    for (const RecordId entity : entities)
        co_await changeOne(context, entity, place);
}

} // namespace commands
