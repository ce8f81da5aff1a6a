// What is shown of tests, for people and for programs.

#include "host/lisptest/TestReport.h"

#include <gtest/gtest.h>

using lisptest::TestResult;

namespace {

struct Shown final : lisp::Console
{
    void write(std::u16string_view text) override { m_text += text; }
    std::string text() const { return QString::fromStdU16String(m_text).toStdString(); }

private:
    std::u16string m_text;
};

TestResult result(TestResult::Outcome outcome, const char *message = "", const char *output = "")
{
    TestResult made;
    made.file = QStringLiteral("f.lsp");
    made.name = QStringLiteral("test-#1");
    made.outcome = outcome;
    made.message = QString::fromUtf8(message);
    made.output = QString::fromUtf8(output);
    return made;
}

TEST(PlainReport, ShowsOutputOfFailuresOnly)
{
    Shown shown;
    const auto report = lisptest::plainReport(shown);
    report->add(result(TestResult::Outcome::Passed, "", "unseen"));
    report->add(result(TestResult::Outcome::Failed, "no", "one\n\ntwo"));
    EXPECT_EQ(shown.text(), "ok    f.lsp: test-#1\n"
                            "FAIL  f.lsp: test-#1\n"
                            "      no\n"
                            "      printed:\n"
                            "      | one\n"
                            "      | \n"
                            "      | two\n");
}

TEST(PlainReport, CountsEachKindThatThereIs)
{
    Shown shown;
    const auto report = lisptest::plainReport(shown);
    report->finish(lisptest::countOf({result(TestResult::Outcome::Passed), result(TestResult::Outcome::Failed),
                                      result(TestResult::Outcome::Errored), result(TestResult::Outcome::Skipped)}),
                   true);
    report->finish(lisptest::countOf({result(TestResult::Outcome::Passed)}), true);
    EXPECT_EQ(shown.text(), "4 tests: 1 passed, 1 failed, 1 with errors, 1 skipped\n1 test: 1 passed\n");
}

TEST(TapReport, EscapesWhatWouldBeginADirective)
{
    Shown shown;
    const auto report = lisptest::tapReport(shown);
    report->add(result(TestResult::Outcome::Passed));
    report->add(result(TestResult::Outcome::Skipped, "back\\slash # line\nend"));
    report->finish({.all = 2, .passed = 1, .failed = 0, .errored = 0, .skipped = 1}, true);
    EXPECT_EQ(shown.text(), "TAP version 13\n"
                            "ok 1 - f.lsp: test-\\#1\n"
                            "ok 2 - f.lsp: test-\\#1 # SKIP back\\\\slash \\# line end\n"
                            "1..2\n");
}

TEST(TapReport, HasNoPlanWhenTheTestsWereInterrupted)
{
    Shown shown;
    const auto report = lisptest::tapReport(shown);
    report->finish({.all = 1, .passed = 1, .failed = 0, .errored = 0, .skipped = 0}, false);
    EXPECT_EQ(shown.text(), "TAP version 13\nBail out! interrupted\n");
}

} // namespace
