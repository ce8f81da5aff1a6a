// What objects look like: CHPROP, LINETYPE.

#include "host/commands/Colors.h"
#include "host/commands/Commands.h"
#include "host/commands/Linetypes.h"
#include "host/commands/ObjectProperties.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/Lineweights.h"
#include "host/drawing/edit/Elevation.h"
#include "host/drawing/edit/TransformRows.h"

#include <QString>

#include <algorithm>

namespace commands {

using drawing::GroupList;
using drawing::integerGroup;
using drawing::realGroup;
using drawing::textGroup;

namespace {

enum Code : int {
    LinetypeCode = 6,
    ThicknessCode = 39,
    LinetypeScaleCode = 48,
    LineweightCode = 370,
    TransparencyCode = 440
};

constexpr std::u16string_view ByLayer = u"ByLayer", ByBlock = u"ByBlock"; // instead of a linetype

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
    changeAll(context, entities, [&](GroupList &groups) { setColor(context.database(), groups, *color); });
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

// ByLayer and ByBlock are no linetypes, but options: they may be typed as those are.
Task<std::u16string> askLinetype(Context &context, const std::u16string_view prompt)
{
    const auto name = co_await context.ask().string({prompt, u"ByLayer,BYLAYER ByBlock,BYBLOCK"});
    if (name.isNothing())
        co_return std::u16string(ByLayer);
    co_return name.hasValue() ? name.value : name.keyword;
}

Command changeLinetype(Context &context, const Selection &entities)
{
    const std::u16string linetype = co_await askLinetype(context, u"Enter new linetype name <ByLayer>: ");
    const bool isByLayer = linetype == ByLayer;
    if (!isByLayer && ensureLinetype(context, linetype) == drawing::NoRecord)
        throw CommandError{u"Cannot find linetype \"" + linetype + u"\"."};
    changeAll(context, entities, [&](GroupList &groups) {
        drawing::removeGroups(groups, LinetypeCode);
        if (!isByLayer)
            drawing::setGroupBehindLayer(groups, textGroup(LinetypeCode, linetype));
    });
}

Command changeLinetypeScale(Context &context, const Selection &entities)
{
    const auto scale = co_await context.ask().distance({u"Specify new linetype scale: "}, Positive);
    if (scale.isNothing())
        co_return;
    changeAll(context, entities, [&](GroupList &groups) {
        drawing::setGroupBehindLayer(groups, realGroup(LinetypeScaleCode, scale.value));
    });
}

bool hasThickness(const GroupList &groups)
{
    constexpr std::u16string_view types[] = {u"ARC",   u"ATTDEF", u"ATTRIB", u"CIRCLE", u"LINE", u"LWPOLYLINE",
                                             u"POINT", u"SHAPE",  u"SOLID",  u"TEXT",   u"TRACE"};
    const std::u16string type = drawing::textOf(groups, drawing::groupcode::Type);
    if (type == u"POLYLINE")
        return (drawing::integerOf(groups, drawing::groupcode::Count) & drawing::InSpaceFlags) == 0;
    return std::ranges::find(types, type) != std::end(types);
}

// Other objects stay as they are.
Command changeThickness(Context &context, const Selection &entities)
{
    const auto thickness = co_await context.ask().distance({u"Specify new thickness: "});
    if (thickness.isNothing())
        co_return;
    changeAll(context, entities, [&](GroupList &groups) {
        if (hasThickness(groups))
            drawing::setGroupInFirstPart(groups, realGroup(ThicknessCode, thickness.value));
    });
}

Command changeElevation(Context &context, const Selection &entities)
{
    const auto elevation = co_await context.ask().distance({u"Specify new elevation: "});
    if (elevation.isNothing())
        co_return;
    std::size_t left = 0;
    for (const RecordId entity : entities) {
        context.session().pulse();
        left += drawing::setElevation(context.drawing(), entity, elevation.value) ? 0 : 1;
    }
    if (left > 0)
        throw CommandError{shown(static_cast<std::int64_t>(left)) + u" objects have no single elevation."};
}

Command changeLineweight(Context &context, const Selection &entities)
{
    const auto weight =
        co_await context.ask().real({u"Enter new lineweight <ByLayer>: ", u"ByLayer ByBlock Default"}, NotNegative);
    int value = drawing::LineweightByLayer;
    if (weight.hasValue())
        value = drawing::lineweightOf(weight.value);
    else if (!weight.isNothing() && !weight.is(u"ByLayer"))
        value = weight.is(u"ByBlock") ? drawing::LineweightByBlock : drawing::DefaultLineweight;
    if (context.database().isBefore2000())
        co_return;
    changeAll(context, entities,
              [&](GroupList &groups) { drawing::setGroupBehindLayer(groups, integerGroup(LineweightCode, value)); });
}

Command changeTransparency(Context &context, const Selection &entities)
{
    constexpr int MostPercent = 90, Opaque = 255, Hundred = 100, ByAlpha = 0x02000000;
    const auto percent = co_await context.ask().integer(
        {u"Enter a new transparency value (0-90) <ByLayer>: ", u"ByLayer ByBlock"}, {0, MostPercent});
    changeAll(context, entities, [&](GroupList &groups) {
        drawing::removeGroups(groups, TransparencyCode);
        if (percent.hasValue())
            drawing::setGroupBehindLayer(
                groups, integerGroup(TransparencyCode, ByAlpha | (Opaque - percent.value * Opaque / Hundred)));
    });
}

void setCurrentLinetype(Context &context, const std::u16string &name)
{
    if (name == ByLayer || name == ByBlock)
        return context.session().assign(u"CELTYPE", name);
    const RecordId record = ensureLinetype(context, name);
    if (record == drawing::NoRecord)
        context.session().print(u"\nLinetype \"" + name + u"\" not found.\n");
    else
        context.session().assign(u"CELTYPE", context.database().name(record));
}

} // namespace

// What goes wrong with one does not end the command.
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
                co_await changeLinetypeScale(context, entities);
            else if (option.is(u"LWeight"))
                co_await changeLineweight(context, entities);
            else if (option.is(u"TRansparency"))
                co_await changeTransparency(context, entities);
            else if (option.is(u"Thickness"))
                co_await changeThickness(context, entities);
            else
                co_await changeElevation(context, entities);
        } catch (const CommandError &error) {
            failure = error;
        }
        if (failure)
            context.session().print(u'\n' + failure->message + u'\n');
    }
}

Command chprop(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    co_await changeProperties(context, entities);
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
            const std::u16string name = co_await askLinetype(context, u"Specify linetype name <ByLayer>: ");
            setCurrentLinetype(context, name);
        } else {
            for (const RecordId record : context.tables().entries(drawing::known::Linetype))
                context.session().print(u"\n\"" + context.database().name(record) + u'"');
            context.session().print(u"\n");
        }
    }
}

} // namespace commands
