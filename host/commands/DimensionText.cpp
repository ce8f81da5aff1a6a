#include "host/commands/DimensionText.h"

#include "host/commands/DimensionVariables.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/Blocks.h"
#include "host/drawing/dimensions/DimensionText.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>

namespace commands {

using drawing::DimensionStyle;
using drawing::GroupList;
using drawing::integerOf;
using drawing::realOf;
using drawing::textOf;

namespace {

// What a picture may show of the old measurement, and what it shows of the new one then.
struct Replacement
{
    std::u16string old, current;
};

std::vector<Replacement> replacements(Context &context, const GroupList &dimension, double scale)
{
    enum Code : int { TypedCode = 1, MeasurementCode = 42 };
    const double measurement = realOf(dimension, MeasurementCode);
    const std::u16string typed = textOf(dimension, TypedCode);
    std::vector<Replacement> result;
    for (const DimensionStyle &style : {currentStyle(context), drawing::styleOfDimension(context.drawing(), dimension)})
        for (const std::u16string_view prefix : {std::u16string_view(), drawing::RadiusPrefix, drawing::DiameterPrefix})
            result.push_back({drawing::dimensionText(style, measurement / scale, typed, prefix),
                              drawing::dimensionText(style, measurement, typed, prefix)});
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
