#include "host/interpreter/macro/StringExpression.h"

#include <QString>

#include <cmath>
#include <limits>

namespace lisp {

namespace {

constexpr int DeepestNesting = 100;
constexpr std::u16string_view CallStart = u"$(", Unclosed = u"$?";

QStringView viewOf(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

std::u16string_view trimmed(std::u16string_view text)
{
    const std::size_t begin = std::min(text.find_first_not_of(u' '), text.size());
    const std::size_t end = text.find_last_not_of(u' ') + 1;
    return text.substr(begin, std::max(begin, end) - begin);
}

// Where the text in quotes that begins here ends, behind its last quote; npos: nowhere. Two quotes are one of the text.
std::size_t behindQuotes(std::u16string_view text, std::size_t place)
{
    const std::size_t end = text.find(u'"', place + 1);
    return end == text.npos ? end : end + 1;
}

// The parts between the commas that stand in no quotes and no inner call.
std::vector<std::u16string_view> parts(std::u16string_view inside)
{
    std::vector<std::u16string_view> found;
    std::size_t begin = 0;
    int depth = 0;
    for (std::size_t place = 0; place < inside.size(); ++place) {
        if (inside[place] == u'"')
            place = behindQuotes(inside, place) - 1;
        else if (inside.substr(place).starts_with(CallStart))
            ++depth, ++place;
        else if (inside[place] == u')')
            --depth;
        else if (inside[place] == u',' && depth == 0)
            found.push_back(inside.substr(begin, place - begin)), begin = place + 1;
    }
    found.push_back(inside.substr(begin));
    return found;
}

} // namespace

std::u16string StringExpression::evaluate(std::u16string_view text)
{
    m_isBroken = false;
    m_depth = 0;
    return expanded(text, Place::Text);
}

// What stands in the parentheses of the call that begins at `next`, which then is behind it; none: it is not closed.
std::optional<std::u16string_view> StringExpression::takeCall(std::u16string_view text, std::size_t &next) const
{
    const std::size_t begin = next + CallStart.size();
    int depth = 1;
    for (std::size_t place = begin; place < text.size(); ++place) {
        if (text[place] == u'"') {
            place = behindQuotes(text, place);
            if (place == text.npos)
                return std::nullopt;
            --place;
        } else if (text.substr(place).starts_with(CallStart)) {
            ++depth, ++place;
        } else if (text[place] == u')' && --depth == 0) {
            next = place + 1;
            return text.substr(begin, place - begin);
        }
    }
    return std::nullopt;
}

std::u16string StringExpression::expanded(std::u16string_view text, Place where)
{
    if (++m_depth > DeepestNesting)
        m_isBroken = true;
    std::u16string result = m_isBroken ? std::u16string(Unclosed) : std::u16string();
    for (std::size_t place = 0; place < text.size() && !m_isBroken;) {
        if (text.substr(place).starts_with(CallStart)) {
            const std::optional<std::u16string_view> inside = takeCall(text, place);
            m_isBroken = m_isBroken || !inside;
            result += inside ? call(*inside) : std::u16string(Unclosed);
        } else if (where == Place::Argument && text[place] == u'"') {
            const std::size_t end = behindQuotes(text, place);
            result += text.substr(place + 1, end - place - 2);
            place = end;
            if (place < text.size() && text[place] == u'"') // "a""b" is a"b
                result += u'"';
        } else {
            result += text[place++];
        }
        if (result.size() > LongestResult) {
            result = result.substr(0, LongestResult) + u"$(++)";
            m_isBroken = true;
        }
    }
    --m_depth;
    return result;
}

std::u16string StringExpression::call(std::u16string_view inside)
{
    const std::vector<std::u16string_view> all = parts(inside);
    const std::u16string name = expanded(trimmed(all.front()), Place::Argument);
    if (m_isBroken)
        return name;
    const MacroFunction *function = findMacroFunction(name);
    if (!function)
        return u"$(" + name + u")??";
    const MacroCall arguments(*this, std::span(all).subspan(1));
    const bool isCount = arguments.count() >= function->least && arguments.count() <= function->most;
    const std::optional<std::u16string> result = isCount ? function->run(arguments) : std::nullopt;
    return result ? *result : u"$(" + name + u",?\?)"; // no trigraph
}

std::u16string MacroCall::text(std::size_t index) const
{
    return m_expression.expanded(m_arguments[index], StringExpression::Place::Argument);
}

std::u16string MacroCall::evaluated(std::u16string_view text) const
{
    return m_expression.expanded(text, StringExpression::Place::Text);
}

// A number that text follows is that number: "12mm" is 12.
std::optional<double> MacroCall::number(std::size_t index) const
{
    const std::u16string all = text(index);
    const std::u16string_view typed = trimmed(all);
    std::size_t length = typed.find_first_not_of(u"0123456789.+-eE");
    length = std::min(length, typed.size());
    for (; length > 0; --length) {
        bool isNumber = false;
        const double value = viewOf(typed.substr(0, length)).toDouble(&isNumber);
        if (isNumber && std::isfinite(value))
            return value;
    }
    return std::nullopt;
}

std::optional<std::int64_t> MacroCall::integer(std::size_t index) const
{
    constexpr double Most = std::numeric_limits<std::int32_t>::max();
    const std::optional<double> value = number(index);
    return value && std::abs(*value) <= Most ? std::optional(static_cast<std::int64_t>(*value)) : std::nullopt;
}

} // namespace lisp
