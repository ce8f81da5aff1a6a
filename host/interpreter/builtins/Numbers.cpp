// Arithmetic, bits and the elementary functions. Integers are 32 bits wide and wrap.

#include "host/interpreter/Builtins.h"

#include <cmath>
#include <cstdlib>
#include <limits>
#include <numeric>

namespace lisp {

namespace {

Value wrapped(std::uint32_t number)
{
    return Value::integer(static_cast<std::int32_t>(number));
}

bool anyReal(Args arguments)
{
    for (std::uint32_t i = 0; i < arguments.count(); ++i) {
        arguments.number(i);
        if (arguments[i].isReal()) {
            for (std::uint32_t rest = i + 1; rest < arguments.count(); ++rest)
                arguments.number(rest);
            return true;
        }
    }
    return false;
}

std::uint32_t bits(Value integer)
{
    return static_cast<std::uint32_t>(integer.asInteger());
}

Value divisionByZero()
{
    fail(u"divide by zero");
}

// Folds the arguments from the left, integers as long as all so far were integers: (/ 100 20.0 2) is 2.5.
template <class Integers, class Reals> Value fold(Args arguments, Integers integers, Reals reals)
{
    anyReal(arguments); // raises the type error before any work is done
    Value result = arguments[0];
    for (std::uint32_t i = 1; i < arguments.count(); ++i) {
        const Value next = arguments[i];
        result = result.isInteger() && next.isInteger()
                     ? integers(result, next)
                     : Value::canonicalReal(reals(result.asDouble(), next.asDouble()));
    }
    return result;
}

Value add(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    return fold(
        arguments, [](Value a, Value b) { return wrapped(bits(a) + bits(b)); },
        [](double a, double b) { return a + b; });
}

Value subtract(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    if (arguments.count() == 1) {
        const double number = arguments.number(0);
        return arguments[0].isInteger() ? wrapped(0u - bits(arguments[0])) : Value::real(-number);
    }
    return fold(
        arguments, [](Value a, Value b) { return wrapped(bits(a) - bits(b)); },
        [](double a, double b) { return a - b; });
}

Value multiply(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    return fold(
        arguments, [](Value a, Value b) { return wrapped(bits(a) * bits(b)); },
        [](double a, double b) { return a * b; });
}

Value divide(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    return fold(
        arguments,
        [](Value a, Value b) {
            if (b.asInteger() == 0)
                return divisionByZero();
            // The one quotient that does not fit wraps around to itself.
            return b.asInteger() == -1 ? wrapped(0u - bits(a)) : Value::integer(a.asInteger() / b.asInteger());
        },
        [](double a, double b) { return b == 0.0 ? divisionByZero().asReal() : a / b; });
}

Value remainder(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    return fold(
        arguments,
        [](Value a, Value b) {
            if (b.asInteger() == 0)
                return divisionByZero();
            return Value::integer(b.asInteger() == -1 ? 0 : a.asInteger() % b.asInteger());
        },
        [](double a, double b) { return b == 0.0 ? divisionByZero().asReal() : std::fmod(a, b); });
}

template <bool (*Better)(double, double)> Value extreme(Machine &, Args arguments)
{
    if (arguments.count() == 0)
        return Value::integer(0);
    const bool asReal = anyReal(arguments); // one real among them makes the result real
    Value best = arguments[0];
    for (std::uint32_t i = 1; i < arguments.count(); ++i)
        if (Better(arguments[i].asDouble(), best.asDouble()))
            best = arguments[i];
    return asReal ? Value::real(best.asDouble()) : best;
}

bool isLess(double a, double b)
{
    return a < b;
}

bool isGreater(double a, double b)
{
    return a > b;
}

Value increment(Machine &, Args arguments)
{
    const double number = arguments.number(0);
    return arguments[0].isInteger() ? wrapped(bits(arguments[0]) + 1) : Value::real(number + 1);
}

Value decrement(Machine &, Args arguments)
{
    const double number = arguments.number(0);
    return arguments[0].isInteger() ? wrapped(bits(arguments[0]) - 1) : Value::real(number - 1);
}

Value absolute(Machine &, Args arguments)
{
    const double number = arguments.number(0);
    if (arguments[0].isReal())
        return Value::real(std::fabs(number));
    return number < 0 ? wrapped(0u - bits(arguments[0])) : arguments[0];
}

// Truncates; what does not fit an integer stays a real without fraction.
Value fix(Machine &, Args arguments)
{
    const double whole = std::trunc(arguments.number(0));
    if (whole >= std::numeric_limits<std::int32_t>::min() && whole <= std::numeric_limits<std::int32_t>::max())
        return Value::integer(static_cast<std::int32_t>(whole));
    return Value::canonicalReal(whole);
}

Value toReal(Machine &, Args arguments)
{
    return Value::real(arguments.number(0));
}

Value greatestCommonDivisor(Machine &, Args arguments)
{
    std::int64_t result = 0;
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        result = std::gcd(result, static_cast<std::int64_t>(arguments.integer(i)));
    return wrapped(static_cast<std::uint32_t>(result));
}

double sine(double angle)
{
    return std::sin(angle);
}

double cosine(double angle)
{
    return std::cos(angle);
}

double exponential(double number)
{
    return std::exp(number);
}

template <double (*Function)(double)> Value elementary(Machine &, Args arguments)
{
    return Value::canonicalReal(Function(arguments.number(0)));
}

Value squareRoot(Machine &, Args arguments)
{
    const double number = arguments.number(0);
    if (number < 0)
        fail(u"function undefined for argument");
    return Value::real(std::sqrt(number));
}

Value naturalLogarithm(Machine &, Args arguments)
{
    const double number = arguments.number(0);
    if (number <= 0)
        fail(u"function undefined for argument");
    return Value::real(std::log(number));
}

// Integer powers of integers stay integers while they fit.
Value power(Machine &, Args arguments)
{
    const double base = arguments.number(0), exponent = arguments.number(1);
    const double result = std::pow(base, exponent);
    if (arguments[0].isInteger() && arguments[1].isInteger() && exponent >= 0 &&
        std::fabs(result) <= std::numeric_limits<std::int32_t>::max())
        return Value::integer(static_cast<std::int32_t>(result));
    return Value::canonicalReal(result);
}

// The angle of (X, Y) with two arguments, the arc tangent with one.
Value arcTangent(Machine &, Args arguments)
{
    const double y = arguments.number(0);
    return Value::real(arguments[1].isTrue() ? std::atan2(y, arguments.number(1)) : std::atan(y));
}

Value isZero(Machine &machine, Args arguments)
{
    return machine.boolean(arguments.number(0) == 0.0);
}

Value isNegative(Machine &machine, Args arguments)
{
    return machine.boolean(arguments.number(0) < 0.0);
}

Value isNumber(Machine &machine, Args arguments)
{
    return machine.boolean(arguments[0].isNumber());
}

Value logicalAnd(Machine &, Args arguments)
{
    std::int32_t result = arguments.count() == 0 ? 0 : -1;
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        result &= arguments.integer(i);
    return Value::integer(result);
}

Value logicalOr(Machine &, Args arguments)
{
    std::int32_t result = 0;
    for (std::uint32_t i = 0; i < arguments.count(); ++i)
        result |= arguments.integer(i);
    return Value::integer(result);
}

Value logicalNot(Machine &, Args arguments)
{
    return Value::integer(~arguments.integer(0));
}

// Bit i of the operator number says whether the result has a bit where the two operands have (1 1), (1 0), (0 1) and
// (0 0) for i = 0 … 3.
Value boole(Machine &, Args arguments)
{
    const std::int32_t which = arguments.integer(0);
    std::int32_t result = arguments.integer(1);
    for (std::uint32_t i = 2; i < arguments.count(); ++i) {
        const std::int32_t a = result, b = arguments.integer(i);
        result = ((which & 1) ? a & b : 0) | ((which & 2) ? a & ~b : 0) | ((which & 4) ? ~a & b : 0) |
                 ((which & 8) ? ~a & ~b : 0);
    }
    return Value::integer(result);
}

Value shift(Machine &, Args arguments)
{
    const std::uint32_t number = static_cast<std::uint32_t>(arguments.integer(0));
    const std::int32_t count = arguments.integer(1);
    if (count <= -32 || count >= 32)
        return Value::integer(0);
    return wrapped(count >= 0 ? number << count : number >> -count);
}

constexpr BuiltinRow rows[] = {
    {"+", "(+ [NUMBER ...])", "Adds numbers.", add},
    {"-", "(- [NUMBER ...])", "Subtracts the other numbers from the first; negates a single one.", subtract},
    {"*", "(* [NUMBER ...])", "Multiplies numbers.", multiply},
    {"/", "(/ [NUMBER ...])", "Divides the first number by the others; integers give an integer.", divide},
    {"rem", "(rem [NUMBER ...])", "Gives the remainder of the division, from left to right.", remainder},
    {"max", "(max [NUMBER ...])", "Gives the largest number.", extreme<isGreater>},
    {"min", "(min [NUMBER ...])", "Gives the smallest number.", extreme<isLess>},
    {"1+", "(1+ NUMBER)", "Gives the number plus 1.", increment},
    {"1-", "(1- NUMBER)", "Gives the number minus 1.", decrement},
    {"abs", "(abs NUMBER)", "Gives the absolute value.", absolute},
    {"fix", "(fix NUMBER)", "Truncates toward zero.", fix},
    {"float", "(float NUMBER)", "Gives the number as a real.", toReal},
    {"gcd", "(gcd [INTEGER ...])", "Gives the greatest common divisor.", greatestCommonDivisor},
    {"sin", "(sin ANGLE)", "Gives the sine of an angle in radians.", elementary<sine>},
    {"cos", "(cos ANGLE)", "Gives the cosine of an angle in radians.", elementary<cosine>},
    {"atan", "(atan NUMBER [NUMBER2])", "Gives the arc tangent in radians, of NUMBER/NUMBER2 in all quadrants.",
     arcTangent},
    {"sqrt", "(sqrt NUMBER)", "Gives the square root as a real.", squareRoot},
    {"exp", "(exp NUMBER)", "Gives e to the power of the number.", elementary<exponential>},
    {"log", "(log NUMBER)", "Gives the natural logarithm.", naturalLogarithm},
    {"expt", "(expt BASE POWER)", "Gives the base to the power.", power},
    {"zerop", "(zerop NUMBER)", "Gives T for zero.", isZero},
    {"minusp", "(minusp NUMBER)", "Gives T for a negative number.", isNegative},
    {"numberp", "(numberp VALUE)", "Gives T for an integer or a real.", isNumber},
    {"logand", "(logand [INTEGER ...])", "Gives the bits that all integers have.", logicalAnd},
    {"logior", "(logior [INTEGER ...])", "Gives the bits that any integer has.", logicalOr},
    {"~", "(~ INTEGER)", "Inverts all bits.", logicalNot},
    {"boole", "(boole OPERATOR INTEGER [INTEGER ...])", "Combines bits by an operator number from 0 to 15.", boole},
    {"lsh", "(lsh INTEGER COUNT)", "Shifts the bits to the left, or right by a negative count.", shift},
};

} // namespace

std::span<const BuiltinRow> numberBuiltins()
{
    return rows;
}

} // namespace lisp
