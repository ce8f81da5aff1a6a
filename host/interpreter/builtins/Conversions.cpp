// Numbers to text and back. The modes that a call leaves out come from the machine's unit variables.

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Printer.h"
#include "host/interpreter/text/AngularUnits.h"
#include "host/interpreter/text/LinearUnits.h"
#include "host/interpreter/text/RealText.h"
#include "host/interpreter/text/Units.h"

namespace lisp {

namespace {

int optionalInteger(Args arguments, std::uint32_t index, int fallback)
{
    return arguments[index].isNil() ? fallback : arguments.integer(index);
}

[[noreturn]] void badMode(Value mode)
{
    fail(u"bad argument value: units mode " + printed(mode));
}

LinearUnits linearMode(Machine &machine, Args arguments)
{
    const std::optional<LinearUnits> mode = linearUnits(optionalInteger(arguments, 1, machine.unitVariables().lunits));
    if (!mode)
        badMode(arguments[1]);
    return *mode;
}

AngularUnits angularMode(Machine &machine, Args arguments)
{
    const std::optional<AngularUnits> mode =
        angularUnits(optionalInteger(arguments, 1, machine.unitVariables().aunits));
    if (!mode)
        badMode(arguments[1]);
    return *mode;
}

UnitStyle unitStyle(Machine &machine)
{
    return {machine.unitVariables().unitmode, machine.unitVariables().dimzin};
}

Value realOrNil(std::optional<double> number)
{
    return number ? Value::canonicalReal(*number) : Value::nil();
}

Value distanceToText(Machine &machine, Args arguments)
{
    const double number = arguments.number(0);
    const int precision = optionalInteger(arguments, 2, machine.unitVariables().luprec);
    return machine.string(rtos(number, linearMode(machine, arguments), precision, unitStyle(machine)));
}

Value textToDistance(Machine &machine, Args arguments)
{
    return realOrNil(distof(arguments.text(0), linearMode(machine, arguments)));
}

Value angleToText(Machine &machine, Args arguments)
{
    const double angle = arguments.number(0);
    const int precision = optionalInteger(arguments, 2, machine.unitVariables().auprec);
    return machine.string(angtos(angle, angularMode(machine, arguments), precision, unitStyle(machine)));
}

Value textToAngle(Machine &machine, Args arguments)
{
    return realOrNil(angtof(arguments.text(0), angularMode(machine, arguments)));
}

Value integerToText(Machine &machine, Args arguments)
{
    arguments.integer(0);
    return machine.string(printed(arguments[0]));
}

Value textToInteger(Machine &, Args arguments)
{
    return Value::integer(leadingInteger(arguments.text(0)));
}

Value textToReal(Machine &, Args arguments)
{
    return Value::canonicalReal(leadingReal(arguments.text(0)));
}

// A number, or each one of a list.
Value convertUnit(Machine &machine, Args arguments)
{
    const std::optional<UnitConversion> conversion = unitConversion(arguments.text(1), arguments.text(2));
    if (arguments[0].isNumber() && !conversion)
        return Value::nil();
    if (arguments[0].isNumber())
        return Value::canonicalReal(conversion->convert(arguments.number(0)));
    ListBuilder converted(machine.heap());
    for (const Value number : ListItems(arguments.list(0))) {
        if (!number.isNumber())
            badArgument(u"numberp:", number);
        if (conversion)
            converted.add(Value::canonicalReal(conversion->convert(number.asDouble())));
    }
    return converted.list();
}

constexpr BuiltinRow rows[] = {
    {"rtos", "(rtos NUMBER [MODE [PRECISION]])",
     "Writes a distance: 1 scientific, 2 decimal, 3 engineering, 4 architectural, 5 fractional.", distanceToText},
    {"distof", "(distof STRING [MODE])", "Reads a distance, nil if the text is none.", textToDistance},
    {"angtos", "(angtos ANGLE [MODE [PRECISION]])",
     "Writes an angle in radians as 0 degrees, 1 degrees/minutes/seconds, 2 grads, 3 radians, 4 surveyor's units.",
     angleToText},
    {"angtof", "(angtof STRING [MODE])", "Reads an angle as radians, nil if the text is none.", textToAngle},
    {"cvunit", "(cvunit VALUE FROM TO)",
     "Converts a number, or a list of them, between units of one kind, \"inch\" \"mm\"; nil when there is no such unit "
     "or the kinds differ.",
     convertUnit},
    {"itoa", "(itoa INTEGER)", "Writes an integer.", integerToText},
    {"atoi", "(atoi STRING)", "Reads the integer that a text begins with, 0 if there is none.", textToInteger},
    {"atof", "(atof STRING)", "Reads the real that a text begins with, 0.0 if there is none.", textToReal},
};

} // namespace

std::span<const BuiltinRow> conversionBuiltins()
{
    return rows;
}

} // namespace lisp
