#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace lisp {

// Reads a text from the left, blanks around it left out; for the conversions from units to numbers.
class TextCursor
{
public:
    explicit TextCursor(std::u16string_view text);

    bool atEnd() const { return m_rest.empty(); }
    // Takes the character if it is next; letters in either case, given in upper case.
    bool take(char16_t unit);
    // Takes the first of these characters that is next; 0: none is.
    char16_t takeAny(std::u16string_view units);
    void skipBlanks();
    // Takes a decimal number without sign.
    std::optional<double> takeReal();
    // Takes digits.
    std::optional<double> takeWhole();

    // For looking ahead: what remains, and going back to it.
    std::u16string_view rest() const { return m_rest; }
    void goBack(std::u16string_view rest) { m_rest = rest; }

private:
    std::u16string_view m_rest;
};

} // namespace lisp
