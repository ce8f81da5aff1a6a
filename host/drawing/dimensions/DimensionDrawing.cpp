#include "host/drawing/dimensions/DimensionDrawing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/dimensions/BlockUsers.h"
#include "host/drawing/dimensions/DimensionDrawer.h"
#include "host/drawing/dimensions/DimensionGroups.h"
#include "host/drawing/edit/DimensionParts.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>

namespace drawing {

using namespace dimension;

namespace {

bool hasPlaces(const GroupList &dimension, std::initializer_list<int> codes)
{
    return std::ranges::all_of(codes, [&](int code) {
        const auto *point = findValue<Point>(dimension, code);
        return point && geometry::isFinite(geometry::vectorOf(*point));
    });
}

bool isShown(const Group &group)
{
    constexpr int codes[] = {TypedCode,       StyleCode, LineCode,      TextCode,     FirstCode,      SecondCode,
                             TipCode,         ArcCode,   LeaderCode,    AngleCode,    HorizontalCode, ObliqueCode,
                             MeasurementCode, KindCode,  TextAngleCode, ExtrusionCode};
    return group.code >= groupcode::ExtendedString || std::ranges::find(codes, group.code) != std::end(codes);
}

std::u16string nameForPicture(const Drawing &drawing, RecordId dimension, const GroupList &groups)
{
    thread_local BlockUsers users; // of the drawing that was worked on last
    const std::u16string old = textOf(groups, groupcode::Name);
    const RecordId picture = pictureOf(drawing, groups);
    const bool isItsOwn = picture != NoRecord && drawing.database().record(dimension).container != picture &&
                          !users.isShownByOther(drawing, old, dimension);
    return isItsOwn ? old : freeBlockName(drawing.tables(), PicturePrefix);
}

} // namespace

bool isDrawable(const GroupList &dimension)
{
    if (textOf(dimension, groupcode::Type) != u"DIMENSION")
        return false;
    switch (kindOf(dimension)) {
    case Rotated:
    case Aligned:
    case Ordinate:
        return hasPlaces(dimension, {LineCode, FirstCode, SecondCode});
    case AngleOfLines:
        return hasPlaces(dimension, {LineCode, FirstCode, SecondCode, TipCode, ArcCode}) &&
               DimensionPlaces(dimension).angle();
    case AngleByThreePoints:
        return hasPlaces(dimension, {LineCode, FirstCode, SecondCode, TipCode}) && DimensionPlaces(dimension).angle();
    case Diameter:
    case Radius:
        return hasPlaces(dimension, {LineCode, TipCode});
    default:
        return false;
    }
}

bool showsOther(const GroupList &before, const GroupList &after)
{
    const auto shown = [](const GroupList &groups) {
        GroupList result;
        std::ranges::copy_if(groups, std::back_inserter(result), isShown);
        return result;
    };
    return shown(before) != shown(after);
}

bool drawDimension(Drawing &drawing, RecordId dimension, TextPlace place)
{
    return drawDimension(drawing, dimension, styleOfDimension(drawing, drawing.database().groups(dimension)), place);
}

bool drawDimension(Drawing &drawing, RecordId dimension, const DimensionStyle &style, TextPlace place)
{
    Database &database = drawing.database();
    GroupList groups = database.groups(dimension);
    if (!isDrawable(groups))
        return false;
    const std::u16string name = nameForPicture(drawing, dimension, groups);
    const RecordId block = defineBlock(database, drawing.tables(), {name, {}, AnonymousBlock, u"0"});
    if (block == NoRecord)
        return false;
    DimensionDrawer drawer(drawing, block, groups, style, place);
    if (!drawer.draw())
        return false;
    setInDimensionPart(groups, integerGroup(KindCode, integerOf(groups, KindCode) | OwnBlockFlag));
    setInDimensionPart(groups, realGroup(MeasurementCode, drawer.measurement()));
    setInDimensionPart(groups, pointGroup(TextCode, drawer.textPlace()));
    setInDimensionPart(groups, textGroup(groupcode::Name, name));
    return database.replace(dimension, groups);
}

} // namespace drawing
