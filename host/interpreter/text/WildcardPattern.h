#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace lisp {

// The language's wildcard patterns, as `wcmatch` has them; upper and lower case differ.
//
//   #      one digit                         *      any characters, also none
//   @      one letter                        ?      any one character
//   .      one character that is neither     ~      first in an alternative: all texts that do not match the rest
//   [...]  one of the characters             [~...] one of the other characters; a-z inside is a range
//   ,      between alternatives              `      takes the next character literally, inside brackets too
//
// No pattern is an error. A bracket that is never closed and a back-quote at the end stand for themselves, "[]" matches
// nothing, a range whose ends are in the wrong order is empty, and a hyphen at an end of the brackets is a hyphen.
// A character is one UTF-16 unit, as in the string functions. The time is at most proportional to text × pattern.
class WildcardPattern
{
public:
    explicit WildcardPattern(std::u16string_view pattern);

    bool matches(std::u16string_view text) const;

private:
    struct Element
    {
        enum class Kind { Literal, AnyOne, AnySequence, Digit, Letter, Other, OneOf, NoneOf };
        Kind kind;
        char16_t literal = 0;
        std::vector<std::pair<char16_t, char16_t>> ranges; // first and last character

        bool fits(char16_t unit) const;
    };
    struct Alternative
    {
        bool negated = false;
        std::vector<Element> elements;

        bool fits(std::u16string_view text) const;
    };
    struct Parser;

    std::vector<Alternative> m_alternatives;
};

} // namespace lisp
