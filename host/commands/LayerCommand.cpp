// -LAYER: makes layers and changes what they are, one option after the other until Enter.

#include "host/commands/Colors.h"
#include "host/commands/Commands.h"
#include "host/commands/Linetypes.h"
#include "host/commands/Renaming.h"
#include "host/commands/TableRecords.h"

#include "host/drawing/LayerState.h"
#include "host/drawing/Lineweights.h"
#include "host/drawing/entities/EntityChange.h"

#include <QString>
#include <QStringList>

#include <cstdlib>

namespace commands {

using drawing::integerGroup;
using drawing::integerOf;
using drawing::textGroup;
using drawing::known::Layer;

namespace {

enum Code : int { LinetypeCode = 6, ColorCode = 62, FlagsCode = 70, PlotsCode = 290, LineweightCode = 370 };

using drawing::layerflag::Frozen;
using drawing::layerflag::Locked;

std::u16string currentLayer(Context &context)
{
    return context.session().text(u"CLAYER");
}

std::int64_t groupOf(Context &context, RecordId layer, int code, std::int64_t fallback)
{
    return integerOf(context.database().groups(layer), code, fallback);
}

bool isCurrent(Context &context, RecordId layer)
{
    return drawing::folded(context.database().name(layer)) == drawing::folded(currentLayer(context));
}

bool isOff(Context &context, RecordId layer)
{
    return groupOf(context, layer, ColorCode, 7) < 0; // a layer that is off has a negative colour
}

void setFlag(Context &context, RecordId layer, std::int64_t flag, bool on)
{
    const std::int64_t flags = groupOf(context, layer, FlagsCode, 0);
    changeRecord(context, layer, integerGroup(FlagsCode, on ? flags | flag : flags & ~flag));
}

void switchOn(Context &context, RecordId layer, bool on)
{
    const std::int64_t color = std::abs(groupOf(context, layer, ColorCode, 7));
    changeRecord(context, layer, integerGroup(ColorCode, on ? color : -color));
}

void freeze(Context &context, RecordId layer)
{
    if (isCurrent(context, layer))
        context.session().print(u"\nCannot freeze layer \"" + context.database().name(layer) +
                                u"\". It is the CURRENT layer.\n");
    else
        setFlag(context, layer, Frozen, true);
}

void setColorOf(Context &context, RecordId layer, const Color &color)
{
    drawing::GroupList groups = context.database().groups(layer);
    removeTrueColor(groups);
    const std::int64_t sign = isOff(context, layer) ? -1 : 1;
    drawing::setGroup(groups, integerGroup(ColorCode, sign * indexOf(color)));
    if (const std::optional<drawing::Group> trueColor = trueColorGroup(context.database(), color))
        drawing::setGroup(groups, *trueColor);
    context.database().replace(layer, groups);
}

std::vector<std::u16string> namesOf(const std::u16string &list)
{
    std::vector<std::u16string> names;
    for (const QString &name : QString::fromStdU16String(list).split(u',', Qt::SkipEmptyParts))
        names.push_back(name.trimmed().toStdU16String());
    return names;
}

RecordId makeLayer(Context &context, const std::u16string &name)
{
    if (const RecordId there = findRecord(context, Layer, name); there != drawing::NoRecord)
        return there;
    if (!isValidName(name))
        throw CommandError{u"Invalid layer name."};
    drawing::ensureLayer(context.drawing(), name);
    return findRecord(context, Layer, name);
}

void setCurrent(Context &context, RecordId layer)
{
    if ((groupOf(context, layer, FlagsCode, 0) & Frozen) != 0)
        throw CommandError{u"Cannot set a frozen layer as current."};
    context.session().assign(u"CLAYER", context.database().name(layer));
}

// The layers that a list of names or patterns means; the prompt's default is the current one.
Task<std::vector<RecordId>> askLayers(Context &context, const std::u16string what)
{
    const std::u16string prompt = u"Enter name list of layer(s) " + what + u" <" + currentLayer(context) + u">: ";
    const auto names = co_await context.ask().string({prompt});
    const std::u16string list = names.hasValue() ? names.value : currentLayer(context);
    std::vector<RecordId> layers = recordsLike(context, Layer, list);
    if (layers.empty())
        context.session().print(u"\nNo matching layer names found.\n");
    co_return layers;
}

Command makeOption(Context &context)
{
    const std::u16string prompt =
        u"Enter name for new layer (becomes the current layer) <" + currentLayer(context) + u">: ";
    const auto name = co_await context.ask().string({prompt});
    if (name.hasValue())
        setCurrent(context, makeLayer(context, name.value));
}

Command newOption(Context &context)
{
    const auto list = co_await context.ask().string({u"Enter name list for new layer(s): "});
    for (const std::u16string &name : namesOf(list.value))
        makeLayer(context, name);
}

Command setOption(Context &context)
{
    const std::u16string prompt = u"Enter layer name to make current or <select object>: ";
    const auto name = co_await context.ask().string({prompt});
    if (name.isNothing())
        co_return;
    const RecordId layer = findRecord(context, Layer, name.value);
    if (layer == drawing::NoRecord)
        throw CommandError{u"Cannot find layer \"" + name.value + u"\"."};
    setCurrent(context, layer);
}

Command renameOption(Context &context)
{
    const auto old = co_await context.ask().string({u"Enter old layer name: ", {}, Enter::Refused});
    const RecordId layer = findRecord(context, Layer, old.value);
    if (layer == drawing::NoRecord)
        throw CommandError{u"Cannot find layer \"" + old.value + u"\"."};
    const auto name = co_await context.ask().string({u"Enter new layer name: ", {}, Enter::Refused});
    renameRecord(context, u"layer", layer, name.value);
}

Command colorOption(Context &context)
{
    const auto answer = co_await context.ask().string({u"New color [Truecolor/COlorbook] <7 (white)>: ", u"Truecolor"});
    std::u16string text = answer.isNothing() ? u"7" : answer.value;
    if (answer.is(u"Truecolor")) {
        const auto values = co_await context.ask().string({u"Red,Green,Blue: ", {}, Enter::Refused});
        text = values.value;
    }
    const std::optional<Color> color = colorFromText(text);
    if (!color || (!color->rgb && (color->index <= Color::ByBlock || color->index >= Color::ByLayer)))
        throw CommandError{u"A color number or standard color name is required."};
    const std::vector<RecordId> layers = co_await askLayers(context, u"for color " + text);
    for (const RecordId layer : layers)
        setColorOf(context, layer, *color);
}

Command linetypeOption(Context &context)
{
    const auto name = co_await context.ask().string({u"Enter loaded linetype name or [?] <Continuous>: "});
    const std::u16string linetype = name.hasValue() ? name.value : u"Continuous";
    if (ensureLinetype(context, linetype) == drawing::NoRecord)
        throw CommandError{u"Cannot find linetype \"" + linetype + u"\"."};
    const std::vector<RecordId> layers = co_await askLayers(context, u"for linetype \"" + linetype + u"\"");
    for (const RecordId layer : layers)
        changeRecord(context, layer, textGroup(LinetypeCode, linetype));
}

Command lineweightOption(Context &context)
{
    const auto weight =
        co_await context.ask().real({u"Enter lineweight (0.0mm - 2.11mm): ", u"Default", Enter::Refused}, NotNegative);
    const int value = weight.is(u"Default") ? drawing::DefaultLineweight : drawing::lineweightOf(weight.value);
    const std::vector<RecordId> layers = co_await askLayers(context, u"for lineweight");
    for (const RecordId layer : layers)
        if (!context.database().isBefore2000())
            changeRecord(context, layer, integerGroup(LineweightCode, value));
}

Command plotOption(Context &context)
{
    const auto choice =
        co_await context.ask().keyword({u"Enter a plotting preference [Plot/No plot] <Plot>: ", u"Plot No"});
    const std::vector<RecordId> layers = co_await askLayers(context, u"for this plot preference");
    for (const RecordId layer : layers)
        changeRecord(context, layer, integerGroup(PlotsCode, choice.is(u"No") ? 0 : 1));
}

Command switchOption(Context &context, bool on)
{
    const std::vector<RecordId> layers = co_await askLayers(context, on ? u"to turn On" : u"to turn Off");
    for (const RecordId layer : layers) {
        if (!on && isCurrent(context, layer)) {
            const auto sure =
                co_await context.ask().keyword({u"Really want layer to be turned off? [Yes/No] <N>: ", u"Yes No"});
            if (!sure.is(u"Yes"))
                continue;
        }
        switchOn(context, layer, on);
    }
}

Command flagOption(Context &context, const std::u16string &keyword)
{
    const bool freezes = keyword == u"Freeze", thaws = keyword == u"Thaw", locks = keyword == u"LOck";
    const std::vector<RecordId> layers = co_await askLayers(
        context, freezes ? u"to freeze" : (thaws ? u"to thaw" : (locks ? u"to lock" : u"to unlock")));
    for (const RecordId layer : layers) {
        if (freezes)
            freeze(context, layer);
        else
            setFlag(context, layer, thaws ? Frozen : Locked, locks);
    }
}

void listLayers(Context &context, const std::u16string &patterns)
{
    for (const RecordId layer : recordsLike(context, Layer, patterns)) {
        const std::int64_t flags = groupOf(context, layer, FlagsCode, 0);
        QString line = QStringLiteral("\"%1\"").arg(QString::fromStdU16String(context.database().name(layer)));
        line += isOff(context, layer) ? QStringLiteral("  Off") : QStringLiteral("  On");
        line += QStringLiteral("  %1").arg(std::abs(groupOf(context, layer, ColorCode, 7)));
        line += (flags & Frozen) != 0 ? QStringLiteral("  Frozen") : QString();
        line += (flags & Locked) != 0 ? QStringLiteral("  Locked") : QString();
        context.session().print(u'\n' + line.toStdU16String());
    }
    context.session().print(u"\n");
}

constexpr std::u16string_view Options =
    u"Enter an option [?/Make/Set/New/Rename/ON/OFF/Color/Ltype/LWeight/Plot/Freeze/Thaw/LOck/Unlock]: ";

Command runOption(Context &context, const std::u16string &option)
{
    if (option == u"Make")
        co_await makeOption(context);
    else if (option == u"Set")
        co_await setOption(context);
    else if (option == u"New")
        co_await newOption(context);
    else if (option == u"Rename")
        co_await renameOption(context);
    else if (option == u"ON" || option == u"OFF")
        co_await switchOption(context, option == u"ON");
    else if (option == u"Color")
        co_await colorOption(context);
    else if (option == u"Ltype")
        co_await linetypeOption(context);
    else if (option == u"LWeight")
        co_await lineweightOption(context);
    else if (option == u"Plot")
        co_await plotOption(context);
    else
        co_await flagOption(context, option);
}

} // namespace

// What goes wrong in an option does not end the command, whose further answers are for its options.
Command layer(Context &context)
{
    for (;;) {
        const auto option = co_await context.ask().keyword(
            {Options, u"? Make Set New Rename ON OFF Color Ltype LWeight Plot Freeze Thaw LOck Unlock"});
        if (option.isNothing())
            co_return;
        if (option.is(u"?")) {
            const auto names = co_await context.ask().string({u"Enter layer name(s) to list <*>: "});
            listLayers(context, names.hasValue() ? names.value : u"*");
            continue;
        }
        std::optional<CommandError> failure;
        try {
            co_await runOption(context, option.keyword);
        } catch (const CommandError &error) {
            failure = error;
        }
        if (failure)
            context.session().print(u'\n' + failure->message + u'\n');
    }
}

} // namespace commands
