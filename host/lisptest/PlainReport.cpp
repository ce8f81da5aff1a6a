#include "host/lisptest/TestReport.h"

#include <QStringList>

namespace lisptest {

namespace {

// Every line of a text, with the prefix in front and a newline behind.
QString withPrefix(const QString &prefix, const QString &text)
{
    QStringList lines = text.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    QString result;
    for (const QString &line : lines)
        result += prefix + line + u'\n';
    return result;
}

QString verdict(TestResult::Outcome outcome)
{
    switch (outcome) {
    case TestResult::Outcome::Passed:
        return QStringLiteral("ok   ");
    case TestResult::Outcome::Failed:
        return QStringLiteral("FAIL ");
    case TestResult::Outcome::Errored:
        return QStringLiteral("ERROR");
    case TestResult::Outcome::Skipped:
        return QStringLiteral("skip ");
    }
    Q_UNREACHABLE();
}

class PlainReport final : public TestReport
{
public:
    explicit PlainReport(lisp::Console &console) : m_console(console) {}

    void add(const TestResult &result) override
    {
        QString text = verdict(result.outcome) + u' ' + result.title() + u'\n';
        const QString indent(verdict(result.outcome).size() + 1, u' ');
        if (!result.message.isEmpty())
            text += withPrefix(indent, result.message);
        if (result.isFailure()) {
            text += withPrefix(indent, result.trace);
            if (!result.output.isEmpty())
                text +=
                    indent + QStringLiteral("printed:\n") + withPrefix(indent + QStringLiteral("| "), result.output);
        }
        m_console.write(text.toStdU16String());
    }

    void finish(const TestCounts &counts, bool) override
    {
        QString text = QStringLiteral("%1 %2: %3 passed")
                           .arg(counts.all)
                           .arg(counts.all == 1 ? QStringLiteral("test") : QStringLiteral("tests"))
                           .arg(counts.passed);
        const auto add = [&text](int count, const char *word) {
            if (count > 0)
                text += QStringLiteral(", %1 %2").arg(count).arg(QLatin1StringView(word));
        };
        add(counts.failed, "failed");
        add(counts.errored, "with errors");
        add(counts.skipped, "skipped");
        m_console.write((text + u'\n').toStdU16String());
    }

private:
    lisp::Console &m_console;
};

} // namespace

std::unique_ptr<TestReport> plainReport(lisp::Console &console)
{
    return std::make_unique<PlainReport>(console);
}

} // namespace lisptest
