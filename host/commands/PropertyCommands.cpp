// What objects look like: CHPROP, CHANGE, LINETYPE.

#include "host/commands/Colors.h"
#include "host/commands/Commands.h"
#include "host/commands/Linetypes.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"

#include <QString>

#include <cmath>

namespace commands {

using drawing::GroupList;
using drawing::integerGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

enum Code : int {
    LinetypeCode = 6,
    ElevationCode = 38,
    ThicknessCode = 39,
    LinetypeScaleCode = 48,
    LineweightCode = 370,
    TransparencyCode = 440
};

template <class Change> void changeAll(Context &context, const Selection &entities, Change change)
{
    for (const RecordId entity : entities) {
        context.session().pulse();
        GroupList groups = context.database().groups(entity);
        change(groups);
        if (!context.database().replace(entity, groups))
            throw CommandError{u"The value cannot be written."};
    }
}

Command changeColor(Context &context, const Selection &entities)
{
    const auto answer = co_await context.ask().string({u"New color [Truecolor/COlorbook] <BYLAYER>: ", u"Truecolor"});
    std::u16string text = answer.isNothing() ? u"BYLAYER" : answer.value;
    if (answer.is(u"Truecolor")) {
        const auto values = co_await context.ask().string({u"Red,Green,Blue: ", {}, Enter::Refused});
        text = values.value;
    }
    const std::optional<Color> color = colorFromText(text);
    if (!color)
        throw CommandError{u"A color number or standard color name is required."};
    changeAll(context, entities, [&](GroupList &groups) { setColor(groups, *color); });
}

Command changeLayer(Context &context, const Selection &entities)
{
    const auto name = co_await context.ask().string({u"Enter new layer name: "});
    if (name.isNothing())
        co_return;
    const RecordId layer = findRecord(context, drawing::known::Layer, name.value);
    if (layer == drawing::NoRecord)
        throw CommandError{u"Cannot find layer \"" + name.value + u"\"."};
    const std::u16string exact = context.database().name(layer);
    changeAll(context, entities,
              [&](GroupList &groups) { drawing::setGroup(groups, textGroup(drawing::groupcode::Layer, exact)); });
}

Command changeLinetype(Context &context, const Selection &entities)
{
    const auto name = co_await context.ask().string({u"Enter new linetype name <ByLayer>: "});
    const std::u16string linetype = name.hasValue() ? name.value : u"ByLayer";
    const bool isByLayer = drawing::folded(linetype) == drawing::folded(u"ByLayer");
    if (!isByLayer && ensureLinetype(context, linetype) == drawing::NoRecord)
        throw CommandError{u"Cannot find linetype \"" + linetype + u"\"."};
    changeAll(context, entities, [&](GroupList &groups) {
        drawing::removeGroups(groups, LinetypeCode);
        if (!isByLayer)
            drawing::setGroupBehindLayer(groups, textGroup(LinetypeCode, linetype));
    });
}

Command changeReal(Context &context, const Selection &entities, int code, std::u16string_view prompt)
{
    const auto value = co_await context.ask().distance({prompt});
    if (value.isNothing())
        co_return;
    changeAll(context, entities, [&](GroupList &groups) {
        if (code == LinetypeScaleCode)
            drawing::setGroupBehindLayer(groups, realGroup(code, value.value));
        else
            drawing::setGroup(groups, realGroup(code, value.value));
    });
}

Command changeLineweight(Context &context, const Selection &entities)
{
    constexpr double Hundredths = 100;
    constexpr std::int64_t ByLayer = -1, ByBlock = -2, Default = -3;
    const auto weight = co_await context.ask().real({u"Enter new lineweight <ByLayer>: ", u"ByLayer ByBlock Default"});
    std::int64_t value = std::llround(weight.value * Hundredths);
    if (!weight.hasValue())
        value = weight.is(u"ByBlock") ? ByBlock : (weight.is(u"Default") ? Default : ByLayer);
    changeAll(context, entities,
              [&](GroupList &groups) { drawing::setGroupBehindLayer(groups, integerGroup(LineweightCode, value)); });
}

Command changeTransparency(Context &context, const Selection &entities)
{
    constexpr int MostPercent = 90, Opaque = 255, Hundred = 100, ByAlpha = 0x02000000;
    const auto percent =
        co_await context.ask().integer({u"Enter a new transparency value (0-90) <ByLayer>: ", u"ByLayer ByBlock"});
    if (percent.hasValue() && (percent.value < 0 || percent.value > MostPercent))
        throw CommandError{u"Requires an integer between 0 and 90."};
    changeAll(context, entities, [&](GroupList &groups) {
        drawing::removeGroups(groups, TransparencyCode);
        if (percent.hasValue())
            drawing::setGroupBehindLayer(
                groups, integerGroup(TransparencyCode, ByAlpha | (Opaque - percent.value * Opaque / Hundred)));
    });
}

// One property after the other until Enter. What goes wrong with one does not end the command.
Command changeProperties(Context &context, const Selection &entities)
{
    for (;;) {
        const auto option = co_await context.ask().keyword(
            {u"Enter property to change [Color/LAyer/LType/ltScale/LWeight/Thickness/TRansparency]: ",
             u"Color Elev LAyer LType ltScale LWeight Thickness TRansparency"});
        if (option.isNothing())
            co_return;
        std::optional<CommandError> failure;
        try {
            if (option.is(u"Color"))
                co_await changeColor(context, entities);
            else if (option.is(u"LAyer"))
                co_await changeLayer(context, entities);
            else if (option.is(u"LType"))
                co_await changeLinetype(context, entities);
            else if (option.is(u"ltScale"))
                co_await changeReal(context, entities, LinetypeScaleCode, u"Specify new linetype scale: ");
            else if (option.is(u"LWeight"))
                co_await changeLineweight(context, entities);
            else if (option.is(u"TRansparency"))
                co_await changeTransparency(context, entities);
            else if (option.is(u"Thickness"))
                co_await changeReal(context, entities, ThicknessCode, u"Specify new thickness: ");
            else
                co_await changeReal(context, entities, ElevationCode, u"Specify new elevation: ");
        } catch (const CommandError &error) {
            failure = error;
        }
        if (failure)
            context.session().print(u'\n' + failure->message + u'\n');
    }
}

// The end of a line that is nearer to the point moves there; a circle then goes through it.
void changePoint(Context &context, const Selection &entities, const Vector &place)
{
    constexpr int EndCode = 11, RadiusCode = 40;
    changeAll(context, entities, [&](GroupList &groups) {
        const std::u16string type = drawing::textOf(groups, drawing::groupcode::Type);
        const Vector first = drawing::placeOf(groups, drawing::groupcode::FirstX);
        if (type == u"LINE") {
            const bool isEnd =
                geometry::length(place - drawing::placeOf(groups, EndCode)) < geometry::length(place - first);
            drawing::setGroup(groups, drawing::pointGroup(isEnd ? EndCode : drawing::groupcode::FirstX, place));
        } else if (type == u"CIRCLE") {
            drawing::setGroup(groups, realGroup(RadiusCode, geometry::length(place - first)));
        } else if (type == u"POINT" || type == u"INSERT" || type == u"TEXT") {
            drawing::setGroup(groups, drawing::pointGroup(drawing::groupcode::FirstX, place));
        }
    });
}

void setCurrentLinetype(Context &context, const std::u16string &name)
{
    for (const char16_t *relative : {u"ByLayer", u"ByBlock"})
        if (drawing::folded(name) == drawing::folded(relative))
            return context.session().assign(u"CELTYPE", std::u16string(relative));
    const RecordId record = ensureLinetype(context, name);
    if (record == drawing::NoRecord)
        context.session().print(u"\nLinetype \"" + name + u"\" not found.\n");
    else
        context.session().assign(u"CELTYPE", context.database().name(record));
}

} // namespace

Command chprop(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    co_await changeProperties(context, entities);
}

Command change(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const auto point = co_await context.ask().point({u"Specify change point or [Properties]: ", u"Properties"});
    if (point.is(u"Properties"))
        co_await changeProperties(context, entities);
    else if (point.hasValue())
        changePoint(context, entities, WorkPlane(context.session()).world(point.value));
}

Command linetype(Context &context)
{
    for (;;) {
        const auto option = co_await context.ask().keyword({u"Enter an option [?/Load/Set]: ", u"? Create Load Set"});
        if (option.isNothing())
            co_return;
        if (option.is(u"Load")) {
            const auto names = co_await context.ask().string({u"Enter linetype(s) to load: ", {}, Enter::Refused});
            const auto file = co_await context.ask().string({u"Enter name of linetype file to search: "});
            if (loadLinetypes(context, names.value, QString::fromStdU16String(file.value)) == 0)
                context.session().print(u"\nLinetype \"" + names.value + u"\" not found.\n");
        } else if (option.is(u"Set")) {
            const auto name = co_await context.ask().string({u"Specify linetype name <ByLayer>: "});
            const std::u16string wanted = name.hasValue() ? name.value : u"ByLayer";
            setCurrentLinetype(context, wanted);
        } else {
            for (const RecordId record : context.tables().entries(drawing::known::Linetype))
                context.session().print(u"\n\"" + context.database().name(record) + u'"');
            context.session().print(u"\n");
        }
    }
}

} // namespace commands
