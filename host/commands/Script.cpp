#include "host/commands/Script.h"

#include <algorithm>

namespace commands {

namespace {

constexpr std::u16string_view LineEnd = u"\n", WordEnds = u" \n";

} // namespace

Script::Script(std::u16string text) : m_text(std::move(text))
{
    std::erase(m_text, u'\r');
    if (!m_text.ends_with(u'\n'))
        m_text += u'\n';
}

std::optional<std::u16string> Script::next(Form form)
{
    skipComments();
    if (isAtEnd())
        return std::nullopt;
    std::u16string typed;
    if (form == Form::Line)
        typed = upTo(LineEnd);
    else if (m_text[m_place] == u'(')
        typed = expression();
    else if (m_text[m_place] == u'"')
        typed = quoted();
    else
        typed = upTo(WordEnds);
    if (!isAtEnd())
        ++m_place; // the Enter behind it
    return typed;
}

void Script::skipComments()
{
    const auto isLineStart = [this] { return m_place == 0 || m_text[m_place - 1] == u'\n'; };
    while (!isAtEnd() && m_text[m_place] == u';' && isLineStart())
        m_place = std::min(m_text.find(u'\n', m_place), m_text.size() - 1) + 1;
}

std::u16string Script::upTo(std::u16string_view ends)
{
    const std::size_t begin = m_place;
    m_place = std::min(m_text.find_first_of(ends, begin), m_text.size());
    return m_text.substr(begin, m_place - begin);
}

std::u16string Script::quoted()
{
    const std::size_t begin = ++m_place;
    const std::size_t end = std::min(m_text.find_first_of(u"\"\n", begin), m_text.size());
    m_place = end < m_text.size() && m_text[end] == u'"' ? end + 1 : end;
    return m_text.substr(begin, end - begin);
}

// Up to the parenthesis that closes the first; parentheses in texts and comments do not count.
std::u16string Script::expression()
{
    const std::size_t begin = m_place;
    int depth = 0;
    while (!isAtEnd()) {
        const char16_t unit = m_text[m_place++];
        if (unit == u';') {
            upTo(LineEnd);
        } else if (unit == u'"') {
            while (!isAtEnd() && m_text[m_place] != u'"')
                m_place += m_text[m_place] == u'\\' ? 2 : 1;
            ++m_place;
        } else if (unit == u'(') {
            ++depth;
        } else if (unit == u')' && --depth == 0) {
            break;
        }
    }
    m_place = std::min(m_place, m_text.size());
    return m_text.substr(begin, m_place - begin);
}

} // namespace commands
