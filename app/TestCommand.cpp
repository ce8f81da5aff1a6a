#include "app/TestCommand.h"

#include "app/Interrupts.h"
#include "app/Session.h"
#include "app/TestRunner.h"
#include "host/lisptest/Discovery.h"
#include "host/lisptest/JUnitFile.h"

#include <algorithm>

namespace {

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
    const KeptInterrupts interrupts;
    TestRunner runner(session, *report, options.secondsForATest);
    const bool isComplete =
        std::all_of(files->begin(), files->end(), [&](const QString &file) { return runner.runFile(file); });
    const lisptest::TestCounts counts = lisptest::countOf(runner.results());
    report->finish(counts, isComplete);
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
