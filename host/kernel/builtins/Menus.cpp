// Menus. There are none here; what programs use them for all the same is the evaluation of string expressions.

#include "host/interpreter/macro/StringExpression.h"
#include "host/kernel/Document.h"
#include "host/kernel/builtins/HostBuiltins.h"

#include <QStringView>

using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

std::u16string textOf(const VariableValue &value)
{
    if (const auto *text = std::get_if<std::u16string>(&value))
        return *text;
    if (const auto *point = std::get_if<LispPoint>(&value))
        return lisp::macroNumber(point->x) + u',' + lisp::macroNumber(point->y) + u',' + lisp::macroNumber(point->z);
    const int *integer = std::get_if<int>(&value);
    return lisp::macroNumber(integer ? *integer : std::get<double>(value));
}

lisp::MacroEnvironment environmentOf(Document &document)
{
    lisp::MacroEnvironment environment;
    const auto variable = [&document](std::u16string_view name) -> std::optional<std::u16string> {
        const VariableRow *row = findVariable(name);
        return row ? std::optional(textOf(document.variables().get(*row))) : std::nullopt;
    };
    environment.variable = variable;
    environment.environment = [](std::u16string_view name) {
        const QStringView text(name.data(), static_cast<qsizetype>(name.size()));
        return qEnvironmentVariable(text.toLocal8Bit().constData()).toStdU16String();
    };
    environment.date = [&document] { return std::get<double>(document.variables().get(*findVariable(u"DATE"))); };
    const lisp::UnitVariables &units = document.machine().unitVariables();
    environment.units = {units.lunits, units.luprec, units.aunits, units.auprec, {units.unitmode, units.dimzin}};
    return environment;
}

// "M=" evaluates; the sections of menus, as in "P1=*", are nowhere shown.
Value menuCommand(Machine &machine, Args arguments)
{
    const std::u16string_view text = arguments.text(0);
    if (text.size() < 2 || (text[0] != u'M' && text[0] != u'm') || text[1] != u'=')
        return Value::nil();
    const lisp::MacroEnvironment environment = environmentOf(Document::of(machine));
    return machine.string(lisp::StringExpression(environment).evaluate(text.substr(2)));
}

constexpr lisp::BuiltinRow rows[] = {
    {"menucmd", "(menucmd TEXT)",
     "Of a text \"M=...\" gives what follows with its string expressions $(...) evaluated; nil for menu sections.",
     menuCommand},
};

} // namespace

std::span<const lisp::BuiltinRow> menuBuiltins()
{
    return rows;
}
