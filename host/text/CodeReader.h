#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace text {

// Reads a text from left to right.
class CodeReader
{
public:
    explicit CodeReader(std::u16string_view text) : m_rest(text) {}

    bool isAtEnd() const { return m_rest.empty(); }
    char16_t ahead(std::size_t by = 0) const { return by < m_rest.size() ? m_rest[by] : u'\0'; }
    void skip(std::size_t units = 1) { m_rest.remove_prefix(std::min(units, m_rest.size())); }
    char32_t character();                         // a whole one, also when it has two units
    std::u16string argument(char16_t end = u';'); // up to the end mark, which is passed; the rest when there is none
    std::optional<char32_t> specialCharacter();   // of %%c, %%d, %%p, %%%, %%nnn, which are passed
    std::optional<char32_t> unicodeCharacter();   // of \U+XXXX, which is passed

private:
    std::u16string_view m_rest;
};

// The number that the text begins with; none where there is no digit.
std::optional<double> numberIn(std::u16string_view text);

} // namespace text
