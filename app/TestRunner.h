#pragma once

#include "host/interpreter/Errors.h"
#include "host/lisptest/TestReport.h"
#include "host/lisptest/TestResult.h"

#include <functional>
#include <optional>
#include <vector>

namespace lisp {
class Machine;
}
class Session;

// Runs the tests of files, each in a document of its own.
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
    const std::vector<lisptest::TestResult> &results() const { return m_results; }

private:
    using Body = std::function<void()>;

    lisptest::TestResult run(const QString &name, const Body &body);
    std::optional<lisp::LispError> startOver();
    std::optional<lisp::LispError> attempt(const Body &body);
    lisp::LispError tooLong(const std::optional<lisp::LispError> &uncaught) const;
    void read();
    void load();
    void callTest(const std::u16string &name);
    void callAsserting(const std::u16string &name);
    void callIfDefined(std::u16string_view name);
    void add(lisptest::TestResult result);
    lisp::Machine &machine();

    Session &m_session;
    lisptest::TestReport &m_report;
    const int m_secondsForATest;
    QString m_file;
    std::u16string m_source;
    bool m_isInterrupted = false;
    std::vector<lisptest::TestResult> m_results;
};
