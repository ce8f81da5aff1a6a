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

// The other objects are still asked about: the answers to that may have been sent already.
void complain(Context &context, const std::u16string &message)
{
    context.session().print(u'\n' + message + u'\n');
}

void checkWritten(Context &context, bool isWritten)
{
    if (!isWritten)
        complain(context, u"The value cannot be written.");
}

void put(Context &context, RecordId entity, const GroupList &groups)
{
    checkWritten(context, context.database().replace(entity, groups));
}

// Programs may do so while the command waits for them.
bool isErased(Context &context, RecordId entity)
{
    return context.database().record(entity).isGone();
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

// An angle in the object's own plane, in radians; none: it shall stay as it is.
Task<std::optional<double>> askRotation(Context &context, const std::u16string_view wanted, const WorkPlane own,
                                        const double now)
{
    const Matrix ownToUser = geometry::inverse(WorkPlane(context.session()).toWorld()) * own.toWorld();
    const double origin = context.session().real(u"ANGBASE");
    const std::u16string prompt =
        std::u16string(wanted) + u" <" + context.session().angleText(turned(ownToUser, now) - origin) + u">: ";
    const auto angle = co_await context.ask().direction({prompt});
    if (angle.isNothing())
        co_return std::nullopt;
    co_return turned(geometry::inverse(ownToUser), angle.value);
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

double distanceFromCentre(const GroupList &circle, const Vector &place)
{
    const Point through = ownPlane(circle).user(place);
    const Vector centre = placeOf(circle, FirstX);
    return std::hypot(through.x - centre.x, through.y - centre.y);
}

Task<std::optional<double>> askRadius(Context &context, const RecordId circle)
{
    const GroupList groups = context.database().groups(circle);
    const Point base = WorkPlane(context.session()).user(ownPlane(groups).toWorld().place(placeOf(groups, FirstX)));
    const auto radius = co_await context.ask().distance(
        {u"Specify new circle radius <no change>: ", {}, Enter::Allowed, base}, Positive);
    if (radius.isNothing())
        co_return std::nullopt;
    co_return radius.value;
}

void setRadius(Context &context, RecordId circle, double radius)
{
    if (isErased(context, circle))
        return;
    if (!(radius > 0))
        return complain(context, u"Value must be positive and nonzero.");
    GroupList groups = context.database().groups(circle);
    drawing::setGroup(groups, realGroup(RadiusCode, radius));
    put(context, circle, groups);
}

// It then goes through the place.
Command changeCircle(Context &context, const RecordId circle, const std::optional<Vector> place)
{
    std::optional<double> radius;
    if (place)
        radius = distanceFromCentre(context.database().groups(circle), *place);
    else
        radius = co_await askRadius(context, circle);
    if (radius)
        setRadius(context, circle, *radius);
}

double rotationOf(const GroupList &groups)
{
    return geometry::radians(realOf(groups, RotationCode));
}

void transform(Context &context, RecordId entity, const Matrix &matrix)
{
    checkWritten(context, drawing::transformEntity(context.drawing(), entity, {matrix, false}));
}

// With its attributes.
void placeInsert(Context &context, RecordId insert, std::optional<Vector> place, std::optional<double> rotation)
{
    if (isErased(context, insert))
        return;
    const GroupList groups = context.database().groups(insert);
    const WorkPlane own = ownPlane(groups);
    const Vector was = own.toWorld().place(placeOf(groups, FirstX)), centre = place.value_or(was);
    const double before = rotationOf(groups), after = rotation.value_or(before);
    if (place)
        transform(context, insert, Matrix::translation(centre - was));
    if (after != before)
        transform(context, insert,
                  Matrix::translation(centre) * Matrix::rotation(own.normal(), after - before) *
                      Matrix::translation(-centre));
}

Command changeInsert(Context &context, const RecordId insert, std::optional<Vector> place)
{
    const GroupList groups = context.database().groups(insert);
    if (!place)
        place = co_await askPlace(context, u"Specify new block insertion point <no change>: ");
    const std::optional<double> rotation =
        co_await askRotation(context, u"Specify new block rotation angle", ownPlane(groups), rotationOf(groups));
    placeInsert(context, insert, place, rotation);
}

// What is answered about a text. The text itself is read again when all answers are there: a program that gives them
// may change it in between.
struct TextChange
{
    std::optional<Vector> place;
    GroupList answers;
    GroupList preview; // the text with them, for the questions

    void take(const drawing::Group &answer);
};

void setTextGroup(GroupList &text, const drawing::Group &group)
{
    if (group.code == TagCode || group.code == PromptCode)
        drawing::setGroup(text, group);
    else
        drawing::setGroupInFirstPart(text, group);
}

void TextChange::take(const drawing::Group &answer)
{
    answers.push_back(answer);
    setTextGroup(preview, answer);
}

double fixedHeight(Context &context, const GroupList &text)
{
    const RecordId style = findRecord(context, drawing::known::Style, textOf(text, StyleCode, u"Standard"));
    return style != drawing::NoRecord ? realOf(context.database().groups(style), HeightCode) : 0;
}

Command askStyle(Context &context, TextChange &change)
{
    const std::u16string prompt = u"Enter new text style <" + textOf(change.preview, StyleCode, u"Standard") + u">: ";
    for (;;) {
        const auto name = co_await context.ask().string({prompt});
        if (name.isNothing())
            co_return;
        const RecordId style = findRecord(context, drawing::known::Style, name.value);
        if (style != drawing::NoRecord) {
            change.take(textGroup(StyleCode, context.database().name(style)));
            break;
        }
        complain(context, u"Cannot find text style \"" + name.value + u"\".");
    }
    if (const double height = fixedHeight(context, change.preview); height > 0)
        change.take(realGroup(HeightCode, height));
}

// That of a style is not asked for.
Command askHeight(Context &context, TextChange &change)
{
    if (fixedHeight(context, change.preview) > 0)
        co_return;
    const std::u16string prompt =
        u"Specify new height <" + context.session().distanceText(realOf(change.preview, HeightCode)) + u">: ";
    const auto height = co_await context.ask().distance({prompt}, Positive);
    if (height.hasValue())
        change.take(realGroup(HeightCode, height.value));
}

Command askTextRotation(Context &context, TextChange &change)
{
    const double before = rotationOf(change.preview);
    const std::optional<double> after =
        co_await askRotation(context, u"Specify new rotation angle", ownPlane(change.preview), before);
    if (after && *after != before)
        change.take(realGroup(RotationCode, degrees(*after)));
}

Command askString(Context &context, TextChange &change, const std::u16string_view wanted, const int code)
{
    const std::u16string prompt = std::u16string(wanted) + u" <" + textOf(change.preview, code) + u">: ";
    const auto string = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    if (string.hasValue())
        change.take(textGroup(code, string.value));
}

void changeText(Context &context, RecordId entity, const TextChange &change)
{
    if (isErased(context, entity))
        return;
    GroupList text = context.database().groups(entity);
    if (change.place)
        drawing::moveText(text, geometry::vectorOf(ownPlane(text).user(*change.place)));
    for (const drawing::Group &answer : change.answers)
        setTextGroup(text, answer);
    drawing::settleText(context.drawing(), text);
    put(context, entity, text);
}

Command askAboutText(Context &context, const RecordId entity, const std::optional<Vector> place)
{
    TextChange change{place, {}, context.database().groups(entity)};
    if (!place)
        change.place = co_await askPlace(context, u"Specify new text insertion point <no change>: ");
    co_await askStyle(context, change);
    co_await askHeight(context, change);
    co_await askTextRotation(context, change);
    if (textOf(change.preview, drawing::groupcode::Type) == u"TEXT") {
        co_await askString(context, change, u"Enter new text", TextCode);
    } else {
        co_await askString(context, change, u"Enter new tag", TagCode);
        co_await askString(context, change, u"Enter new prompt", PromptCode);
        co_await askString(context, change, u"Enter new default value", TextCode);
    }
    changeText(context, entity, change);
}

Command changeOne(Context &context, const RecordId entity, const std::optional<Vector> place)
{
    if (isErased(context, entity))
        co_return;
    const std::u16string type = context.database().type(entity);
    if (type == u"CIRCLE")
        co_await changeCircle(context, entity, place);
    else if (type == u"INSERT")
        co_await changeInsert(context, entity, place);
    else if (type == u"TEXT" || type == u"ATTDEF")
        co_await askAboutText(context, entity, place);
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
