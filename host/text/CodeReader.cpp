#include "host/text/CodeReader.h"

#include <charconv>

namespace text {

namespace {

std::optional<unsigned> digitsOf(std::u16string_view digits, int base)
{
    const std::string bytes(digits.begin(), digits.end());
    unsigned number = 0;
    const auto [end, error] = std::from_chars(bytes.data(), bytes.data() + bytes.size(), number, base);
    return error == std::errc{} && end == bytes.data() + bytes.size() ? std::optional(number) : std::nullopt;
}

bool isHigh(char16_t unit)
{
    return (unit & 0xfc00) == 0xd800;
}
bool isLow(char16_t unit)
{
    return (unit & 0xfc00) == 0xdc00;
}

} // namespace

char32_t CodeReader::character()
{
    const char16_t unit = ahead(), next = ahead(1);
    if (isHigh(unit) && isLow(next)) {
        skip(2);
        return 0x10000 + ((static_cast<char32_t>(unit) & 0x3ff) << 10 | (static_cast<char32_t>(next) & 0x3ff));
    }
    skip();
    return unit;
}

std::u16string CodeReader::argument(char16_t end)
{
    const std::size_t length = std::min(m_rest.find(end), m_rest.size());
    const std::u16string result(m_rest.substr(0, length));
    skip(length + 1);
    return result;
}

std::optional<char32_t> CodeReader::specialCharacter()
{
    constexpr std::size_t Digits = 3;
    if (ahead() != u'%' || ahead(1) != u'%')
        return std::nullopt;
    char32_t character = 0;
    switch (ahead(2) | 0x20) {
    case u'c':
        character = U'\u2300'; // diameter
        break;
    case u'd':
        character = U'\u00b0'; // degree
        break;
    case u'p':
        character = U'\u00b1'; // plus or minus
        break;
    default:
        if (ahead(2) == u'%') {
            character = U'%';
        } else if (m_rest.size() >= 2 + Digits) {
            const auto number = digitsOf(m_rest.substr(2, Digits), 10);
            if (!number || *number == 0)
                return std::nullopt;
            skip(2 + Digits);
            return *number;
        }
    }
    if (character == 0)
        return std::nullopt;
    skip(3);
    return character;
}

std::optional<char32_t> CodeReader::unicodeCharacter()
{
    constexpr std::size_t Digits = 4;
    if (!m_rest.starts_with(u"\\U+") && !m_rest.starts_with(u"\\u+"))
        return std::nullopt;
    const auto number = m_rest.size() >= 3 + Digits ? digitsOf(m_rest.substr(3, Digits), 16) : std::nullopt;
    if (number)
        skip(3 + Digits);
    return number;
}

std::optional<double> numberIn(std::u16string_view text)
{
    const std::string bytes(text.begin(), text.end());
    const char *begin = bytes.data() + (bytes.starts_with('+') ? 1 : 0);
    double number = 0;
    const auto [end, error] = std::from_chars(begin, bytes.data() + bytes.size(), number);
    return error == std::errc{} ? std::optional(number) : std::nullopt;
}

} // namespace text
