#pragma once

#include "host/interpreter/Machine.h"
#include "host/lisptest/TestResult.h"

#include <memory>

namespace lisptest {

// What a person, or a program that reads the output, is told while tests run.
class TestReport
{
public:
    virtual ~TestReport() = default;
    virtual void add(const TestResult &result) = 0;
    // `isComplete`: nobody has interrupted the tests.
    virtual void finish(const TestCounts &counts, bool isComplete) = 0;
};

// Both write to a console, which outlives them.
std::unique_ptr<TestReport> plainReport(lisp::Console &console); // for people
std::unique_ptr<TestReport> tapReport(lisp::Console &console);   // Test Anything Protocol, version 13: testanything.org

} // namespace lisptest
