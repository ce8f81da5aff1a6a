#include "host/interpreter/text/TextCursor.h"

#include "host/interpreter/text/RealText.h"

#include <algorithm>

namespace lisp {

TextCursor::TextCursor(std::u16string_view text) : m_rest(text)
{
    skipBlanks();
    m_rest = m_rest.substr(0, m_rest.find_last_not_of(u' ') + 1);
}

bool TextCursor::take(char16_t unit)
{
    return takeAny({&unit, 1}) != 0;
}

char16_t TextCursor::takeAny(std::u16string_view units)
{
    if (m_rest.empty())
        return 0;
    const char16_t next = m_rest[0];
    const char16_t upper = next >= u'a' && next <= u'z' ? static_cast<char16_t>(next - u'a' + u'A') : next;
    if (units.find(upper) == std::u16string_view::npos)
        return 0;
    m_rest.remove_prefix(1);
    return upper;
}

void TextCursor::skipBlanks()
{
    m_rest.remove_prefix(std::min(m_rest.find_first_not_of(u' '), m_rest.size()));
}

std::optional<double> TextCursor::takeReal()
{
    if (m_rest.empty() || m_rest[0] == u'+' || m_rest[0] == u'-')
        return std::nullopt;
    const ScannedReal real = scanReal(m_rest);
    if (real.length == 0)
        return std::nullopt;
    m_rest.remove_prefix(real.length);
    return real.value;
}

std::optional<double> TextCursor::takeWhole()
{
    const std::size_t length = std::min(m_rest.find_first_not_of(u"0123456789"), m_rest.size());
    if (length == 0)
        return std::nullopt;
    const double value = scanReal(m_rest.substr(0, length)).value;
    m_rest.remove_prefix(length);
    return value;
}

} // namespace lisp
