#include "host/commands/DimensionText.h"

#include "host/commands/TableRecords.h"
#include "host/drawing/Blocks.h"
#include "host/drawing/edit/Transform.h"

#include <QString>

#include <algorithm>
#include <cmath>

namespace commands {

using drawing::GroupList;
using drawing::integerOf;
using drawing::realOf;
using drawing::textOf;

namespace {

struct Format
{
    double factor = 1, rounding = 0;
    int decimals = 0, zeros = 0;
    std::u16string post;

    QString number(double length) const;
    std::u16string shown(double length, const std::u16string &typed, std::u16string_view prefix) const;
};

Format formatOf(const Session &session)
{
    return {session.real(u"DIMLFAC"), session.real(u"DIMRND"), session.integer(u"DIMDEC"), session.integer(u"DIMZIN"),
            session.text(u"DIMPOST")};
}

// Of a dimension style.
Format formatOf(const GroupList &style)
{
    enum Code : int { Post = 3, Rounding = 45, Zeros = 78, Factor = 144, Decimals = 271 };
    constexpr std::int64_t UsualDecimals = 4;
    return {realOf(style, Factor, 1), realOf(style, Rounding),
            static_cast<int>(integerOf(style, Decimals, UsualDecimals)), static_cast<int>(integerOf(style, Zeros)),
            textOf(style, Post)};
}

QString Format::number(double length) const
{
    constexpr int NoTrailingZeros = 8, NoLeadingZero = 4;
    double value = length * std::abs(factor);
    if (rounding > 0)
        value = std::round(value / rounding) * rounding;
    QString number = QString::number(value, 'f', decimals);
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

std::u16string Format::shown(double length, const std::u16string &typed, std::u16string_view prefix) const
{
    const QString measured = QStringView(prefix).toString() + number(length);
    const QString whole = QString::fromStdU16String(post);
    const QString standard = whole.contains(QStringLiteral("<>"))
                                 ? QString(whole).replace(QStringLiteral("<>"), measured)
                                 : measured + whole;
    const QString text = QString::fromStdU16String(typed);
    return (text.isEmpty() ? standard : QString(text).replace(QStringLiteral("<>"), standard)).toStdU16String();
}

// What a picture may show of the old measurement, and what it shows of the new one then.
struct Replacement
{
    std::u16string old, current;
};

std::vector<Replacement> replacements(Context &context, const GroupList &dimension, double scale)
{
    enum Code : int { TypedCode = 1, StyleCode = 3, MeasurementCode = 42 };
    const double measurement = realOf(dimension, MeasurementCode);
    const std::u16string typed = textOf(dimension, TypedCode);
    std::vector<Format> formats{formatOf(context.session())};
    const RecordId style = findRecord(context, drawing::known::DimensionStyle, textOf(dimension, StyleCode));
    if (style != drawing::NoRecord)
        formats.push_back(formatOf(context.database().groups(style)));
    std::vector<Replacement> result;
    for (const Format &format : formats)
        for (const std::u16string_view prefix : {std::u16string_view(), RadiusPrefix, DiameterPrefix})
            result.push_back(
                {format.shown(measurement / scale, typed, prefix), format.shown(measurement, typed, prefix)});
    return result;
}

// A text ends with what is shown: ahead of it may stand how the text is written, and the sign of a diameter.
bool endsWith(const std::u16string &text, const std::u16string &shown)
{
    if (!text.ends_with(shown))
        return false;
    const std::size_t start = text.size() - shown.size();
    const char16_t before = start > 0 ? text[start - 1] : u' ';
    return before != u'.' && (before < u'0' || before > u'9');
}

bool isLength(const GroupList &dimension)
{
    constexpr std::int64_t TypeBits = 7, Angular = 2, AngularByThreePoints = 5;
    const std::int64_t type = integerOf(dimension, drawing::groupcode::Count) & TypeBits;
    return type != Angular && type != AngularByThreePoints;
}

} // namespace

std::u16string dimensionText(Context &context, double length, const std::u16string &typed, std::u16string_view prefix)
{
    return formatOf(context.session()).shown(length, typed, prefix);
}

void showNewMeasurement(Context &context, RecordId dimension, double scale)
{
    drawing::Database &database = context.database();
    const GroupList groups = database.groups(dimension);
    const RecordId picture = drawing::pictureOf(context.drawing(), groups);
    if (picture == drawing::NoRecord || scale == 1 || !isLength(groups))
        return;
    const std::vector<Replacement> all = replacements(context, groups, scale);
    for (const RecordId part : drawing::entitiesIn(database, picture)) {
        const std::u16string type = database.type(part);
        std::u16string text = textOf(database.groups(part), drawing::groupcode::PrimaryText);
        if (type != u"TEXT" && type != u"MTEXT")
            continue;
        const auto found = std::ranges::find_if(all, [&](const Replacement &one) { return endsWith(text, one.old); });
        if (found == all.end())
            continue;
        text.replace(text.size() - found->old.size(), found->old.size(), found->current);
        changeRecord(context, part, drawing::textGroup(drawing::groupcode::PrimaryText, text));
    }
}

} // namespace commands
