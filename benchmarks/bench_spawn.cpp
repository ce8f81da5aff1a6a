// What it costs to start a program from LISP and wait for its end, against a bare QProcess.

#include "benchmarks/Workplace.h"

#include <QProcess>

namespace {

const QString child = QStringLiteral(TEST_CHILD);
const QString argument = QStringLiteral("-");

void bareProcess(benchmark::State &state)
{
    for (auto _ : state) {
        QProcess process;
        process.start(child, {argument}, QIODevice::ReadWrite);
        process.waitForFinished(30000);
        benchmark::DoNotOptimize(process.exitCode());
    }
}

void spawn(benchmark::State &state)
{
    Workplace workplace;
    workplace.loadOnce(state, (u"(acet-sys-spawn 1 \"" + child + u"\" \"" + argument + u"\")").toStdU16String());
}

} // namespace

BENCHMARK(bareProcess)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(spawn)->UseRealTime()->Unit(benchmark::kMicrosecond);
