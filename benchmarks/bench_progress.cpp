// What a step of the progress meter costs a program, beside the module's cheapest call: without windows, written to a
// transcript, and in the window. Each iteration is 1000 steps.

#include "benchmarks/Workplace.h"
#include "host/ui/gui/WindowInterface.h"

#include <QApplication>
#include <QTemporaryDir>

namespace {

const char16_t *const step = u"(acet-ui-progress (setq position (rem (1+ position) 100)))";
const char16_t *const versionAtEachStep = u"(progn (setq position (rem (1+ position) 100)) (acet-util-ver))";

void stepsOf(benchmark::State &state, Workplace &workplace, const char16_t *work)
{
    workplace.load(u"(setq position 0)");
    workplace.load(u"(acet-ui-progress \"Copying\" 100)");
    workplace.run(state, work);
    workplace.load(u"(acet-ui-progress)");
}

void headless(benchmark::State &state, const char16_t *work)
{
    Workplace workplace;
    stepsOf(state, workplace, work);
}

void withTranscript(benchmark::State &state)
{
    const QTemporaryDir folder;
    Workplace workplace;
    workplace.services().transcript = Transcript(folder.filePath(QStringLiteral("transcript")));
    stepsOf(state, workplace, step);
}

void inTheWindow(benchmark::State &state)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1; // Qt keeps the addresses
    static char program[] = "bench";
    static char *arguments[] = {program, nullptr};
    const QApplication application(count, arguments);
    const QTemporaryDir folder;
    setProfileFolder(folder.path());
    {
        Workplace workplace;
        WindowInterface interface(workplace.services());
        workplace.machine().setPulse([&interface] { interface.pulse(); });
        interface.window().show();
        interface.programStarted(workplace.machine());
        stepsOf(state, workplace, step);
        interface.programEnded();
        workplace.machine().setPulse({});
    }
    setProfileFolder(QString());
}

} // namespace

BENCHMARK_CAPTURE(headless, version, versionAtEachStep);
BENCHMARK_CAPTURE(headless, progress, step);
BENCHMARK(withTranscript);
BENCHMARK(inTheWindow);
