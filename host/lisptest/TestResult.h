#pragma once

#include <QString>

#include <vector>

namespace lisptest {

// How one test of a LISP program ended.
struct TestResult
{
    enum class Outcome {
        Passed,
        Failed,  // an assertion did not hold
        Errored, // an error that nothing caught, or nothing to test
        Skipped,
    };

    QString file; // as it was named or found
    QString name; // of the function; empty: the file as a whole
    Outcome outcome = Outcome::Passed;
    QString message; // why it did not pass, or was skipped
    QString trace;   // a line for each frame, each with its newline
    QString output;  // what it printed
    double seconds = 0;

    bool isFailure() const { return outcome == Outcome::Failed || outcome == Outcome::Errored; }
    QString title() const { return name.isEmpty() ? file : file + QStringLiteral(": ") + name; }
};

struct TestCounts
{
    int all = 0, passed = 0, failed = 0, errored = 0, skipped = 0;
};
TestCounts countOf(const std::vector<TestResult> &results);

} // namespace lisptest
