// System variables, and the commands that only set them.

#include "host/commands/Colors.h"
#include "host/commands/Commands.h"

#include <QString>

namespace commands {

namespace {

std::u16string shownValue(const VariableValue &value)
{
    if (const auto *integer = std::get_if<int>(&value))
        return shown(std::int64_t{*integer});
    if (const auto *real = std::get_if<double>(&value))
        return shown(*real);
    if (const auto *point = std::get_if<Point>(&value))
        return shown(*point);
    return u'"' + std::get<std::u16string>(value) + u'"';
}

// Asks for a value of the kind that the variable has; none: it stays.
Task<std::optional<VariableValue>> newValue(Context &context, const VariableValue &old, const std::u16string &prompt)
{
    if (std::holds_alternative<int>(old)) {
        const auto reply = co_await context.ask().integer({prompt});
        co_return reply.hasValue() ? std::optional<VariableValue>(reply.value) : std::nullopt;
    }
    if (std::holds_alternative<double>(old)) {
        const auto reply = co_await context.ask().distance({prompt});
        co_return reply.hasValue() ? std::optional<VariableValue>(reply.value) : std::nullopt;
    }
    if (std::holds_alternative<Point>(old)) {
        const auto reply = co_await context.ask().point({prompt});
        co_return reply.hasValue() ? std::optional<VariableValue>(reply.value) : std::nullopt;
    }
    const auto reply = co_await context.ask().string({prompt});
    if (!reply.hasValue())
        co_return std::nullopt;
    co_return reply.value == u"." ? VariableValue(std::u16string()) : VariableValue(reply.value); // "." is no text
}

Command askValue(Context &context, const std::u16string name)
{
    const std::optional<VariableValue> old = context.session().variable(name);
    if (!old)
        throw CommandError{u"Unknown variable name: " + name};
    const std::u16string prompt = u"Enter new value for " + name + u" <" + shownValue(*old) + u">: ";
    const std::optional<VariableValue> value = co_await newValue(context, *old, prompt);
    if (value && !context.session().set(name, *value))
        throw CommandError{u"Cannot set " + name + u" to " + shownValue(*value) + u"."};
}

} // namespace

Command setVariable(Context &context)
{
    const auto name = co_await context.ask().string({u"Enter variable name: ", {}, Enter::Refused});
    co_await askValue(context, QString::fromStdU16String(name.value).toUpper().toStdU16String());
}

Command changeVariable(Context &context)
{
    co_await askValue(context, context.name());
}

// The snaps that hold while a person points: OSMODE.
Command objectSnap(Context &context)
{
    const auto names = co_await context.ask().string({u"Enter list of object snap modes: "});
    const std::optional<snap::Modes> modes =
        names.hasValue() ? snap::modesFromText(names.value) : snap::Modes(snap::None);
    if (!modes)
        throw CommandError{u"Invalid object snap mode."};
    context.session().assign(u"OSMODE", static_cast<int>(*modes & ~snap::Suppressed));
}

Command color(Context &context)
{
    const std::u16string prompt =
        u"Enter default object color [Truecolor] <" + context.session().text(u"CECOLOR") + u">: ";
    const auto choice = co_await context.ask().string({prompt, u"Truecolor"});
    if (choice.isNothing())
        co_return;
    std::u16string text = choice.value;
    if (choice.is(u"Truecolor")) {
        const auto values = co_await context.ask().string({u"Red,Green,Blue: ", {}, Enter::Refused});
        text = values.value;
    }
    const std::optional<Color> color = colorFromText(text);
    if (!color)
        throw CommandError{u"A color number or standard color name is required."};
    context.session().assign(u"CECOLOR", colorText(*color));
}

} // namespace commands
