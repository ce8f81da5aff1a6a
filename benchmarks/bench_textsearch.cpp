// What replacing and finding in a long text costs through the module, compared with QString alone. Each iteration does
// both, one after the other. "fastest" and "QString" are the fastest of all, in milliseconds, and "ratio" is theirs.

#include "benchmarks/Workplace.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>
#include <ctime>
#include <limits>

namespace {

constexpr qsizetype TextLength = 10'000'000;

QString longText()
{
    const QString line =
        QStringLiteral("Door 17 of the west wall on floor 3, height 210; frame, leaf and lintel drawn.\n");
    return line.repeated(TextLength / line.size());
}

// Of the processor, so that other programs on the machine count little.
template <typename Work> double secondsOf(Work work)
{
    const std::clock_t start = std::clock();
    work();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

std::u16string quoted(const QString &text)
{
    return (u'"' + QString(text).replace(u'\\', QStringLiteral("\\\\")) + u'"').toStdU16String();
}

// The program "work", which calls the module on the variable "text".
class Program
{
public:
    Program(const QString &text, const std::u16string &call)
    {
        m_workplace.machine().intern(u"text")->value = m_workplace.machine().string(text.toStdU16String());
        m_workplace.load(u"(defun work () " + call + u")");
        m_work = m_workplace.machine().intern(u"work")->value;
    }
    lisp::Value run() { return m_workplace.machine().call(m_work, {}); }

private:
    Workplace m_workplace;
    lisp::Value m_work;
};

QString textOf(const lisp::Value &value)
{
    return QString::fromStdU16String(std::u16string(value.asString()->view()));
}

template <typename Module, typename Bare> void compare(benchmark::State &state, Module module, Bare bare)
{
    double bareSeconds = std::numeric_limits<double>::infinity(), moduleSeconds = bareSeconds;
    for (auto _ : state) {
        bareSeconds = std::min(bareSeconds, secondsOf(bare));
        const double seconds = secondsOf(module);
        moduleSeconds = std::min(moduleSeconds, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["QString"] = bareSeconds * 1000;
    state.counters["fastest"] = moduleSeconds * 1000;
    state.counters["ratio"] = moduleSeconds / bareSeconds;
}

template <typename Replace> void compareReplace(benchmark::State &state, const std::u16string &call, Replace replace)
{
    const QString text = longText();
    Program program(text, call);
    QString expected = text;
    replace(expected);
    if (textOf(program.run()) != expected)
        state.SkipWithError("the results differ");
    compare(
        state, [&] { benchmark::DoNotOptimize(program.run()); },
        [&] {
            QString copy = text;
            replace(copy);
            benchmark::DoNotOptimize(copy.constData());
        });
}

template <typename Find> void compareFind(benchmark::State &state, const std::u16string &call, Find find)
{
    const QString text = longText() + QStringLiteral("the end");
    Program program(text, call);
    if (program.run().asInteger() != find(text) + 1)
        state.SkipWithError("the results differ");
    compare(
        state, [&] { benchmark::DoNotOptimize(program.run()); }, [&] { benchmark::DoNotOptimize(find(text)); });
}

void replacePlain(benchmark::State &state, const char *pattern, const char *replacement,
                  Qt::CaseSensitivity sensitivity)
{
    const QString before = QString::fromLatin1(pattern);
    const QString after = QString::fromLatin1(replacement);
    const std::u16string flag = sensitivity == Qt::CaseInsensitive ? u" T" : u"";
    compareReplace(state, u"(acet-str-replace " + quoted(before) + u' ' + quoted(after) + u" text" + flag + u')',
                   [&](QString &text) { text.replace(before, after, sensitivity); });
}

void replaceExpression(benchmark::State &state, const char *pattern, const char *replacement)
{
    const QString before = QString::fromLatin1(pattern);
    const QString after = QString::fromLatin1(replacement);
    compareReplace(state, u"(acet-str-replace " + quoted(before) + u' ' + quoted(after) + u" text nil T)",
                   [&](QString &text) { text.replace(QRegularExpression(before), after); });
}

void findPlain(benchmark::State &state, const char *pattern, Qt::CaseSensitivity sensitivity)
{
    const QString wanted = QString::fromLatin1(pattern);
    const std::u16string flag = sensitivity == Qt::CaseInsensitive ? u" T" : u"";
    compareFind(state, u"(acet-str-find " + quoted(wanted) + u" text" + flag + u')',
                [&](const QString &text) { return text.indexOf(wanted, 0, sensitivity); });
}

void findExpression(benchmark::State &state, const char *pattern)
{
    const QString wanted = QString::fromLatin1(pattern);
    compareFind(state, u"(acet-str-find " + quoted(wanted) + u" text nil T)",
                [&](const QString &text) { return text.indexOf(QRegularExpression(wanted)); });
}

// The worst that a pattern can ask for: each star tried at each place.
void wildcards(benchmark::State &state)
{
    Program program(QString(100'000, u'a'), u"(acet-str-wcmatch text \"*a*a*a*a*a*a*b\")");
    for (auto _ : state)
        benchmark::DoNotOptimize(program.run());
}

} // namespace

#define TEXT_BENCHMARK(function, name, ...)                                                                            \
    BENCHMARK_CAPTURE(function, name, __VA_ARGS__)->UseManualTime()->Unit(benchmark::kMillisecond)

TEXT_BENCHMARK(replacePlain, sameLength, "wall", "side", Qt::CaseSensitive);
TEXT_BENCHMARK(replacePlain, shorter, "wall", "w", Qt::CaseSensitive);
TEXT_BENCHMARK(replacePlain, longer, "wall", "partition", Qt::CaseSensitive);
TEXT_BENCHMARK(replacePlain, ignoringCase, "WALL", "side", Qt::CaseInsensitive);
TEXT_BENCHMARK(replacePlain, everyBlank, " ", "_", Qt::CaseSensitive);
TEXT_BENCHMARK(replacePlain, nothing, "window", "side", Qt::CaseSensitive);
TEXT_BENCHMARK(replaceExpression, numbers, "\\d+", "#");
TEXT_BENCHMARK(replaceExpression, groups, "(\\w+) (\\d+)", "\\2 \\1");
TEXT_BENCHMARK(replaceExpression, rare, "\\blintel\\b", "beam");
TEXT_BENCHMARK(replaceExpression, noMatch, "window|roof", "side");
TEXT_BENCHMARK(findPlain, atTheEnd, "the end", Qt::CaseSensitive);
TEXT_BENCHMARK(findPlain, ignoringCase, "THE END", Qt::CaseInsensitive);
TEXT_BENCHMARK(findExpression, atTheEnd, "the end$");
BENCHMARK(wildcards)->Unit(benchmark::kMillisecond);
