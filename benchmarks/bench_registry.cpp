// What registry calls cost with so many values in a key: reads are 1000 calls an iteration, writes one. A synced append
// to a file is what no write that is to survive a power cut can do without.

#include "benchmarks/Workplace.h"
#include "host/kernel/ProductKeys.h"
#include "host/kernel/RegistryExchange.h"
#include "storage/ProfileFolder.h"
#include "storage/SyncedWrite.h"

#include <QFile>
#include <QTemporaryDir>

#include <optional>

namespace {

std::u16string manyValues(int count)
{
    QString text = QStringLiteral("Windows Registry Editor Version 5.00\n[HKEY_CURRENT_USER\\Software\\Many]\n");
    for (int value = 0; value < count; ++value)
        text += QStringLiteral("\"Setting %1\"=\"some text of a usual length\"\n").arg(value);
    return text.toStdU16String();
}

// A host whose registry stands in a folder of its own.
class RegistryPlace
{
public:
    explicit RegistryPlace(benchmark::State &state)
    {
        setProfileFolder(m_folder.path());
        m_workplace.emplace();
        if (!importRegistry(manyValues(static_cast<int>(state.range(0)))).isEmpty())
            state.SkipWithError("the registry cannot be filled");
    }
    ~RegistryPlace() { setProfileFolder(QString()); }

    Workplace &workplace() { return *m_workplace; }
    QString file(const QString &name) const { return m_folder.filePath(name); }

private:
    QTemporaryDir m_folder;
    std::optional<Workplace> m_workplace;
};

void read(benchmark::State &state, const char16_t *call)
{
    RegistryPlace place(state);
    place.workplace().run(state, call);
}

void write(benchmark::State &state)
{
    RegistryPlace place(state);
    lisp::Machine &machine = place.workplace().machine();
    place.workplace().load(u"(defun work () (acet-reg-put \"HKEY_CURRENT_USER\\\\Software\\\\Many\" \"Setting 5\" "
                           u"\"another text of a usual length\"))");
    const lisp::Value work = machine.intern(u"work")->value;
    for (auto _ : state)
        benchmark::DoNotOptimize(machine.call(work, {}));
}

void syncedAppend(benchmark::State &state)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("file")));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered))
        state.SkipWithError("the file cannot be opened");
    const QByteArray content(90, 'x');
    for (auto _ : state)
        benchmark::DoNotOptimize(writeAndSync(file, content));
}

// The first call of a process.
void load(benchmark::State &state)
{
    RegistryPlace place(state);
    lisp::Machine &machine = place.workplace().machine();
    place.workplace().load(u"(defun work () (acet-reg-get \"HKEY_CURRENT_USER\\\\Software\\\\Many\" \"Setting 5\"))");
    const lisp::Value work = machine.intern(u"work")->value;
    for (auto _ : state) {
        openProductRegistry(); // forgets what has been read
        benchmark::DoNotOptimize(machine.call(work, {}));
    }
}

constexpr char16_t Get[] = u"(acet-reg-get \"HKEY_CURRENT_USER\\\\Software\\\\Many\" \"Setting 5\")";

} // namespace

BENCHMARK_CAPTURE(read, comparedWithVersion, u"(acet-util-ver)")->Arg(10);
BENCHMARK_CAPTURE(read, get, Get)->Arg(10)->Arg(50'000);
BENCHMARK_CAPTURE(read, getMissing, u"(acet-reg-get \"HKEY_CURRENT_USER\\\\Software\\\\Missing\" \"x\")")->Arg(50'000);
BENCHMARK(load)->Arg(10)->Arg(50'000)->Unit(benchmark::kMillisecond);
BENCHMARK(syncedAppend)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(write)->Arg(10)->Arg(50'000)->Unit(benchmark::kMicrosecond)->UseRealTime();
