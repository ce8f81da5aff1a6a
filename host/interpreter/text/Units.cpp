#include "host/interpreter/text/Units.h"

#include "host/interpreter/text/UnitTable.h"

#include <QList>
#include <QStringView>

#include <cmath>

namespace lisp {

namespace {

struct Unit
{
    double factor = 1, offset = 0;
    Dimension dimension{};

    void multiply(const Unit &other, int power)
    {
        factor *= std::pow(other.factor, power);
        for (std::size_t i = 0; i < dimension.size(); ++i)
            dimension[i] += power * other.dimension[i];
    }
};

QStringView viewOf(std::u16string_view text)
{
    return {text.data(), static_cast<qsizetype>(text.size())};
}

// Short names are symbols, in which case counts: mW and MW.
bool isName(QStringView word, QStringView name)
{
    constexpr qsizetype LongestSymbol = 3;
    if (name.size() <= LongestSymbol)
        return word == name;
    if (word.compare(name, Qt::CaseInsensitive) == 0)
        return true;
    return word.startsWith(name, Qt::CaseInsensitive) &&
           (word.mid(name.size()).compare(u"s", Qt::CaseInsensitive) == 0 ||
            word.mid(name.size()).compare(u"es", Qt::CaseInsensitive) == 0);
}

std::optional<Unit> plainUnit(QStringView word, bool onlyMetric)
{
    for (const UnitRow &row : unitTable) {
        if (onlyMetric && row.prefixes != Prefixes::Metric)
            continue;
        for (const QStringView name : viewOf(row.names).split(u'|'))
            if (isName(word, name))
                return Unit{row.factor, row.offset, row.dimension};
    }
    return std::nullopt;
}

std::optional<Unit> unitOf(QStringView word)
{
    if (std::optional<Unit> unit = plainUnit(word, false))
        return unit;
    for (const MetricPrefix &prefix : metricPrefixes)
        for (const QStringView start : {viewOf(prefix.name), viewOf(prefix.symbol)}) {
            const bool isSymbol = start == viewOf(prefix.symbol);
            if (!word.startsWith(start, isSymbol ? Qt::CaseSensitive : Qt::CaseInsensitive))
                continue;
            if (std::optional<Unit> unit = plainUnit(word.mid(start.size()), true)) {
                unit->factor *= prefix.factor;
                return unit;
            }
        }
    return std::nullopt;
}

// "ft^2": the unit and its power.
bool multiplyBy(QStringView term, int power, Unit &whole)
{
    const qsizetype mark = term.indexOf(u'^');
    if (mark >= 0) {
        bool isNumber = false;
        power *= term.mid(mark + 1).toInt(&isNumber);
        constexpr int Highest = 9;
        if (!isNumber || std::abs(power) > Highest)
            return false;
        term = term.left(mark);
    }
    const std::optional<Unit> unit = unitOf(term);
    if (unit)
        whole.multiply(*unit, power);
    return unit.has_value();
}

int powerOfWord(QStringView word)
{
    if (word == u"sq" || word == u"square")
        return 2;
    return word == u"cu" || word == u"cubic" ? 3 : 1;
}

// Words and signs; what follows a "/" counts below the line, up to the next sign.
std::optional<Unit> unitOfText(QStringView text)
{
    if (std::optional<Unit> single = unitOf(text)) // temperatures keep their zero
        return single;
    QString spaced = text.toString();
    spaced.replace(u'_', u' ');
    spaced.replace(u'*', u' ').replace(QStringLiteral("/"), QStringLiteral(" / "));
    Unit whole;
    int sign = 1, power = 1, terms = 0;
    for (const QStringView word : QStringView(spaced).split(u' ', Qt::SkipEmptyParts)) {
        if (word == u"/") {
            sign = -1;
        } else if (powerOfWord(word) != 1) {
            power = powerOfWord(word);
        } else {
            if (!multiplyBy(word, sign * power, whole))
                return std::nullopt;
            sign = power = 1;
            ++terms;
        }
    }
    return terms > 0 ? std::optional(whole) : std::nullopt;
}

} // namespace

std::optional<UnitConversion> unitConversion(std::u16string_view from, std::u16string_view to)
{
    const std::optional<Unit> old = unitOfText(viewOf(from).trimmed()), now = unitOfText(viewOf(to).trimmed());
    if (!old || !now || old->dimension != now->dimension)
        return std::nullopt;
    return UnitConversion{old->factor / now->factor, (old->offset - now->offset) / now->factor};
}

} // namespace lisp
