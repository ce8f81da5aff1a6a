// What it costs to start a program from LISP and wait for its end, against a bare QProcess.

#include "benchmarks/Workplace.h"
#include "host/ui/HeadlessInterface.h"

#include <QProcess>

namespace {

const QString child = QStringLiteral(TEST_CHILD);

void bareProcess(benchmark::State &state)
{
    for (auto _ : state) {
        QProcess process;
        process.start(child, {QStringLiteral("-")}, QIODevice::ReadWrite);
        process.waitForFinished(30000);
        benchmark::DoNotOptimize(process.exitCode());
    }
}

void spawn(benchmark::State &state)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Workplace workplace;
    const HeadlessInterface windows(workplace.services()); // which own the processes
    const QString program = QStringLiteral("(defun work () (acet-sys-spawn 1 \"%1\" \"-\"))").arg(child);
    workplace.load(program.toStdU16String());
    const lisp::Value work = workplace.machine().intern(u"work")->value;
    for (auto _ : state)
        benchmark::DoNotOptimize(workplace.machine().call(work, {}));
}

} // namespace

BENCHMARK(bareProcess)->UseRealTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(spawn)->UseRealTime()->Unit(benchmark::kMicrosecond);
