#include "host/lisptest/TestReport.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace lisptest {

namespace {

// In the text behind a test's number, # begins a directive.
QString description(const QString &text)
{
    QString result = text;
    result.replace(u'\\', QStringLiteral("\\\\")).replace(u'#', QStringLiteral("\\#"));
    return result.replace(u'\n', u' ');
}

// A text as YAML has it, of which JSON's form is one.
QString quoted(const QString &text)
{
    const QByteArray list = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(list.sliced(1, list.size() - 2));
}

class TapReport final : public TestReport
{
public:
    explicit TapReport(lisp::Console &console) : m_console(console) { write(QStringLiteral("TAP version 13\n")); }

    void add(const TestResult &result) override
    {
        QString text = result.isFailure() ? QStringLiteral("not ok") : QStringLiteral("ok");
        text += QStringLiteral(" %1 - ").arg(++m_number) + description(result.title());
        if (result.outcome == TestResult::Outcome::Skipped)
            text += QStringLiteral(" # SKIP ") + description(result.message);
        text += u'\n';
        if (result.isFailure())
            text += diagnostics(result);
        write(text);
    }

    void finish(const TestCounts &counts, bool isComplete) override
    {
        write(isComplete ? QStringLiteral("1..%1\n").arg(counts.all) : QStringLiteral("Bail out! interrupted\n"));
    }

private:
    static QString diagnostics(const TestResult &result)
    {
        QString text = QStringLiteral("  ---\n  message: ") + quoted(result.message) + u'\n';
        if (!result.trace.isEmpty())
            text += QStringLiteral("  trace: ") + quoted(result.trace) + u'\n';
        if (!result.output.isEmpty())
            text += QStringLiteral("  output: ") + quoted(result.output) + u'\n';
        return text + QStringLiteral("  ...\n");
    }

    void write(const QString &text) { m_console.write(text.toStdU16String()); }

    lisp::Console &m_console;
    int m_number = 0;
};

} // namespace

std::unique_ptr<TestReport> tapReport(lisp::Console &console)
{
    return std::make_unique<TapReport>(console);
}

} // namespace lisptest
