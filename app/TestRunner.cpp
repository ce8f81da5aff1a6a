#include "app/TestRunner.h"

#include "app/Interrupts.h"
#include "app/Session.h"
#include "app/Watchdog.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/lisptest/Assertions.h"
#include "host/lisptest/Discovery.h"
#include "host/lisptest/JUnitFile.h"
#include "host/lisptest/TestReport.h"
#include "host/lisptest/TestRun.h"

#include <QElapsedTimer>

#include <algorithm>

using lisp::LispError;
using lisptest::TestResult;
using lisptest::TestRun;

namespace {

QString qText(std::u16string_view text)
{
    return QStringView(text.data(), static_cast<qsizetype>(text.size())).toString();
}

TestResult resultOf(TestResult::Outcome outcome, std::u16string_view message,
                    const std::vector<lisp::TraceEntry> &trace = {})
{
    TestResult result;
    result.outcome = outcome;
    result.message = qText(message);
    result.trace = qText(lisp::traceText(trace));
    return result;
}

TestResult verdict(const TestRun &run, const std::optional<LispError> &uncaught)
{
    if (const std::optional<TestRun::Failure> &failure = run.failure())
        return resultOf(TestResult::Outcome::Failed, failure->message, failure->trace);
    if (run.skipReason())
        return resultOf(TestResult::Outcome::Skipped, *run.skipReason());
    if (uncaught)
        return resultOf(TestResult::Outcome::Errored, uncaught->message, uncaught->trace);
    return {};
}

class TestRunner
{
public:
    // A test that runs longer than so many seconds fails; 0: none does.
    TestRunner(Session &session, lisptest::TestReport &report, int secondsForATest)
        : m_session(session), m_report(report), m_secondsForATest(secondsForATest)
    {
    }

    // False when somebody has interrupted the tests.
    bool runFile(const QString &file);
    const std::vector<TestResult> &results() const { return m_results; }

private:
    using Body = std::function<void()>;

    TestResult run(const QString &name, const Body &body);
    std::optional<LispError> attempt(const Body &body);
    LispError tooLong(const std::optional<LispError> &uncaught) const;
    void read();
    void load();
    void callTest(const std::u16string &name);
    void callIfDefined(std::u16string_view name);
    void add(TestResult result);
    lisp::Machine &machine() { return m_session.machine(); }

    Session &m_session;
    lisptest::TestReport &m_report;
    const int m_secondsForATest;
    QString m_file;
    std::u16string m_source;
    bool m_isInterrupted = false;
    std::vector<TestResult> m_results;
};

// The first load tells which tests there are; without any the file itself is one.
bool TestRunner::runFile(const QString &file)
{
    m_file = file;
    std::vector<std::u16string> names;
    const TestResult loaded = run(QString(), [&] {
        read();
        load();
        names = lisptest::testFunctions(machine(), m_file.toStdU16String());
        if (names.empty() && TestRun::current().assertions() == 0)
            throw LispError(u"no function named test-... and no assertion");
    });
    if (loaded.outcome != TestResult::Outcome::Passed || names.empty())
        add(loaded);
    else
        for (auto name = names.begin(); name != names.end() && !m_isInterrupted; ++name)
            add(run(qText(*name).toLower(), [&] { callTest(*name); }));
    return !m_isInterrupted;
}

// In a new document, with the answers from their beginning.
TestResult TestRunner::run(const QString &name, const Body &body)
{
    TestRun run;
    const OutputScope output(m_session, run);
    m_session.startOver();
    lisp::defineBuiltins(machine(), lisptest::assertionBuiltins());
    QElapsedTimer timer;
    timer.start();
    TestResult result = verdict(run, attempt(body));
    result.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    result.file = m_file;
    result.name = name;
    result.output = qText(run.output());
    return result;
}

// The error that says so, at the place where the test gave up.
LispError TestRunner::tooLong(const std::optional<LispError> &uncaught) const
{
    LispError error(QStringLiteral("it ran longer than %1 s").arg(m_secondsForATest).toStdU16String());
    if (uncaught)
        error.trace = uncaught->trace;
    return error;
}

std::optional<LispError> TestRunner::attempt(const Body &body)
{
    const InterruptScope interrupts(machine());
    const lisp::Machine::CatchScope scope(machine());
    const Watchdog watchdog(machine(), m_secondsForATest);
    std::optional<LispError> uncaught;
    try {
        body();
    } catch (const LispError &error) {
        uncaught = error;
    }
    if (watchdog.hasInterrupted())
        return tooLong(uncaught);
    m_isInterrupted = machine().wasInterrupted();
    return uncaught;
}

void TestRunner::read()
{
    QString failure;
    std::optional<std::u16string> source = lisp::readSourceFile(m_file, failure);
    if (!source)
        throw LispError(failure.toStdU16String());
    m_source = std::move(*source);
}

void TestRunner::load()
{
    m_session.addSearchFolderOf(m_file);
    machine().load(m_source, m_file.toStdU16String());
}

void TestRunner::callTest(const std::u16string &name)
{
    load();
    callIfDefined(u"SETUP");
    bool hasValue = false;
    try {
        hasValue = machine().call(machine().intern(name)->value, {}).isTrue();
    } catch (const LispError &) {
        callIfDefined(u"TEARDOWN");
        throw;
    }
    callIfDefined(u"TEARDOWN");
    // A test that asserts nothing has to say by its value that all is well.
    if (TestRun::current().assertions() == 0 && !hasValue)
        throw LispError(u"no assertion was made, and the value is nil");
}

void TestRunner::callIfDefined(std::u16string_view name)
{
    if (lisptest::definesFunction(machine(), m_file.toStdU16String(), name))
        machine().call(machine().intern(name)->value, {});
}

void TestRunner::add(TestResult result)
{
    m_report.add(result);
    m_session.console().flush();
    m_results.push_back(std::move(result));
}

// Nothing, after the reason was said on standard error, when one of the paths leads nowhere.
std::optional<QStringList> filesOf(Session &session, const std::vector<QString> &paths)
{
    QStringList files;
    for (const QString &path : paths) {
        QString failure;
        const std::optional<QStringList> found = lisptest::testFiles(path, failure);
        if (!found) {
            session.warn(failure);
            return {};
        }
        files += *found;
    }
    files.removeDuplicates();
    return files;
}

} // namespace

int runTests(Session &session, const Options &options)
{
    const std::optional<QStringList> files = filesOf(session, options.operands);
    if (!files)
        return ExitFile;
    const std::unique_ptr<lisptest::TestReport> report =
        options.reportsAsTap ? lisptest::tapReport(session.console()) : lisptest::plainReport(session.console());
    TestRunner runner(session, *report, options.secondsForATest);
    const bool isComplete =
        std::all_of(files->begin(), files->end(), [&](const QString &file) { return runner.runFile(file); });
    const lisptest::TestCounts counts = lisptest::countOf(runner.results());
    report->finish(counts);
    if (!isComplete)
        session.warn(QStringLiteral("interrupted; the tests that follow were not run"));
    if (counts.all == 0)
        session.warn(QStringLiteral("there are no tests"));
    QString failure;
    if (!options.junitFile.isEmpty() && !lisptest::writeJUnitFile(options.junitFile, runner.results(), failure)) {
        session.warn(failure);
        return ExitFile;
    }
    return isComplete && counts.all > 0 && counts.failed + counts.errored == 0 ? ExitFine : ExitFailed;
}
