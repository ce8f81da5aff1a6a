#include "host/interpreter/macro/DatePicture.h"

#include <QDateTime>
#include <QLocale>

#include <cmath>

namespace lisp {

namespace {

using namespace std::string_view_literals;

QDateTime timeOf(double julianDate)
{
    constexpr double Milliseconds = 24.0 * 60 * 60 * 1000, LastDay = 5373484; // the end of the year 9999
    const double days = std::isfinite(julianDate) ? std::clamp(std::floor(julianDate), 1.0, LastDay) : 1;
    const double part = std::isfinite(julianDate) ? julianDate - std::floor(julianDate) : 0;
    const int sinceMidnight = std::min(static_cast<int>(std::lround(part * Milliseconds)), 86399999);
    return {QDate::fromJulianDay(static_cast<qint64>(days)), QTime::fromMSecsSinceStartOfDay(sinceMidnight)};
}

struct Clock
{
    QDateTime time;
    bool isHalfDays; // hours from 1 to 12

    int hour() const
    {
        const int hour = time.time().hour();
        return isHalfDays ? (hour + 11) % 12 + 1 : hour;
    }
    QString padded(int number, int digits) const { return QStringLiteral("%1").arg(number, digits, 10, QChar(u'0')); }
    QString half(const char *morning, const char *afternoon) const
    {
        return QString::fromLatin1(time.time().hour() < 12 ? morning : afternoon);
    }
};

struct Token
{
    std::u16string_view name; // the longer ones of those that begin alike stand first
    bool isExact;             // small and capital letters differ
    QString (*text)(const Clock &);
};

// clang-format off
const Token tokens[] = {
    {u"AM/PM", true, [](const Clock &clock) { return clock.half("AM", "PM"); }},
    {u"am/pm", true, [](const Clock &clock) { return clock.half("am", "pm"); }},
    {u"A/P", true, [](const Clock &clock) { return clock.half("A", "P"); }},
    {u"a/p", true, [](const Clock &clock) { return clock.half("a", "p"); }},
    {u"DDDD", false, [](const Clock &clock) { return QLocale::c().dayName(clock.time.date().dayOfWeek()); }},
    {u"DDD", false, [](const Clock &clock) { return QLocale::c().dayName(clock.time.date().dayOfWeek(), QLocale::ShortFormat); }},
    {u"DD", false, [](const Clock &clock) { return clock.padded(clock.time.date().day(), 2); }},
    {u"D", false, [](const Clock &clock) { return QString::number(clock.time.date().day()); }},
    {u"MONTH", false, [](const Clock &clock) { return QLocale::c().monthName(clock.time.date().month()); }},
    {u"MSEC", false, [](const Clock &clock) { return clock.padded(clock.time.time().msec(), 3); }},
    {u"MON", false, [](const Clock &clock) { return QLocale::c().monthName(clock.time.date().month(), QLocale::ShortFormat); }},
    {u"MO", false, [](const Clock &clock) { return clock.padded(clock.time.date().month(), 2); }},
    {u"MM", false, [](const Clock &clock) { return clock.padded(clock.time.time().minute(), 2); }},
    {u"M", false, [](const Clock &clock) { return QString::number(clock.time.date().month()); }},
    {u"YYYY", false, [](const Clock &clock) { return clock.padded(clock.time.date().year(), 4); }},
    {u"YY", false, [](const Clock &clock) { return clock.padded(clock.time.date().year() % 100, 2); }},
    {u"HH", false, [](const Clock &clock) { return clock.padded(clock.hour(), 2); }},
    {u"H", false, [](const Clock &clock) { return QString::number(clock.hour()); }},
    {u"SS", false, [](const Clock &clock) { return clock.padded(clock.time.time().second(), 2); }},
};
// clang-format on

const Token *tokenAt(std::u16string_view rest)
{
    for (const Token &token : tokens) {
        const QStringView begin(rest.data(), static_cast<qsizetype>(std::min(rest.size(), token.name.size())));
        const QStringView name(token.name.data(), static_cast<qsizetype>(token.name.size()));
        if (begin.compare(name, token.isExact ? Qt::CaseSensitive : Qt::CaseInsensitive) == 0)
            return &token;
    }
    return nullptr;
}

bool hasHalfDays(std::u16string_view picture)
{
    for (const std::u16string_view mark : {u"AM/PM"sv, u"am/pm"sv, u"A/P"sv, u"a/p"sv})
        if (picture.find(mark) != picture.npos)
            return true;
    return false;
}

} // namespace

std::u16string datedText(double julianDate, std::u16string_view picture)
{
    const Clock clock{timeOf(julianDate), hasHalfDays(picture)};
    QString text;
    for (std::size_t place = 0; place < picture.size();) {
        const Token *token = tokenAt(picture.substr(place));
        text += token ? token->text(clock) : QString(QChar(picture[place]));
        place += token ? token->name.size() : 1;
    }
    return text.toStdU16String();
}

} // namespace lisp
