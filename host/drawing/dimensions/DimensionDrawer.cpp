#include "host/drawing/dimensions/DimensionDrawer.h"

#include "host/drawing/dimensions/DimensionGroups.h"
#include "host/drawing/dimensions/DimensionText.h"

#include <cmath>

namespace drawing {

using namespace dimension;
using geometry::Matrix;
using geometry::Vector;

namespace {

DimensionPlane planeOf(const GroupList &dimension)
{
    const Matrix toObject = Matrix::rotation(-geometry::radians(realOf(dimension, HorizontalCode)));
    return {Matrix::ofExtrusion(extrusionOf(dimension)) * toObject, toObject};
}

bool hasTextPlace(const GroupList &dimension, TextPlace wanted)
{
    const bool isMoved = (integerOf(dimension, KindCode) & TextPlacedFlag) != 0;
    return hasGroup(dimension, TextCode) && (wanted == TextPlace::AsGiven || isMoved);
}

} // namespace

DimensionPlaces::DimensionPlaces(const GroupList &dimension)
    : m_groups(dimension), m_plane(planeOf(dimension)), m_fromWorld(geometry::inverse(m_plane.toWorld)),
      m_fromObject(geometry::inverse(m_plane.toObject))
{
}

Vector DimensionPlaces::at(int code) const
{
    return m_fromWorld.place(placeOf(m_groups, code));
}

Vector DimensionPlaces::ofObject(int code) const
{
    return m_fromObject.place(placeOf(m_groups, code));
}

std::optional<MeasuredAngle> DimensionPlaces::angle() const
{
    std::optional<MeasuredAngle> result;
    if (kindOf(m_groups) == AngleOfLines)
        result = angleBetween({at(FirstCode), at(SecondCode)}, {at(TipCode), at(LineCode)}, ofObject(ArcCode));
    else
        result = angleAbout(at(TipCode), at(FirstCode), at(SecondCode), at(LineCode));
    return result && result->radius > 0 ? result : std::nullopt;
}

DimensionDrawer::DimensionDrawer(Drawing &drawing, RecordId block, const GroupList &dimension,
                                 const DimensionStyle &style, TextPlace wanted)
    : m_groups(dimension), m_style(style), m_horizontal(geometry::radians(realOf(dimension, HorizontalCode))),
      m_places(dimension), m_picture(drawing, block, m_places.plane(), style),
      m_isTextPlaced(hasTextPlace(dimension, wanted))
{
}

bool DimensionDrawer::draw()
{
    switch (kindOf(m_groups)) {
    case Rotated:
        drawLinear(geometry::radians(realOf(m_groups, AngleCode)) + m_horizontal);
        break;
    case Aligned:
        drawLinear(angleOfPlaces());
        break;
    case AngleOfLines:
        drawAngle({FirstCode, SecondCode, TipCode, LineCode});
        break;
    case AngleByThreePoints:
        drawAngle({FirstCode, SecondCode, TipCode});
        break;
    case Ordinate:
        drawOrdinate();
        break;
    default:
        drawRadial(kindOf(m_groups) == Radius ? RadiusPrefix : DiameterPrefix);
    }
    return m_picture.isWhole();
}

Vector DimensionDrawer::textPlace() const
{
    return m_places.plane().toObject.place(m_text);
}

// The file has the text's angle from how it would stand otherwise.
DimensionLabel DimensionDrawer::label(std::u16string text, double usualAngle) const
{
    DimensionLabel result;
    result.text = std::move(text);
    if (const double turn = realOf(m_groups, TextAngleCode); turn != 0)
        result.angle = usualAngle + geometry::radians(turn);
    if (m_isTextPlaced)
        result.place = m_places.ofObject(TextCode);
    return result;
}

std::u16string DimensionDrawer::lengthText(std::u16string_view prefix) const
{
    return dimensionText(m_style, m_measurement, textOf(m_groups, TypedCode), prefix);
}

double DimensionDrawer::angleOfPlaces() const
{
    const Vector along = m_places.at(SecondCode) - m_places.at(FirstCode);
    return std::atan2(along.y, along.x);
}

void DimensionDrawer::drawLinear(double angle)
{
    const Vector first = m_places.at(FirstCode), second = m_places.at(SecondCode), onLine = m_places.at(LineCode);
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
    m_text = m_picture.dimensionLine(firstFoot, secondFoot, label(lengthText(), angle));
    for (const Vector &defining : {first, second, secondFoot})
        m_picture.definitionPoint(defining);
}

// Square to the dimension line, or as the dimension says; never along the line.
Vector DimensionDrawer::extensionDirection(const Vector &across) const
{
    constexpr double Least = 1e-6;
    const double oblique = realOf(m_groups, ObliqueCode);
    if (oblique == 0)
        return across;
    const double angle = geometry::radians(oblique) + m_horizontal;
    const Vector direction{std::cos(angle), std::sin(angle), 0};
    return std::abs(dot(direction, across)) > Least ? direction : across;
}

void DimensionDrawer::drawRadial(std::u16string_view prefix)
{
    const Vector start = m_places.at(LineCode), tip = m_places.at(TipCode);
    m_measurement = length(tip - start);
    m_text = m_picture.leaderLine(tip, textSide(start, tip), label(lengthText(prefix), 0));
    m_picture.centreMark(kindOf(m_groups) == Radius ? start : (start + tip) * 0.5);
    m_picture.definitionPoint(start);
    m_picture.definitionPoint(tip);
}

// The text hangs on the leader outside of the curve, or inside where it stands there already.
Vector DimensionDrawer::textSide(const Vector &start, const Vector &tip) const
{
    constexpr double UsualArrows = 2;
    const Vector out = normalized(tip - start, {1, 0, 0});
    const double leader = realOf(m_groups, LeaderCode, UsualArrows * m_style.arrowSize);
    const bool isInside = hasGroup(m_groups, TextCode) && dot(m_places.ofObject(TextCode) - tip, out) < 0;
    return tip + out * (isInside ? -leader : leader);
}

void DimensionDrawer::drawAngle(std::initializer_list<int> definitions)
{
    const MeasuredAngle angle = m_places.angle().value();
    m_measurement = angle.sweep;
    if (!m_style.hidesFirstExtension)
        m_picture.extensionLine(angle, angle.first);
    if (!m_style.hidesSecondExtension)
        m_picture.extensionLine(angle, angle.second);
    const double alongArc = angle.start + angle.sweep / 2 + geometry::FullTurn / 4;
    m_text =
        m_picture.dimensionArc(angle, label(angleText(m_style, m_measurement, textOf(m_groups, TypedCode)), alongArc));
    for (const int code : definitions)
        m_picture.definitionPoint(m_places.at(code));
}

// How far the place is from the origin along one axis, whichever way.
void DimensionDrawer::drawOrdinate()
{
    const Vector origin = m_places.at(LineCode), measured = m_places.at(FirstCode), end = m_places.at(SecondCode);
    const bool isAlongX = (integerOf(m_groups, KindCode) & AlongXFlag) != 0;
    m_measurement = std::abs(isAlongX ? measured.x - origin.x : measured.y - origin.y);
    const Vector direction = isAlongX ? Vector{0, 1, 0} : Vector{1, 0, 0};
    m_text =
        m_picture.ordinateLine(measured, end, direction, label(lengthText(), isAlongX ? geometry::FullTurn / 4 : 0));
    for (const Vector &defining : {origin, measured, end})
        m_picture.definitionPoint(defining);
}

} // namespace drawing
