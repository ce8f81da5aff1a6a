#include "host/interpreter/macro/DatePicture.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <limits>

namespace {

// Saturday, 5 September 1992, 16:53:17.506
double date()
{
    const double day = static_cast<double>(QDate(1992, 9, 5).toJulianDay());
    return day + QTime(16, 53, 17, 506).msecsSinceStartOfDay() / 86400000.0;
}

std::string dated(const std::u16string &picture)
{
    return QString::fromStdU16String(lisp::datedText(date(), picture)).toStdString();
}

TEST(DatePicture, DaysMonthsAndYears)
{
    EXPECT_EQ(dated(u"D|DD|DDD|DDDD"), "5|05|Sat|Saturday");
    EXPECT_EQ(dated(u"M|MO|MON|MONTH"), "9|09|Sep|September");
    EXPECT_EQ(dated(u"YY|YYYY"), "92|1992");
}

TEST(DatePicture, TimesOfDay)
{
    EXPECT_EQ(dated(u"H:MM:SS.MSEC"), "16:53:17.506");
    EXPECT_EQ(dated(u"HH:MMam/pm"), "04:53pm");
    EXPECT_EQ(dated(u"H AM/PM|A/P|a/p"), "4 PM|P|p");
}

TEST(DatePicture, OtherTextStays)
{
    EXPECT_EQ(dated(u"DDD, D MON YYYY - HH:MM"), "Sat, 5 Sep 1992 - 16:53");
}

TEST(DatePicture, NoDateBreaksIt)
{
    for (const double impossible : {-1e300, 1e300, std::numeric_limits<double>::infinity(), -5.0})
        EXPECT_FALSE(lisp::datedText(impossible, u"D MON YYYY HH:MM:SS").empty());
}

} // namespace
