// = /= < <= > >= eq equal

#include "host/interpreter/Builtins.h"
#include "host/interpreter/Equality.h"

#include <compare>

namespace lisp {

namespace {

// How two numbers or two strings stand to each other; raises an error for anything else.
std::partial_ordering order(Value a, Value b)
{
    if (a.isString() && b.isString())
        return a.asString()->view() <=> b.asString()->view();
    for (const Value value : {a, b})
        if (!value.isNumber())
            badArgument(u"numberp:", value);
    return a.asDouble() <=> b.asDouble();
}

// Whether the relation holds between all neighbours.
template <class Relation> Value compareNeighbours(Machine &machine, Args arguments, Relation relation)
{
    bool holds = true;
    for (std::uint32_t i = 1; i < arguments.count(); ++i)
        holds = relation(order(arguments[i - 1], arguments[i])) && holds;
    return machine.boolean(holds);
}

// Programs compare anything with = and /=, so other kinds are compared by identity instead of raising an error.
Value numbersEqual(Machine &machine, Args arguments)
{
    bool holds = true;
    for (std::uint32_t i = 1; i < arguments.count() && holds; ++i)
        holds = isSame(arguments[i - 1], arguments[i]);
    return machine.boolean(holds);
}

Value numbersDiffer(Machine &machine, Args arguments)
{
    bool holds = true;
    for (std::uint32_t i = 1; i < arguments.count() && holds; ++i)
        holds = !isSame(arguments[i - 1], arguments[i]);
    return machine.boolean(holds);
}

Value less(Machine &machine, Args arguments)
{
    return compareNeighbours(machine, arguments, std::is_lt);
}

Value lessOrEqual(Machine &machine, Args arguments)
{
    return compareNeighbours(machine, arguments, std::is_lteq);
}

Value greater(Machine &machine, Args arguments)
{
    return compareNeighbours(machine, arguments, std::is_gt);
}

Value greaterOrEqual(Machine &machine, Args arguments)
{
    return compareNeighbours(machine, arguments, std::is_gteq);
}

Value same(Machine &machine, Args arguments)
{
    return machine.boolean(isSame(arguments[0], arguments[1]));
}

Value equal(Machine &machine, Args arguments)
{
    const double fuzz = arguments[2].isTrue() ? arguments.number(2) : 0.0;
    return machine.boolean(isEqual(machine, arguments[0], arguments[1], fuzz));
}

constexpr BuiltinRow rows[] = {
    {"=", "(= VALUE [VALUE ...])", "Gives T if all values are equal.", numbersEqual},
    {"/=", "(/= VALUE [VALUE ...])", "Gives T if no two neighbours are equal.", numbersDiffer},
    {"<", "(< VALUE [VALUE ...])", "Gives T if each number or string is less than the next.", less},
    {"<=", "(<= VALUE [VALUE ...])", "Gives T if each number or string is less than or equal to the next.",
     lessOrEqual},
    {">", "(> VALUE [VALUE ...])", "Gives T if each number or string is greater than the next.", greater},
    {">=", "(>= VALUE [VALUE ...])", "Gives T if each number or string is greater than or equal to the next.",
     greaterOrEqual},
    {"eq", "(eq A B)", "Gives T if both are the same object, number or text.", same},
    {"equal", "(equal A B [FUZZ])", "Gives T if both are equal, lists item by item, numbers within the fuzz.", equal},
};

} // namespace

std::span<const BuiltinRow> comparisonBuiltins()
{
    return rows;
}

} // namespace lisp
