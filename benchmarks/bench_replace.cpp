// What replacing in a long text costs through the module, compared with QString::replace alone. Each iteration does
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

// The program "work" that replaces in the variable "text".
class Replacement
{
public:
    Replacement(const QString &text, const std::u16string &call)
    {
        m_workplace.machine().intern(u"text")->value = m_workplace.machine().string(text.toStdU16String());
        m_workplace.load(u"(defun work () " + call + u")");
        m_work = m_workplace.machine().intern(u"work")->value;
    }
    lisp::Value run() { return m_workplace.machine().call(m_work, {}); }
    QString result() { return QString::fromStdU16String(std::u16string(run().asString()->view())); }

private:
    Workplace m_workplace;
    lisp::Value m_work;
};

template <typename Replace> void compare(benchmark::State &state, const std::u16string &call, Replace replace)
{
    const QString text = longText();
    Replacement replacement(text, call);
    QString expected = text;
    replace(expected);
    if (replacement.result() != expected)
        state.SkipWithError("the results differ");
    double bare = std::numeric_limits<double>::infinity(), module = bare;
    for (auto _ : state) {
        bare = std::min(bare, secondsOf([&] {
                            QString copy = text;
                            replace(copy);
                            benchmark::DoNotOptimize(copy.constData());
                        }));
        const double seconds = secondsOf([&] { benchmark::DoNotOptimize(replacement.run()); });
        module = std::min(module, seconds);
        state.SetIterationTime(seconds);
    }
    state.counters["QString"] = bare * 1000;
    state.counters["fastest"] = module * 1000;
    state.counters["ratio"] = module / bare;
}

void plain(benchmark::State &state, const char *pattern, const char *replacement, Qt::CaseSensitivity sensitivity)
{
    const QString before = QString::fromLatin1(pattern);
    const QString after = QString::fromLatin1(replacement);
    const std::u16string flag = sensitivity == Qt::CaseInsensitive ? u" T" : u"";
    compare(state, u"(acet-str-replace " + quoted(before) + u' ' + quoted(after) + u" text" + flag + u')',
            [&](QString &text) { text.replace(before, after, sensitivity); });
}

void expression(benchmark::State &state, const char *pattern, const char *replacement)
{
    const QString before = QString::fromLatin1(pattern);
    const QString after = QString::fromLatin1(replacement);
    compare(state, u"(acet-str-replace " + quoted(before) + u' ' + quoted(after) + u" text nil T)",
            [&](QString &text) { text.replace(QRegularExpression(before), after); });
}

} // namespace

#define REPLACE_BENCHMARK(function, name, ...)                                                                         \
    BENCHMARK_CAPTURE(function, name, __VA_ARGS__)->UseManualTime()->Unit(benchmark::kMillisecond)

REPLACE_BENCHMARK(plain, sameLength, "wall", "side", Qt::CaseSensitive);
REPLACE_BENCHMARK(plain, shorter, "wall", "w", Qt::CaseSensitive);
REPLACE_BENCHMARK(plain, longer, "wall", "partition", Qt::CaseSensitive);
REPLACE_BENCHMARK(plain, ignoringCase, "WALL", "side", Qt::CaseInsensitive);
REPLACE_BENCHMARK(plain, everyBlank, " ", "_", Qt::CaseSensitive);
REPLACE_BENCHMARK(plain, nothing, "window", "side", Qt::CaseSensitive);
REPLACE_BENCHMARK(expression, numbers, "\\d+", "#");
REPLACE_BENCHMARK(expression, groups, "(\\w+) (\\d+)", "\\2 \\1");
REPLACE_BENCHMARK(expression, rare, "\\blintel\\b", "beam");
REPLACE_BENCHMARK(expression, noMatch, "window|roof", "side");
