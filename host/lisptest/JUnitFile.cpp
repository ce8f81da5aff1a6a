#include "host/lisptest/JUnitFile.h"

#include "storage/AtomicFile.h"

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QXmlStreamWriter>

#include <algorithm>

namespace lisptest {

namespace {

// https://www.w3.org/TR/xml/#charsets
QString xmlText(const QString &text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar unit = text[i];
        const bool isPair = unit.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair)
            result.append(unit).append(text[++i]);
        else if (unit.isSurrogate() || unit >= QChar(0xfffe) ||
                 (unit < u' ' && unit != u'\t' && unit != u'\n' && unit != u'\r'))
            result.append(QChar::ReplacementCharacter);
        else
            result.append(unit);
    }
    return result;
}

// Servers put the parts of a class name between dots into groups of their own.
QString className(const QString &file)
{
    QString name = QDir::cleanPath(QDir::fromNativeSeparators(file));
    if (name.endsWith(QStringLiteral(".lsp"), Qt::CaseInsensitive))
        name.chop(4);
    while (name.startsWith(u'/') || name.startsWith(u'.'))
        name.remove(0, 1);
    return name.replace(u'/', u'.');
}

class Writer
{
public:
    explicit Writer(QIODevice &device) : m_xml(&device) { m_xml.setAutoFormatting(true); }

    void write(const std::vector<TestResult> &results)
    {
        m_xml.writeStartDocument();
        startSuite(QStringLiteral("testsuites"), QStringLiteral("lisphost"), results);
        for (auto begin = results.begin(); begin != results.end();) {
            const auto end =
                std::find_if(begin, results.end(), [&](const TestResult &one) { return one.file != begin->file; });
            writeFile({begin, end});
            begin = end;
        }
        m_xml.writeEndDocument();
    }

private:
    void startSuite(const QString &element, const QString &name, const std::vector<TestResult> &results)
    {
        const TestCounts counts = countOf(results);
        double seconds = 0;
        for (const TestResult &result : results)
            seconds += result.seconds;
        m_xml.writeStartElement(element);
        attribute("name", name);
        attribute("tests", QString::number(counts.all));
        attribute("failures", QString::number(counts.failed));
        attribute("errors", QString::number(counts.errored));
        attribute("skipped", QString::number(counts.skipped));
        attribute("time", QString::number(seconds, 'f', 3));
    }

    void writeFile(const std::vector<TestResult> &results)
    {
        startSuite(QStringLiteral("testsuite"), results.front().file, results);
        for (const TestResult &result : results)
            writeTest(result);
        m_xml.writeEndElement();
    }

    void writeTest(const TestResult &result)
    {
        m_xml.writeStartElement(QStringLiteral("testcase"));
        attribute("classname", className(result.file));
        attribute("name", result.name.isEmpty() ? QFileInfo(result.file).fileName() : result.name);
        attribute("time", QString::number(result.seconds, 'f', 3));
        if (result.outcome != TestResult::Outcome::Passed)
            writeVerdict(result);
        if (!result.output.isEmpty())
            m_xml.writeTextElement(QStringLiteral("system-out"), xmlText(result.output));
        m_xml.writeEndElement();
    }

    void writeVerdict(const TestResult &result)
    {
        m_xml.writeStartElement(result.outcome == TestResult::Outcome::Failed    ? QStringLiteral("failure")
                                : result.outcome == TestResult::Outcome::Errored ? QStringLiteral("error")
                                                                                 : QStringLiteral("skipped"));
        attribute("message", result.message);
        if (result.isFailure())
            m_xml.writeCharacters(xmlText(result.trace));
        m_xml.writeEndElement();
    }

    void attribute(const char *name, const QString &value)
    {
        m_xml.writeAttribute(QString::fromLatin1(name), xmlText(value));
    }

    QXmlStreamWriter m_xml;
};

} // namespace

bool writeJUnitFile(const QString &path, const std::vector<TestResult> &results, QString &failure)
{
    QBuffer content;
    content.open(QIODevice::WriteOnly);
    Writer(content).write(results);
    return replaceFile(path, content.data(), failure, Writers::Free);
}

} // namespace lisptest
