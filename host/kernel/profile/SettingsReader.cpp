#include "host/kernel/profile/SettingsReader.h"

#include "host/kernel/profile/EscapedText.h"

#include <QStringDecoder>

#include <optional>

namespace {

// One file being read. Each function for a line gives what is wrong with it, a null text when nothing is.
class Reader
{
public:
    ReadSettings read(QByteArrayView bytes);

private:
    QString readLine(QByteArrayView bytes);
    QString readSection(QStringView line);
    QString readEntry(QStringView line);

    ReadSettings m_result;
    QStringList m_remarks; // above the next line
    std::optional<QString> m_section;
    QString m_withoutSection = QStringLiteral("it stands above the first section");
};

QStringView withoutBlanks(QStringView text)
{
    constexpr QStringView Blanks = u" \t\r";
    while (!text.isEmpty() && Blanks.contains(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && Blanks.contains(text.back()))
        text.chop(1);
    return text;
}

// Where a sign first stands with its own meaning; -1 when it does nowhere.
qsizetype findSign(QStringView text, QChar sign)
{
    for (qsizetype position = 0; position < text.size(); ++position) {
        if (text[position] == sign)
            return position;
        if (text[position] == u'\\')
            ++position;
    }
    return -1;
}

ReadSettings Reader::read(QByteArrayView bytes)
{
    if (bytes.startsWith("\xEF\xBB\xBF")) // put there by some editors
        bytes = bytes.sliced(3);
    for (int number = 1; !bytes.isEmpty(); ++number) {
        const qsizetype found = bytes.indexOf('\n');
        const qsizetype end = found == -1 ? bytes.size() : found;
        const QString reason = readLine(bytes.first(end));
        if (!reason.isNull())
            m_result.damagedLines.push_back({number, reason});
        bytes = bytes.sliced(found == -1 ? end : end + 1);
    }
    m_result.text.setLastRemarks(m_remarks);
    return std::move(m_result);
}

QString Reader::readLine(QByteArrayView bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder.decode(bytes);
    if (decoder.hasError())
        return QStringLiteral("it is not UTF-8");
    if (bytes.contains('\0')) // what a text of the host ends at
        return QStringLiteral("it holds a NUL");
    const QStringView line = withoutBlanks(text);
    if (line.isEmpty() || line.front() == u';' || line.front() == u'#') {
        m_remarks.append(line.toString());
        return {};
    }
    return line.front() == u'[' ? readSection(line.sliced(1)) : readEntry(line);
}

QString Reader::readSection(QStringView line)
{
    // The lines below belong to a section that nobody knows, as long as this one is not read.
    m_section.reset();
    m_withoutSection = QStringLiteral("its section cannot be read");
    const qsizetype end = findSign(line, u']');
    if (end == -1 || end + 1 != line.size())
        return QStringLiteral("no ] ends it");
    QString name, failure;
    if (!unescape(withoutBlanks(line.first(end)), name, failure))
        return failure;
    if (m_result.text.addSection(name, m_remarks))
        m_remarks.clear();
    m_section = name;
    return {};
}

QString Reader::readEntry(QStringView line)
{
    if (!m_section)
        return m_withoutSection;
    const qsizetype equals = findSign(line, u'=');
    if (equals == -1)
        return QStringLiteral("no = is in it");
    QString key, value, failure;
    if (!unescape(withoutBlanks(line.first(equals)), key, failure) ||
        !unescape(withoutBlanks(line.sliced(equals + 1)), value, failure))
        return failure;
    if (!m_result.text.addKey(*m_section, key, value, m_remarks))
        return QStringLiteral("the key is there already");
    m_remarks.clear();
    return {};
}

} // namespace

ReadSettings readSettings(const QByteArray &bytes)
{
    return Reader().read(bytes);
}
