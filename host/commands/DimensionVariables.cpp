#include "host/commands/DimensionVariables.h"

#include "host/commands/TableRecords.h"
#include "host/drawing/edit/DimensionParts.h"

namespace commands {

using drawing::DimensionPostCode;
using drawing::DimensionVariable;
using drawing::dimensionVariables;
using drawing::GroupList;
using drawing::Handle;
using drawing::known::BlockRecord;
using drawing::known::Style;

namespace {

constexpr std::u16string_view PostVariable = u"DIMPOST", TextStyleVariable = u"DIMTXSTY";

// What points to another record by its handle and is its name for programs.
struct NameRow
{
    std::u16string_view variable;
    int code;
    drawing::NameId table;
};
constexpr NameRow nameRows[] = {{TextStyleVariable, drawing::DimensionTextStyleCode, Style},
                                {u"DIMBLK", 342, BlockRecord},
                                {u"DIMBLK1", 343, BlockRecord},
                                {u"DIMBLK2", 344, BlockRecord}};

drawing::Group groupOf(const VariableValue &value, int code)
{
    if (const auto *integer = std::get_if<int>(&value))
        return drawing::integerGroup(code, *integer);
    return drawing::realGroup(code, std::get<double>(value));
}

std::u16string nameOf(Context &context, const GroupList &style, const NameRow &row)
{
    const auto *handle = drawing::findValue<Handle>(style, row.code);
    const RecordId record = handle ? context.database().find(*handle) : drawing::NoRecord;
    if (record != drawing::NoRecord)
        return context.database().name(record);
    return row.table == Style ? u"Standard" : u"";
}

} // namespace

void keepVariables(Context &context, GroupList &style)
{
    Session &session = context.session();
    for (const DimensionVariable &variable : dimensionVariables)
        drawing::setGroup(style, groupOf(*session.variable(variable.name), variable.code));
    drawing::setGroup(style, drawing::textGroup(DimensionPostCode, session.text(PostVariable)));
    for (const NameRow &row : nameRows) {
        drawing::removeGroups(style, row.code);
        const RecordId record = findRecord(context, row.table, session.text(row.variable));
        if (record != drawing::NoRecord && !context.database().isBefore2000())
            drawing::setGroup(style, {row.code, Handle{context.database().record(record).handle}});
    }
}

void restoreVariables(Context &context, const GroupList &style)
{
    Session &session = context.session();
    for (const DimensionVariable &variable : dimensionVariables) {
        if (std::holds_alternative<int>(*session.variable(variable.name)))
            session.assign(variable.name, static_cast<int>(drawing::integerOf(
                                              style, variable.code, static_cast<std::int64_t>(variable.standard))));
        else
            session.assign(variable.name, drawing::realOf(style, variable.code, variable.standard));
    }
    session.assign(PostVariable, drawing::textOf(style, DimensionPostCode));
    for (const NameRow &row : nameRows)
        session.assign(row.variable, nameOf(context, style, row));
}

drawing::DimensionStyle currentStyle(Context &context)
{
    GroupList variables;
    keepVariables(context, variables);
    return drawing::dimensionStyle(variables, context.session().text(TextStyleVariable));
}

void giveCurrentStyle(Context &context, GroupList &dimension)
{
    constexpr int StyleNameCode = 3;
    GroupList variables;
    keepVariables(context, variables);
    drawing::setInDimensionPart(dimension, drawing::textGroup(StyleNameCode, context.session().text(u"DIMSTYLE")));
    drawing::overrideStyle(context.drawing(), dimension, variables);
}

} // namespace commands
