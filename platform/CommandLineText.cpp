#include "platform/CommandLineText.h"

namespace {

bool isBlank(QChar character)
{
    return character == u' ' || character == u'\t';
}

// Reads arguments one by one.
class CommandLineReader
{
public:
    explicit CommandLineReader(const QString &text) : m_text(text) {}

    bool skipBlanks()
    {
        while (m_at < m_text.size() && isBlank(m_text[m_at]))
            ++m_at;
        return m_at < m_text.size();
    }
    QString readArgument()
    {
        QString argument;
        bool isQuoted = false;
        while (m_at < m_text.size() && (isQuoted || !isBlank(m_text[m_at]))) {
            const qsizetype backslashes = countBackslashes();
            const bool atQuote = m_at < m_text.size() && m_text[m_at] == u'"';
            argument += QString(atQuote ? backslashes / 2 : backslashes, u'\\');
            if (!atQuote) {
                if (backslashes == 0)
                    argument += m_text[m_at++];
                continue;
            }
            ++m_at;
            if (backslashes % 2 == 1)
                argument += u'"';
            else if (isQuoted && m_at < m_text.size() && m_text[m_at] == u'"')
                argument += m_text[m_at++]; // two in a row, inside
            else
                isQuoted = !isQuoted;
        }
        return argument;
    }

private:
    qsizetype countBackslashes()
    {
        const qsizetype start = m_at;
        while (m_at < m_text.size() && m_text[m_at] == u'\\')
            ++m_at;
        return m_at - start;
    }

    const QString &m_text;
    qsizetype m_at = 0;
};

} // namespace

QStringList argumentsOf(const QString &commandLine)
{
    QStringList arguments;
    for (CommandLineReader reader(commandLine); reader.skipBlanks();)
        arguments.append(reader.readArgument());
    return arguments;
}
