#include "host/interpreter/text/WildcardPattern.h"

#include <QChar>

#include <algorithm>
#include <cstddef>

namespace lisp {

namespace {

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

bool isLetter(char16_t unit)
{
    return QChar::isLetter(static_cast<char32_t>(unit));
}

} // namespace

struct WildcardPattern::Parser
{
    std::u16string_view pattern;
    std::size_t at = 0;
    bool bracketCloses = true; // false: none does from here on

    Alternative alternative()
    {
        Alternative result;
        if (at < pattern.size() && pattern[at] == u'~') {
            result.negated = true;
            ++at;
        }
        while (at < pattern.size() && pattern[at] != u',')
            result.elements.push_back(element());
        return result;
    }

    Element element()
    {
        using Kind = Element::Kind;
        switch (pattern[at]) {
        case u'#':
            return single(Kind::Digit);
        case u'@':
            return single(Kind::Letter);
        case u'.':
            return single(Kind::Other);
        case u'?':
            return single(Kind::AnyOne);
        case u'*':
            return single(Kind::AnySequence);
        case u'[':
            if (const std::size_t end = closingBracket(); end != std::u16string_view::npos)
                return brackets(end);
            [[fallthrough]];
        default:
            return {Element::Kind::Literal, character(), {}};
        }
    }

    Element single(Element::Kind kind)
    {
        ++at;
        return {kind, 0, {}};
    }

    // One character, the next one after a back-quote.
    char16_t character()
    {
        if (pattern[at] == u'`' && at + 1 < pattern.size())
            ++at;
        return pattern[at++];
    }

    // Having found none once it does not search again, or a pattern of open brackets would take its length squared.
    std::size_t closingBracket()
    {
        for (std::size_t i = at + 1; bracketCloses && i < pattern.size(); ++i) {
            if (pattern[i] == u']')
                return i;
            if (pattern[i] == u'`')
                ++i;
        }
        bracketCloses = false;
        return std::u16string_view::npos;
    }

    Element brackets(std::size_t end)
    {
        ++at;
        Element result{Element::Kind::OneOf, 0, {}};
        if (pattern[at] == u'~') {
            result.kind = Element::Kind::NoneOf;
            ++at;
        }
        while (at < end) {
            const char16_t first = character();
            if (at + 1 < end && pattern[at] == u'-') {
                ++at;
                result.ranges.emplace_back(first, character());
            } else {
                result.ranges.emplace_back(first, first);
            }
        }
        at = end + 1;
        return result;
    }
};

WildcardPattern::WildcardPattern(std::u16string_view pattern)
{
    Parser parser{pattern};
    m_alternatives.push_back(parser.alternative());
    while (parser.at < pattern.size()) {
        ++parser.at; // the comma
        m_alternatives.push_back(parser.alternative());
    }
}

bool WildcardPattern::matches(std::u16string_view text) const
{
    return std::any_of(m_alternatives.begin(), m_alternatives.end(), [text](const Alternative &alternative) {
        return alternative.fits(text) != alternative.negated;
    });
}

// Greedy from the left: when a character does not fit, only the last `*` needs to take one more, because what stands
// before it has matched as early as it can.
bool WildcardPattern::Alternative::fits(std::u16string_view text) const
{
    constexpr std::size_t None = static_cast<std::size_t>(-1);
    std::size_t position = 0, element = 0;
    std::size_t starElement = None, starPosition = 0;
    while (position < text.size()) {
        if (element < elements.size() && elements[element].kind == Element::Kind::AnySequence) {
            starElement = element++;
            starPosition = position;
        } else if (element < elements.size() && elements[element].fits(text[position])) {
            ++element;
            ++position;
        } else if (starElement != None) {
            element = starElement + 1;
            position = ++starPosition;
        } else {
            return false;
        }
    }
    return std::all_of(elements.begin() + static_cast<std::ptrdiff_t>(element), elements.end(),
                       [](const Element &rest) { return rest.kind == Element::Kind::AnySequence; });
}

bool WildcardPattern::Element::fits(char16_t unit) const
{
    const auto contains = [unit](const std::pair<char16_t, char16_t> &range) {
        return unit >= range.first && unit <= range.second;
    };
    switch (kind) {
    case Kind::Literal:
        return unit == literal;
    case Kind::AnyOne:
    case Kind::AnySequence:
        return true;
    case Kind::Digit:
        return isDigit(unit);
    case Kind::Letter:
        return isLetter(unit);
    case Kind::Other:
        return !isDigit(unit) && !isLetter(unit);
    case Kind::OneOf:
        return std::any_of(ranges.begin(), ranges.end(), contains);
    case Kind::NoneOf:
        return std::none_of(ranges.begin(), ranges.end(), contains);
    }
    return false;
}

} // namespace lisp
