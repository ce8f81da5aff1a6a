// What it costs to keep settings: each iteration is 1000 calls, with so many settings in the store.

#include "benchmarks/Workplace.h"
#include "storage/ProfileFolder.h"

#include <QTemporaryDir>

namespace {

void settings(benchmark::State &state, const char16_t *call)
{
    const QTemporaryDir folder;
    setProfileFolder(folder.path());
    {
        Workplace workplace;
        const std::u16string count = QString::number(state.range(0)).toStdU16String();
        workplace.load(u"(setq i 0) (repeat " + count +
                       u" (acet-var-setvar (strcat \"name\" (itoa i)) (setq i (1+ i))))");
        workplace.run(state, call);
    }
    setProfileFolder(QString());
}

} // namespace

BENCHMARK_CAPTURE(settings, comparedWithVersion, u"(acet-util-ver)")->Arg(10);
BENCHMARK_CAPTURE(settings, get, u"(acet-var-getvar \"name5\")")->Arg(10)->Arg(1000);
BENCHMARK_CAPTURE(settings, setAnotherValue, u"(acet-var-setvar \"name5\" (setq i (1+ i)))")
    ->Arg(10)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(settings, setTheSameValue, u"(acet-var-setvar \"name5\" \"same\")")
    ->Arg(10)
    ->Arg(1000)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
