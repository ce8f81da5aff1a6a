#include "host/drawing/dimensions/DimensionText.h"

#include "host/drawing/geometry/Vector.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

// What is left out of a number, by the bits of DIMZIN.
constexpr int NoLeadingZero = 4, NoTrailingZeros = 8;

QString numberText(double value, int decimals, int zeros)
{
    constexpr int MostDecimals = 8;
    QString number = QString::number(value, 'f', std::clamp(decimals, 0, MostDecimals));
    if ((zeros & NoTrailingZeros) != 0 && number.contains(u'.')) {
        while (number.endsWith(u'0'))
            number.chop(1);
        if (number.endsWith(u'.'))
            number.chop(1);
    }
    if ((zeros & NoLeadingZero) != 0 && number.startsWith(QStringLiteral("0.")))
        number.remove(0, 1);
    return number;
}

QString lengthText(const DimensionStyle &style, double length)
{
    double value = length * std::abs(style.lengthFactor);
    if (style.rounding > 0)
        value = std::round(value / style.rounding) * style.rounding;
    return numberText(value, style.decimals, style.zeros);
}

std::u16string withTyped(const QString &standard, const std::u16string &typed)
{
    const QString text = QString::fromStdU16String(typed);
    return (text.isEmpty() ? standard : QString(text).replace(QStringLiteral("<>"), standard)).toStdU16String();
}

} // namespace

std::u16string dimensionText(const DimensionStyle &style, double length, const std::u16string &typed,
                             std::u16string_view prefix)
{
    const QString measured = QStringView(prefix).toString() + lengthText(style, length);
    const QString whole = QString::fromStdU16String(style.post);
    const QString standard = whole.contains(QStringLiteral("<>"))
                                 ? QString(whole).replace(QStringLiteral("<>"), measured)
                                 : measured + whole;
    return withTyped(standard, typed);
}

// DIMAZIN has bits of its own: 1 for no leading zero, 2 for no zeros at the end.
std::u16string angleText(const DimensionStyle &style, double angle, const std::u16string &typed)
{
    const int zeros =
        ((style.angleZeros & 1) != 0 ? NoLeadingZero : 0) | ((style.angleZeros & 2) != 0 ? NoTrailingZeros : 0);
    const int decimals = style.angleDecimals < 0 ? style.decimals : style.angleDecimals;
    return withTyped(numberText(angle * 360 / geometry::FullTurn, decimals, zeros) + QStringLiteral("%%d"), typed);
}

} // namespace drawing
