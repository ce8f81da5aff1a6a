#include "host/drawing/dimensions/DimensionDrawing.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/dimensions/BlockUsers.h"
#include "host/drawing/dimensions/DimensionPicture.h"
#include "host/drawing/dimensions/DimensionText.h"
#include "host/drawing/edit/DimensionParts.h"
#include "host/drawing/edit/Transform.h"

#include <algorithm>
#include <cmath>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

enum Code : int {
    TypedCode = 1,
    StyleCode = 3,
    LineCode = 10, // a place on the dimension line; of a radius the centre, of a diameter its other end
    TextCode = 11,
    FirstCode = 13,
    SecondCode = 14,
    TipCode = 15,
    LeaderCode = 40,
    MeasurementCode = 42,
    AngleCode = 50,
    HorizontalCode = 51,
    ObliqueCode = 52,
    TextAngleCode = 53,
    KindCode = 70,
    ExtrusionCode = 210
};

enum Kind : std::int64_t { Rotated = 0, Aligned = 1, Diameter = 3, Radius = 4 };

constexpr std::int64_t KindBits = 7, OwnBlockFlag = 32, TextPlacedFlag = 128;

std::int64_t kindOf(const GroupList &dimension)
{
    return integerOf(dimension, KindCode) & KindBits;
}

bool hasPlaces(const GroupList &dimension, std::initializer_list<int> codes)
{
    return std::ranges::all_of(codes, [&](int code) {
        const auto *point = findValue<Point>(dimension, code);
        return point && geometry::isFinite(geometry::vectorOf(*point));
    });
}

bool isShown(const Group &group)
{
    constexpr int codes[] = {TypedCode,   StyleCode,       LineCode,   TextCode,      FirstCode,
                             SecondCode,  TipCode,         LeaderCode, AngleCode,     HorizontalCode,
                             ObliqueCode, MeasurementCode, KindCode,   TextAngleCode, ExtrusionCode};
    return group.code >= groupcode::ExtendedString || std::ranges::find(codes, group.code) != std::end(codes);
}

// Draws one dimension and finds what follows for its groups.
class Drawer
{
public:
    Drawer(Drawing &drawing, RecordId block, const GroupList &dimension, const DimensionStyle &style, TextPlace wanted)
        : m_groups(dimension), m_style(style), m_horizontal(geometry::radians(realOf(dimension, HorizontalCode))),
          m_plane(planeOf(dimension)), m_toPlane(geometry::inverse(m_plane.toWorld)),
          m_picture(drawing, block, m_plane, style),
          m_isTextPlaced(hasGroup(dimension, TextCode) &&
                         (wanted == TextPlace::AsGiven || (integerOf(dimension, KindCode) & TextPlacedFlag) != 0))
    {
    }

    bool draw()
    {
        const std::int64_t kind = kindOf(m_groups);
        if (kind == Rotated || kind == Aligned)
            drawLinear(kind == Aligned);
        else
            drawRadial(kind == Radius);
        return m_picture.isWhole();
    }

    double measurement() const { return m_measurement; }
    Vector textPlace() const { return m_plane.toObject.place(m_text); } // as a dimension has it

private:
    static DimensionPlane planeOf(const GroupList &dimension)
    {
        const Matrix toObject = Matrix::rotation(-geometry::radians(realOf(dimension, HorizontalCode)));
        return {Matrix::ofExtrusion(extrusionOf(dimension)) * toObject, toObject};
    }

    Vector place(int code) const { return m_toPlane.place(placeOf(m_groups, code)); }

    Vector givenTextPlace() const { return geometry::inverse(m_plane.toObject).place(placeOf(m_groups, TextCode)); }

    // The file has the text's angle from how it would stand otherwise.
    DimensionLabel label(std::u16string_view prefix, double usualAngle) const
    {
        DimensionLabel result;
        result.text = dimensionText(m_style, m_measurement, textOf(m_groups, TypedCode), prefix);
        if (const double turn = realOf(m_groups, TextAngleCode); turn != 0)
            result.angle = usualAngle + geometry::radians(turn);
        if (m_isTextPlaced)
            result.place = givenTextPlace();
        return result;
    }

    void drawLinear(bool isAligned)
    {
        const Vector first = place(FirstCode), second = place(SecondCode), onLine = place(LineCode);
        const double angle = isAligned ? std::atan2(second.y - first.y, second.x - first.x)
                                       : geometry::radians(realOf(m_groups, AngleCode)) + m_horizontal;
        const Vector across{-std::sin(angle), std::cos(angle), 0}, extension = extensionDirection(across);
        const auto foot = [&](const Vector &measured) {
            return measured + extension * (dot(onLine - measured, across) / dot(extension, across));
        };
        const Vector firstFoot = foot(first), secondFoot = foot(second);
        m_measurement = length(secondFoot - firstFoot);
        if (!m_style.hidesFirstExtension)
            m_picture.extensionLine(first, firstFoot);
        if (!m_style.hidesSecondExtension)
            m_picture.extensionLine(second, secondFoot);
        m_text = m_picture.dimensionLine(firstFoot, secondFoot, label({}, angle));
        for (const Vector &defining : {first, second, secondFoot})
            m_picture.definitionPoint(defining);
    }

    // Square to the dimension line, or as the dimension says; never along the line.
    Vector extensionDirection(const Vector &across) const
    {
        constexpr double Least = 1e-6;
        const double oblique = realOf(m_groups, ObliqueCode);
        if (oblique == 0)
            return across;
        const double angle = geometry::radians(oblique) + m_horizontal;
        const Vector direction{std::cos(angle), std::sin(angle), 0};
        return std::abs(dot(direction, across)) > Least ? direction : across;
    }

    void drawRadial(bool isRadius)
    {
        const Vector start = place(LineCode), tip = place(TipCode);
        m_measurement = length(tip - start);
        m_text = m_picture.leaderLine(tip, textSide(start, tip), label(isRadius ? RadiusPrefix : DiameterPrefix, 0));
        m_picture.centreMark(isRadius ? start : (start + tip) * 0.5);
        m_picture.definitionPoint(start);
        m_picture.definitionPoint(tip);
    }

    // The text hangs on the leader outside of the curve, or inside where it stands there already.
    Vector textSide(const Vector &start, const Vector &tip) const
    {
        constexpr double UsualArrows = 2;
        const Vector out = normalized(tip - start, {1, 0, 0});
        const double leader = realOf(m_groups, LeaderCode, UsualArrows * m_style.arrowSize);
        const bool isInside = hasGroup(m_groups, TextCode) && dot(givenTextPlace() - tip, out) < 0;
        return tip + out * (isInside ? -leader : leader);
    }

    const GroupList &m_groups;
    const DimensionStyle &m_style;
    double m_horizontal; // from the dimension's own x axis to that of who reads it, clockwise
    DimensionPlane m_plane;
    Matrix m_toPlane; // from the world
    DimensionPicture m_picture;
    bool m_isTextPlaced;
    double m_measurement = 0;
    Vector m_text;
};

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
    const std::int64_t kind = kindOf(dimension);
    if (textOf(dimension, groupcode::Type) != u"DIMENSION")
        return false;
    if (kind == Rotated || kind == Aligned)
        return hasPlaces(dimension, {LineCode, FirstCode, SecondCode});
    return (kind == Diameter || kind == Radius) && hasPlaces(dimension, {LineCode, TipCode});
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
    Drawer drawer(drawing, block, groups, style, place);
    if (!drawer.draw())
        return false;
    setInDimensionPart(groups, integerGroup(KindCode, integerOf(groups, KindCode) | OwnBlockFlag));
    setInDimensionPart(groups, realGroup(MeasurementCode, drawer.measurement()));
    setInDimensionPart(groups, pointGroup(TextCode, drawer.textPlace()));
    setInDimensionPart(groups, textGroup(groupcode::Name, name));
    return database.replace(dimension, groups);
}

} // namespace drawing
