#pragma once

#include "host/interpreter/Errors.h"
#include "host/interpreter/Machine.h"

#include <optional>
#include <string>

namespace lisptest {

// One test while it runs: what it asserts, and what it prints. The built-ins of Assertions.h report to the one that
// lives; there is one at a time.
class TestRun final : public lisp::Console
{
public:
    TestRun();
    ~TestRun();
    TestRun(const TestRun &) = delete;
    TestRun &operator=(const TestRun &) = delete;

    // Only while one lives.
    static TestRun &current();

    struct Failure
    {
        std::u16string message;
        std::vector<lisp::TraceEntry> trace;
    };

    // Counts an assertion. One that does not hold ends the test by a LISP error, and fails it even if the program under
    // test catches that error and goes on.
    void check(lisp::Machine &machine, bool holds, std::u16string_view message);
    [[noreturn]] void skip(std::u16string_view reason);

    int assertions() const { return m_assertions; }
    const std::optional<Failure> &failure() const { return m_failure; } // the first
    const std::optional<std::u16string> &skipReason() const { return m_skipReason; }

    void write(std::u16string_view text) override { m_output += text; }
    const std::u16string &output() const { return m_output; }

private:
    int m_assertions = 0;
    std::optional<Failure> m_failure;
    std::optional<std::u16string> m_skipReason;
    std::u16string m_output;
};

} // namespace lisptest
