#include "host/drawing/dimensions/DimensionText.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace drawing {

namespace {

QString numberText(const DimensionStyle &style, double length)
{
    constexpr int NoTrailingZeros = 8, NoLeadingZero = 4, MostDecimals = 8;
    double value = length * std::abs(style.lengthFactor);
    if (style.rounding > 0)
        value = std::round(value / style.rounding) * style.rounding;
    QString number = QString::number(value, 'f', std::clamp(style.decimals, 0, MostDecimals));
    if ((style.zeros & NoTrailingZeros) != 0 && number.contains(u'.')) {
        while (number.endsWith(u'0'))
            number.chop(1);
        if (number.endsWith(u'.'))
            number.chop(1);
    }
    if ((style.zeros & NoLeadingZero) != 0 && number.startsWith(QStringLiteral("0.")))
        number.remove(0, 1);
    return number;
}

} // namespace

std::u16string dimensionText(const DimensionStyle &style, double length, const std::u16string &typed,
                             std::u16string_view prefix)
{
    const QString measured = QStringView(prefix).toString() + numberText(style, length);
    const QString whole = QString::fromStdU16String(style.post);
    const QString standard = whole.contains(QStringLiteral("<>"))
                                 ? QString(whole).replace(QStringLiteral("<>"), measured)
                                 : measured + whole;
    const QString text = QString::fromStdU16String(typed);
    return (text.isEmpty() ? standard : QString(text).replace(QStringLiteral("<>"), standard)).toStdU16String();
}

} // namespace drawing
