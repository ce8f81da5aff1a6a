#include "host/lisptest/TestResult.h"

namespace lisptest {

TestCounts countOf(const std::vector<TestResult> &results)
{
    TestCounts counts;
    for (const TestResult &result : results) {
        ++counts.all;
        switch (result.outcome) {
        case TestResult::Outcome::Passed:
            ++counts.passed;
            break;
        case TestResult::Outcome::Failed:
            ++counts.failed;
            break;
        case TestResult::Outcome::Errored:
            ++counts.errored;
            break;
        case TestResult::Outcome::Skipped:
            ++counts.skipped;
            break;
        }
    }
    return counts;
}

} // namespace lisptest
