#include "host/commands/CommandTable.h"

#include "host/commands/Commands.h"

#include <QStringView>

#include <algorithm>

namespace commands {

namespace {

using enum CommandRow::Undo;

// Sorted by name.
constexpr CommandRow table[] = {
    {u"-COLOR", color},       {u"COLOR", color},        {u"ERASE", erase},    {u"REDO", redo, Own},
    {u"SELECT", select, Own}, {u"SETVAR", setVariable}, {u"U", undoOne, Own}, {u"UNDO", undo, Own},
};

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
