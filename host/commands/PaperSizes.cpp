#include "host/commands/PaperSizes.h"

#include <QRegularExpression>
#include <QString>

#include <algorithm>

namespace commands {

namespace {

PaperSize upright(double width, double height)
{
    return {{}, std::min(width, height), std::max(width, height)};
}

std::optional<PaperSize> measuredSize(const QString &typed)
{
    static const QRegularExpression size(
        QStringLiteral("(\\d+(?:\\.\\d+)?)\\s*x\\s*(\\d+(?:\\.\\d+)?)\\s*(mm|millimet|in|\")?"));
    const QRegularExpressionMatch match = size.match(typed);
    if (!match.hasMatch())
        return std::nullopt;
    const QString unit = match.captured(3);
    const double factor = unit == u"in" || unit == u"\"" ? MillimetresPerInch : 1;
    const double width = match.captured(1).toDouble() * factor, height = match.captured(2).toDouble() * factor;
    constexpr double Least = 10, Most = 10000; // a line would not fit below, a picture not above
    return std::min(width, height) >= Least && std::max(width, height) <= Most ? std::optional(upright(width, height))
                                                                               : std::nullopt;
}

} // namespace

const std::vector<PaperSize> &paperSizes()
{
    static const std::vector<PaperSize> sizes = {
        {u"A0", 841, 1189},        {u"A1", 594, 841},          {u"A2", 420, 594},          {u"A3", 297, 420},
        {u"A4", 210, 297},         {u"A5", 148, 210},          {u"B1", 707, 1000},         {u"B2", 500, 707},
        {u"B3", 353, 500},         {u"B4", 250, 353},          {u"B5", 176, 250},          {u"Letter", 215.9, 279.4},
        {u"Legal", 215.9, 355.6},  {u"Tabloid", 279.4, 431.8}, {u"ANSI A", 215.9, 279.4},  {u"ANSI B", 279.4, 431.8},
        {u"ANSI C", 431.8, 558.8}, {u"ANSI D", 558.8, 863.6},  {u"ANSI E", 863.6, 1117.6}, {u"ARCH A", 228.6, 304.8},
        {u"ARCH B", 304.8, 457.2}, {u"ARCH C", 457.2, 609.6},  {u"ARCH D", 609.6, 914.4},  {u"ARCH E", 914.4, 1219.2},
    };
    return sizes;
}

std::optional<PaperSize> paperSize(std::u16string_view typed)
{
    const QString text = QString::fromStdU16String(std::u16string(typed)).toLower().replace(u'_', u' ').simplified();
    if (const std::optional<PaperSize> measured = measuredSize(text))
        return measured;
    const QString words = u' ' + text + u' ';
    for (const PaperSize &size : paperSizes())
        if (words.contains(u' ' + QString::fromStdU16String(std::u16string(size.name)).toLower() + u' '))
            return size;
    return std::nullopt;
}

} // namespace commands
