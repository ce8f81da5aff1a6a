#include "host/interpreter/LineInput.h"

namespace lisp {

std::optional<std::u16string> LineInput::readLine()
{
    if (m_read == m_line.size())
        return fetchLine();
    std::u16string rest = m_line.substr(m_read);
    rest.pop_back(); // the newline
    m_read = m_line.size();
    return rest;
}

std::optional<char16_t> LineInput::readCharacter()
{
    if (m_read == m_line.size()) {
        std::optional<std::u16string> line = fetchLine();
        if (!line)
            return std::nullopt;
        m_line = std::move(*line) + u'\n';
        m_read = 0;
    }
    return m_line[m_read++];
}

} // namespace lisp
