// -DIMSTYLE: the dimension variables under a name.

#include "host/commands/Commands.h"
#include "host/commands/DimensionVariables.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/HeaderVariables.h"
#include "host/drawing/dimensions/DimensionDrawing.h"

#include <QString>

namespace commands {

using drawing::GroupList;
using drawing::known::DimensionStyle;

namespace {

void makeCurrent(Context &context, RecordId style)
{
    const std::u16string name = context.database().name(style);
    context.session().assign(u"DIMSTYLE", name);
    drawing::setVariable(context.database(), "$DIMSTYLE", drawing::textGroup(drawing::groupcode::Name, name));
}

void restoreStyle(Context &context, RecordId style)
{
    restoreVariables(context, context.database().groups(style));
    makeCurrent(context, style);
}

void list(Context &context, const std::u16string &patterns)
{
    context.session().print(u"\nNamed dimension styles:");
    for (const RecordId style : recordsLike(context, DimensionStyle, patterns))
        context.session().print(u'\n' + context.database().name(style));
    context.session().print(u"\n");
}

RecordId requireStyle(Context &context, const std::u16string &name)
{
    const RecordId style = findRecord(context, DimensionStyle, name);
    if (style == drawing::NoRecord)
        throw CommandError{u"Unknown dimension style \"" + name + u"\"."};
    return style;
}

// One with a name, or that of a dimension.
Task<RecordId> askStyle(Context &context)
{
    constexpr int StyleCode = 3;
    for (;;) {
        const auto name = co_await context.ask().string({u"Enter a dimension style name, [?] or <select dimension>: "});
        if (name.hasValue() && name.value != u"?")
            co_return requireStyle(context, name.value);
        if (name.hasValue()) {
            list(context, u"*");
            continue;
        }
        const auto picked = co_await context.ask().entity({u"Select dimension: ", {}, Enter::Refused});
        const GroupList groups = context.database().groups(picked.value.entity);
        co_return requireStyle(context, drawing::textOf(groups, StyleCode, u"Standard"));
    }
}

Command saveStyle(Context &context)
{
    const auto name = co_await context.ask().string({u"Enter name for new dimension style: ", {}, Enter::Refused});
    if (!isValidName(name.value))
        throw CommandError{u"Invalid dimension style name."};
    RecordId style = findRecord(context, DimensionStyle, name.value);
    if (style != drawing::NoRecord) {
        const auto redefines =
            co_await context.ask().keyword({u"That name is already in use, redefine it? [Yes/No] <N>: ", u"Yes No"});
        if (!redefines.is(u"Yes"))
            co_return;
    } else {
        style = addRecord(context, {drawing::textGroup(drawing::groupcode::Type, u"DIMSTYLE"),
                                    drawing::textGroup(drawing::groupcode::Name, name.value)});
    }
    GroupList groups = context.database().groups(style);
    keepVariables(context, groups);
    context.database().replace(style, groups);
    makeCurrent(context, style);
}

Command applyStyle(Context &context)
{
    for (const RecordId entity : co_await selectObjects(context)) {
        if (context.database().type(entity) != u"DIMENSION")
            continue;
        GroupList groups = context.database().groups(entity);
        giveCurrentStyle(context, groups);
        context.database().replace(entity, groups);
        drawing::drawDimension(context.drawing(), entity, currentStyle(context));
    }
}

void showVariables(Context &context, const GroupList &groups)
{
    for (const drawing::DimensionVariable &row : drawing::dimensionVariables)
        context.session().print(
            QStringLiteral("\n%1  %2")
                .arg(QString::fromStdU16String(std::u16string(row.name)))
                .arg(drawing::realOf(
                    groups, row.code,
                    static_cast<double>(drawing::integerOf(groups, row.code, static_cast<std::int64_t>(row.standard)))))
                .toStdU16String());
    context.session().print(u"\n");
}

} // namespace

Command dimensionStyle(Context &context)
{
    context.say(u"Current dimension style: " + context.session().text(u"DIMSTYLE"));
    const auto option = co_await context.ask().keyword(
        {u"Enter a dimension style option [Save/Restore/STatus/Variables/Apply/?] <Restore>: ",
         u"Save Restore STatus Variables Apply ?"});
    if (option.is(u"Save")) {
        co_await saveStyle(context);
    } else if (option.is(u"Apply")) {
        co_await applyStyle(context);
    } else if (option.is(u"Variables")) {
        showVariables(context, context.database().groups(co_await askStyle(context)));
    } else if (option.is(u"STatus")) {
        GroupList groups;
        keepVariables(context, groups);
        showVariables(context, groups);
    } else if (option.is(u"?")) {
        const auto wanted = co_await context.ask().string({u"Enter dimension style(s) to list <*>: "});
        list(context, wanted.hasValue() ? wanted.value : u"*");
    } else {
        restoreStyle(context, co_await askStyle(context));
    }
}

} // namespace commands
