#pragma once

#include "host/interpreter/text/DecimalText.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

// The string expressions of menus and status lines: text in which $(function,argument,…) stands for what the function
// gives. Everything is text; numbers are read from it.
namespace lisp {

// What expressions ask the host for.
struct MacroEnvironment
{
    std::function<std::optional<std::u16string>(std::u16string_view)> variable; // a system variable as text
    std::function<std::u16string(std::u16string_view)> environment;             // empty: there is none
    std::function<double()> date;                                               // days of the Julian calendar
    struct Units
    {
        int linear = 2, linearPrecision = 4, angular = 0, angularPrecision = 0;
        UnitStyle style = {};
    } units = {};
};

// Evaluates one text. Mistakes show in what comes out:
//   $?             the expression does not end: no parenthesis closes it, or no quote
//   $(func,??)     the arguments do not suit the function
//   $(func)??      there is no such function
//   $(++)          the result was too long and is cut there
class StringExpression
{
public:
    static constexpr std::size_t LongestResult = 1024;

    explicit StringExpression(const MacroEnvironment &environment) : m_environment(environment) {}
    std::u16string evaluate(std::u16string_view text);

private:
    friend class MacroCall;
    enum class Place { Text, Argument };

    std::u16string expanded(std::u16string_view text, Place place);
    std::u16string call(std::u16string_view inside);
    std::optional<std::u16string_view> takeCall(std::u16string_view text, std::size_t &next) const;

    const MacroEnvironment &m_environment;
    int m_depth = 0;
    bool m_isBroken = false; // the rest is not evaluated
};

// The arguments of one call, evaluated when they are asked for.
class MacroCall
{
public:
    MacroCall(StringExpression &expression, std::span<const std::u16string_view> arguments)
        : m_expression(expression), m_arguments(arguments)
    {
    }

    std::size_t count() const { return m_arguments.size(); }
    std::u16string text(std::size_t index) const;
    std::optional<double> number(std::size_t index) const; // none: it does not begin with one
    std::optional<std::int64_t> integer(std::size_t index) const;
    std::u16string evaluated(std::u16string_view text) const; // of an expression that a function has made
    const MacroEnvironment &environment() const { return m_expression.m_environment; }

private:
    StringExpression &m_expression;
    std::span<const std::u16string_view> m_arguments;
};

// StringFunctions.cpp
struct MacroFunction
{
    std::u16string_view name;
    std::size_t least, most;                                 // arguments
    std::optional<std::u16string> (*run)(const MacroCall &); // none: the arguments do not suit
};
const MacroFunction *findMacroFunction(std::u16string_view name); // null: there is none

// As arithmetic shows it: no decimals but those that are needed.
std::u16string macroNumber(double number);

} // namespace lisp
