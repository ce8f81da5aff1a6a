// System variables: getvar and setvar.

#include "host/interpreter/Printer.h"
#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"

using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

// A variable is named by a string or a symbol.
std::u16string_view nameArgument(Args arguments)
{
    return arguments[0].isString() ? arguments.text(0) : std::u16string_view(arguments.symbol(0)->name);
}

Value toLisp(Machine &machine, const VariableRow &variable, const VariableValue &value)
{
    switch (variable.type) {
    case VariableType::Integer:
        return Value::integer(std::get<int>(value));
    case VariableType::Real:
        return Value::canonicalReal(std::get<double>(value));
    case VariableType::Text:
        return machine.string(std::get<std::u16string>(value));
    case VariableType::Point2d:
    case VariableType::Point3d:
        break;
    }
    return pointValue(machine, std::get<LispPoint>(value), variable.type == VariableType::Point2d ? 2 : 3);
}

std::optional<VariableValue> fromLisp(Value value)
{
    if (value.isInteger())
        return value.asInteger();
    if (value.isNumber())
        return value.asDouble();
    if (value.isString())
        return std::u16string(value.asString()->view());
    if (const std::optional<PointList> list = pointListOf(value))
        return list->point;
    return std::nullopt;
}

Value getVariable(Machine &machine, Args arguments)
{
    const VariableRow *variable = findVariable(nameArgument(arguments));
    if (!variable)
        return Value::nil();
    return toLisp(machine, *variable, Document::of(machine).variables().get(*variable));
}

Value setVariable(Machine &machine, Args arguments)
{
    const std::u16string_view name = nameArgument(arguments);
    const VariableRow *variable = findVariable(name);
    const std::optional<VariableValue> value = fromLisp(arguments[1]);
    if (!variable || !value || !Document::of(machine).variables().set(*variable, *value))
        lisp::fail(u"system variable setting rejected: " + std::u16string(name) + u' ' + lisp::printed(arguments[1]));
    return arguments[1];
}

constexpr lisp::BuiltinRow rows[] = {
    {"getvar", "(getvar NAME)", "Gives the value of a system variable, nil for a name that is none.", getVariable},
    {"setvar", "(setvar NAME VALUE)", "Sets a system variable and gives the value.", setVariable},
};

} // namespace

std::span<const lisp::BuiltinRow> variableBuiltins()
{
    return rows;
}
