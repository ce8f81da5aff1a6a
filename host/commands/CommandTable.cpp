#include "host/commands/CommandTable.h"

#include "host/commands/Commands.h"

#include <QStringView>

#include <algorithm>

namespace commands {

namespace {

using enum CommandRow::Undo;

// Sorted by name.
// clang-format off
constexpr CommandRow table[] = {
    {u"-COLOR", color},
    {u"-LAYER", layer},
    {u"-LINETYPE", linetype},
    {u"-TEXT", text},
    {u"ARC", arc},
    {u"CHANGE", change},
    {u"CHPROP", chprop},
    {u"CIRCLE", circle},
    {u"COLOR", color},
    {u"COPY", copy},
    {u"DTEXT", text},
    {u"ERASE", erase},
    {u"LAYER", layer},
    {u"LINE", line},
    {u"LINETYPE", linetype},
    {u"MIRROR", mirror},
    {u"MOVE", move},
    {u"PLINE", polyline},
    {u"POINT", point},
    {u"RECTANG", rectangle},
    {u"RECTANGLE", rectangle},
    {u"REDO", redo, Own},
    {u"ROTATE", rotate},
    {u"SCALE", scale},
    {u"SELECT", select, Own},
    {u"SETVAR", setVariable},
    {u"SOLID", solid},
    {u"TEXT", text},
    {u"U", undoOne, Own},
    {u"UNDO", undo, Own},
};

// clang-format on
static_assert(std::ranges::is_sorted(table, {}, &CommandRow::name));

constexpr CommandRow variableRow{u"", changeVariable};

} // namespace

std::span<const CommandRow> commandTable()
{
    return table;
}

const CommandRow *findCommand(std::u16string_view name)
{
    const std::u16string plain = commandName(name);
    const auto row = std::ranges::lower_bound(table, std::u16string_view(plain), {}, &CommandRow::name);
    return row != std::end(table) && row->name == plain ? row : nullptr;
}

const CommandRow &variableCommand()
{
    return variableRow;
}

std::u16string commandName(std::u16string_view typed)
{
    const std::size_t start = std::min(typed.find_first_not_of(u"'_. "), typed.size());
    QStringView name(typed.data() + start, static_cast<qsizetype>(typed.size() - start));
    return name.trimmed().toString().toUpper().toStdU16String();
}

} // namespace commands
