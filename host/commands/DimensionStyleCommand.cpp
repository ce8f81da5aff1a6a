// -DIMSTYLE: the dimension variables under a name.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/HeaderVariables.h"

#include <QString>

namespace commands {

using drawing::GroupList;
using drawing::Handle;
using drawing::known::BlockRecord;
using drawing::known::DimensionStyle;
using drawing::known::Style;

namespace {

// Where a style keeps a variable (DXF reference, DIMSTYLE), and what it means when it keeps nothing.
struct Row
{
    std::u16string_view variable;
    int code;
    double standard;
};

// clang-format off
constexpr Row numbers[] = {
    {u"DIMSCALE", 40, 1},       {u"DIMASZ", 41, 0.18},   {u"DIMEXO", 42, 0.0625},  {u"DIMDLI", 43, 0.38},
    {u"DIMEXE", 44, 0.18},      {u"DIMRND", 45, 0},      {u"DIMDLE", 46, 0},       {u"DIMTP", 47, 0},
    {u"DIMTM", 48, 0},          {u"DIMTOL", 71, 0},      {u"DIMLIM", 72, 0},       {u"DIMTIH", 73, 1},
    {u"DIMTOH", 74, 1},         {u"DIMSE1", 75, 0},      {u"DIMSE2", 76, 0},       {u"DIMTAD", 77, 0},
    {u"DIMZIN", 78, 0},         {u"DIMTXT", 140, 0.18},  {u"DIMCEN", 141, 0.09},   {u"DIMTSZ", 142, 0},
    {u"DIMALTF", 143, 25.4},    {u"DIMLFAC", 144, 1},    {u"DIMGAP", 147, 0.09},   {u"DIMALT", 170, 0},
    {u"DIMALTD", 171, 2},       {u"DIMTOFL", 172, 0},    {u"DIMSAH", 173, 0},      {u"DIMCLRD", 176, 0},
    {u"DIMCLRE", 177, 0},       {u"DIMCLRT", 178, 0},    {u"DIMDEC", 271, 4},      {u"DIMLUNIT", 277, 2},
};
// clang-format on

// What points to another record by its handle and is its name for programs.
struct NameRow
{
    std::u16string_view variable;
    int code;
    drawing::NameId table;
};
constexpr NameRow nameRows[] = {{u"DIMTXSTY", 340, Style},
                                {u"DIMBLK", 342, BlockRecord},
                                {u"DIMBLK1", 343, BlockRecord},
                                {u"DIMBLK2", 344, BlockRecord}};
constexpr std::u16string_view TextVariable = u"DIMPOST";
constexpr int TextCode = 3;

drawing::Group groupOf(const VariableValue &value, int code)
{
    if (const auto *integer = std::get_if<int>(&value))
        return drawing::integerGroup(code, *integer);
    return drawing::realGroup(code, std::get<double>(value));
}

// The variables as they are now, into the groups of a style.
void keepVariables(Context &context, GroupList &groups)
{
    Session &session = context.session();
    for (const Row &row : numbers)
        drawing::setGroup(groups, groupOf(*session.variable(row.variable), row.code));
    drawing::setGroup(groups, drawing::textGroup(TextCode, session.text(TextVariable)));
    for (const NameRow &row : nameRows) {
        drawing::removeGroups(groups, row.code);
        const RecordId record = findRecord(context, row.table, session.text(row.variable));
        if (record != drawing::NoRecord && !context.database().isBefore2000())
            drawing::setGroup(groups, {row.code, Handle{context.database().record(record).handle}});
    }
}

std::u16string nameOf(Context &context, const GroupList &groups, const NameRow &row)
{
    const auto *handle = drawing::findValue<Handle>(groups, row.code);
    const RecordId record = handle ? context.database().find(*handle) : drawing::NoRecord;
    if (record != drawing::NoRecord)
        return context.database().name(record);
    return row.table == Style ? u"Standard" : u"";
}

void makeCurrent(Context &context, RecordId style)
{
    const std::u16string name = context.database().name(style);
    context.session().assign(u"DIMSTYLE", name);
    drawing::setVariable(context.database(), "$DIMSTYLE", drawing::textGroup(drawing::groupcode::Name, name));
}

// The other way.
void restoreVariables(Context &context, RecordId style)
{
    Session &session = context.session();
    const GroupList groups = context.database().groups(style);
    for (const Row &row : numbers) {
        if (std::holds_alternative<int>(*session.variable(row.variable)))
            session.assign(row.variable, static_cast<int>(drawing::integerOf(groups, row.code,
                                                                             static_cast<std::int64_t>(row.standard))));
        else
            session.assign(row.variable, drawing::realOf(groups, row.code, row.standard));
    }
    session.assign(TextVariable, drawing::textOf(groups, TextCode));
    for (const NameRow &row : nameRows)
        session.assign(row.variable, nameOf(context, groups, row));
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

// Dimensions take the current style's name; their pictures stay until they are made anew.
Command applyStyle(Context &context)
{
    constexpr int StyleCode = 3;
    for (const RecordId entity : co_await selectObjects(context)) {
        if (context.database().type(entity) != u"DIMENSION")
            continue;
        GroupList groups = context.database().groups(entity);
        drawing::setGroup(groups, drawing::textGroup(StyleCode, context.session().text(u"DIMSTYLE")));
        context.database().replace(entity, groups);
    }
}

void showVariables(Context &context, const GroupList &groups)
{
    for (const Row &row : numbers)
        context.session().print(
            QStringLiteral("\n%1  %2")
                .arg(QString::fromStdU16String(std::u16string(row.variable)))
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
        restoreVariables(context, co_await askStyle(context));
    }
}

} // namespace commands
