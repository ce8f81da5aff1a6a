#include "host/interpreter/text/LinearUnits.h"

#include "host/interpreter/text/TextCursor.h"

#include <cmath>

namespace lisp {

namespace {

// 1/2; takes nothing if that is not what follows.
std::optional<double> takeFraction(TextCursor &cursor)
{
    const std::u16string_view start = cursor.rest();
    const std::optional<double> numerator = cursor.takeWhole();
    if (numerator && cursor.take(u'/'))
        if (const std::optional<double> denominator = cursor.takeWhole(); denominator && *denominator > 0)
            return *numerator / *denominator;
    cursor.goBack(start);
    return std::nullopt;
}

// 17 1/2 or 17-1/2; takes nothing if that is not what follows.
std::optional<double> takeWholeAndFraction(TextCursor &cursor)
{
    const std::u16string_view start = cursor.rest();
    const std::optional<double> whole = cursor.takeWhole();
    if (whole && cursor.takeAny(u"- ") != 0) {
        cursor.skipBlanks();
        if (const std::optional<double> fraction = takeFraction(cursor))
            return *whole + *fraction;
    }
    cursor.goBack(start);
    return std::nullopt;
}

std::optional<double> takeMixedNumber(TextCursor &cursor)
{
    if (const std::optional<double> mixed = takeWholeAndFraction(cursor))
        return mixed;
    if (const std::optional<double> fraction = takeFraction(cursor))
        return fraction;
    return cursor.takeReal();
}

std::optional<double> takeFeetAndInches(TextCursor &cursor)
{
    std::optional<double> number = takeMixedNumber(cursor);
    double feet = 0.0;
    if (number && cursor.take(u'\'')) {
        feet = *number;
        if (cursor.atEnd())
            return feet * InchesPerFoot;
        cursor.takeAny(u"- ");
        cursor.skipBlanks();
        number = takeMixedNumber(cursor);
    }
    if (!number)
        return std::nullopt;
    cursor.take(u'"');
    return feet * InchesPerFoot + *number;
}

} // namespace

std::optional<double> distof(std::u16string_view text, LinearUnits mode)
{
    TextCursor cursor(text);
    const bool negative = cursor.takeAny(u"+-") == u'-';
    const bool hasFeet = mode == LinearUnits::Engineering || mode == LinearUnits::Architectural;
    const std::optional<double> number = hasFeet ? takeFeetAndInches(cursor) : takeMixedNumber(cursor);
    if (!number || !cursor.atEnd() || !std::isfinite(*number))
        return std::nullopt;
    return negative ? -*number : *number;
}

} // namespace lisp
