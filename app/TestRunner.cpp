#include "app/TestRunner.h"

#include "app/Interrupts.h"
#include "app/Session.h"
#include "app/Watchdog.h"
#include "host/interpreter/files/SourceFile.h"
#include "host/interpreter/text/QtText.h"
#include "host/lisptest/Assertions.h"
#include "host/lisptest/Discovery.h"
#include "host/lisptest/TestRun.h"

#include <QElapsedTimer>

using lisp::LispError;
using lisptest::TestResult;
using lisptest::TestRun;

namespace {

TestResult resultOf(TestResult::Outcome outcome, std::u16string_view message,
                    const std::vector<lisp::TraceEntry> &trace = {})
{
    TestResult result;
    result.outcome = outcome;
    result.message = lisp::toQString(message);
    result.trace = lisp::toQString(lisp::traceText(trace));
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

} // namespace

lisp::Machine &TestRunner::machine()
{
    return m_session.machine();
}

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
            add(run(lisp::toQString(*name).toLower(), [&] { callTest(*name); }));
    return !m_isInterrupted;
}

// In a new document, with the answers from their beginning.
TestResult TestRunner::run(const QString &name, const Body &body)
{
    TestRun run;
    const OutputScope output(m_session, run);
    const std::optional<LispError> failure = startOver();
    QElapsedTimer timer;
    timer.start();
    TestResult result = verdict(run, failure ? failure : attempt(body));
    result.seconds = static_cast<double>(timer.nsecsElapsed()) / 1e9;
    result.file = m_file;
    result.name = name;
    result.output = lisp::toQString(run.output());
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

// The drawing may have been spoiled by the test before.
std::optional<LispError> TestRunner::startOver()
{
    try {
        m_session.startOver();
        lisp::defineBuiltins(machine(), lisptest::assertionBuiltins());
        return {};
    } catch (const drawing::ReadError &error) {
        return LispError(QString::fromUtf8(error.what()).toStdU16String());
    }
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
    m_isInterrupted = interrupts.hasInterrupted();
    if (m_isInterrupted && !uncaught)
        uncaught.emplace(u"Function cancelled"); // though the test has caught that
    if (watchdog.hasInterrupted() && !m_isInterrupted)
        return tooLong(uncaught);
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
    try {
        callAsserting(name);
    } catch (const LispError &) {
        try {
            callIfDefined(u"TEARDOWN");
        } catch (const LispError &) { // the first error is the one to tell
        }
        throw;
    }
    callIfDefined(u"TEARDOWN");
}

// A test that asserts nothing has to say by its value that all is well.
void TestRunner::callAsserting(const std::u16string &name)
{
    const int before = TestRun::current().assertions(); // of the file and of setup
    const bool hasValue = machine().call(machine().intern(name)->value, {}).isTrue();
    if (TestRun::current().assertions() == before && !hasValue)
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
