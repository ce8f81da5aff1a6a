#include "host/interpreter/macro/DatePicture.h"
#include "host/interpreter/macro/StringExpression.h"

#include "host/interpreter/text/AngularUnits.h"
#include "host/interpreter/text/LinearUnits.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <functional>

namespace lisp {

namespace {

using Result = std::optional<std::u16string>;

constexpr std::size_t MostArguments = 9;

std::u16string truth(bool value)
{
    return value ? u"1" : u"0";
}

Result finite(double value)
{
    return std::isfinite(value) ? Result(macroNumber(value)) : std::nullopt;
}

// The first number, with each of the others in turn.
template <class Operation> Result calculated(const MacroCall &call)
{
    std::optional<double> result = call.number(0);
    for (std::size_t index = 1; result && index < call.count(); ++index) {
        const std::optional<double> value = call.number(index);
        result = value ? std::optional(Operation()(*result, *value)) : std::nullopt;
    }
    return result ? finite(*result) : std::nullopt;
}

template <class Operation> Result bits(const MacroCall &call)
{
    std::optional<std::int64_t> result = call.integer(0);
    for (std::size_t index = 1; result && index < call.count(); ++index) {
        const std::optional<std::int64_t> value = call.integer(index);
        result = value ? std::optional(Operation()(*result, *value)) : std::nullopt;
    }
    return result ? Result(macroNumber(static_cast<double>(*result))) : std::nullopt;
}

template <class Operation> Result compared(const MacroCall &call)
{
    const std::optional<double> first = call.number(0), second = call.number(1);
    return first && second ? Result(truth(Operation()(*first, *second))) : std::nullopt;
}

Result equalTexts(const MacroCall &call)
{
    return truth(call.text(0) == call.text(1));
}

Result evaluated(const MacroCall &call)
{
    return call.evaluated(call.text(0));
}

Result truncated(const MacroCall &call)
{
    const std::optional<double> value = call.number(0);
    return value ? finite(std::trunc(*value)) : std::nullopt;
}

Result environmentText(const MacroCall &call)
{
    return call.environment().environment(call.text(0));
}

Result variableText(const MacroCall &call)
{
    return call.environment().variable(call.text(0));
}

// What is not chosen is not evaluated.
Result chosen(const MacroCall &call)
{
    const std::optional<double> condition = call.number(0);
    if (!condition)
        return std::nullopt;
    if (*condition != 0)
        return call.text(1);
    return call.count() > 2 ? call.text(2) : std::u16string();
}

Result itemOfList(const MacroCall &call)
{
    const std::optional<std::int64_t> which = call.integer(0);
    if (!which || *which < 0)
        return std::nullopt;
    const std::u16string list = call.text(1);
    return QString::fromStdU16String(list).section(u',', *which, *which).toStdU16String();
}

Result lineLength(const MacroCall &)
{
    constexpr double Characters = 240; // there is no status line to measure
    return macroNumber(Characters);
}

Result argumentOf(const MacroCall &call)
{
    const std::optional<std::int64_t> which = call.integer(0);
    if (!which || *which < 0)
        return std::nullopt;
    const auto index = static_cast<std::size_t>(*which) + 1;
    return index < call.count() ? call.text(index) : std::u16string();
}

// Mode and precision may be left out.
struct UnitArguments
{
    std::optional<double> value;
    std::int64_t mode, precision;
};

std::optional<UnitArguments> unitArguments(const MacroCall &call, int mode, int precision)
{
    UnitArguments found{call.number(0), mode, precision};
    for (std::size_t index = 1; index < call.count(); ++index) {
        const std::optional<std::int64_t> value = call.integer(index);
        if (!value)
            return std::nullopt;
        (index == 1 ? found.mode : found.precision) = *value;
    }
    const bool isInRange = found.precision >= 0 && found.precision <= MaximumDecimals;
    return found.value && isInRange ? std::optional(found) : std::nullopt;
}

Result angleText(const MacroCall &call)
{
    const MacroEnvironment::Units &units = call.environment().units;
    const std::optional<UnitArguments> wanted = unitArguments(call, units.angular, units.angularPrecision);
    const std::optional<AngularUnits> mode = wanted ? angularUnits(static_cast<int>(wanted->mode)) : std::nullopt;
    return mode ? Result(angtos(*wanted->value, *mode, static_cast<int>(wanted->precision), units.style))
                : std::nullopt;
}

Result distanceText(const MacroCall &call)
{
    const MacroEnvironment::Units &units = call.environment().units;
    const std::optional<UnitArguments> wanted = unitArguments(call, units.linear, units.linearPrecision);
    const std::optional<LinearUnits> mode = wanted ? linearUnits(static_cast<int>(wanted->mode)) : std::nullopt;
    return mode ? Result(rtos(*wanted->value, *mode, static_cast<int>(wanted->precision), units.style)) : std::nullopt;
}

Result timeText(const MacroCall &call)
{
    const std::optional<double> time = call.number(0);
    if (!time)
        return std::nullopt;
    return datedText(*time == 0 ? call.environment().date() : *time, call.text(1));
}

Result length(const MacroCall &call)
{
    return macroNumber(static_cast<double>(call.text(0).size()));
}

Result partOfText(const MacroCall &call)
{
    const std::u16string text = call.text(0);
    const std::optional<std::int64_t> start = call.integer(1);
    const std::optional<std::int64_t> count =
        call.count() > 2 ? call.integer(2) : std::optional<std::int64_t>(text.size());
    if (!start || !count || *start < 1 || *count < 0)
        return std::nullopt;
    const auto begin = std::min(static_cast<std::size_t>(*start - 1), text.size());
    return text.substr(begin, static_cast<std::size_t>(*count));
}

Result capitals(const MacroCall &call)
{
    return QString::fromStdU16String(call.text(0)).toUpper().toStdU16String();
}

// clang-format off
constexpr MacroFunction functions[] = {
    {u"!=", 2, 2, compared<std::not_equal_to<>>},
    {u"*", 1, MostArguments, calculated<std::multiplies<>>},
    {u"+", 1, MostArguments, calculated<std::plus<>>},
    {u"-", 1, MostArguments, calculated<std::minus<>>},
    {u"/", 1, MostArguments, calculated<std::divides<>>},
    {u"<", 2, 2, compared<std::less<>>},
    {u"<=", 2, 2, compared<std::less_equal<>>},
    {u"=", 2, 2, compared<std::equal_to<>>},
    {u">", 2, 2, compared<std::greater<>>},
    {u">=", 2, 2, compared<std::greater_equal<>>},
    {u"and", 1, MostArguments, bits<std::bit_and<>>},
    {u"angtos", 1, 3, angleText},
    {u"edtime", 2, 2, timeText},
    {u"eq", 2, 2, equalTexts},
    {u"eval", 1, 1, evaluated},
    {u"fix", 1, 1, truncated},
    {u"getenv", 1, 1, environmentText},
    {u"getvar", 1, 1, variableText},
    {u"if", 2, 3, chosen},
    {u"index", 2, 2, itemOfList},
    {u"linelen", 0, 0, lineLength},
    {u"nth", 2, MostArguments, argumentOf},
    {u"or", 1, MostArguments, bits<std::bit_or<>>},
    {u"rtos", 1, 3, distanceText},
    {u"strlen", 1, 1, length},
    {u"substr", 2, 3, partOfText},
    {u"upper", 1, 1, capitals},
    {u"xor", 1, MostArguments, bits<std::bit_xor<>>},
};
// clang-format on

} // namespace

const MacroFunction *findMacroFunction(std::u16string_view name)
{
    const QString wanted = QString::fromStdU16String(std::u16string(name)).toLower();
    for (const MacroFunction &function : functions)
        if (wanted == QStringView(function.name.data(), static_cast<qsizetype>(function.name.size())))
            return &function;
    return nullptr;
}

std::u16string macroNumber(double number)
{
    constexpr int Decimals = 8;
    QString text = QString::number(number, 'f', Decimals);
    while (text.endsWith(u'0'))
        text.chop(1);
    if (text.endsWith(u'.'))
        text.chop(1);
    return text == QStringLiteral("-0") ? u"0" : text.toStdU16String();
}

} // namespace lisp
