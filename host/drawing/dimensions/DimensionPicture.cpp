#include "host/drawing/dimensions/DimensionPicture.h"

#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <cmath>

namespace drawing {

using geometry::Vector;

namespace {

constexpr int ExtrusionCode = 210;

// A dimension's text is read from below or from the right.
double readable(double angle)
{
    constexpr double Rounding = 1e-9, Quarter = geometry::FullTurn / 4;
    double result = std::remainder(angle, geometry::FullTurn);
    if (result > Quarter + Rounding || result <= -Quarter + Rounding)
        result += result > 0 ? -geometry::FullTurn / 2 : geometry::FullTurn / 2;
    return result;
}

} // namespace

// Colours that the style leaves to the block are the dimension's.
GroupList DimensionPicture::part(std::u16string type, int color)
{
    return {textGroup(groupcode::Type, std::move(type)), textGroup(groupcode::Layer, u"0"), integerGroup(62, color)};
}

void DimensionPicture::add(const GroupList &groups)
{
    GroupList whole = groups;
    if (m_plane.toWorld.z != Vector{0, 0, 1})
        whole.push_back(pointGroup(ExtrusionCode, m_plane.toWorld.z));
    if (addEntity(m_drawing, whole, {m_block, false, u"0"}) == NoRecord)
        m_isWhole = false;
}

void DimensionPicture::line(const Vector &start, const Vector &end, int color)
{
    GroupList groups = part(u"LINE", color);
    groups.push_back(pointGroup(10, m_plane.toWorld.place(start)));
    groups.push_back(pointGroup(11, m_plane.toWorld.place(end)));
    add(groups);
}

void DimensionPicture::extensionLine(const Vector &measured, const Vector &foot)
{
    if (length(foot - measured) <= m_style.extensionOffset)
        return;
    const Vector along = normalized(foot - measured);
    line(measured + along * m_style.extensionOffset, foot + along * m_style.overhang, m_style.extensionColor);
}

// A filled triangle three times as long as wide, or a stroke where the style wants one.
void DimensionPicture::arrow(const Vector &tip, const Vector &towards)
{
    constexpr double Slenderness = 6;
    const Vector side{-towards.y, towards.x, 0};
    if (m_style.tickSize > 0) {
        const Vector stroke = (towards + side) * m_style.tickSize;
        line(tip - stroke, tip + stroke, m_style.lineColor);
        return;
    }
    const Vector back = tip - towards * m_style.arrowSize, half = side * (m_style.arrowSize / Slenderness);
    GroupList groups = part(u"SOLID", m_style.lineColor);
    groups.push_back(pointGroup(10, m_plane.toObject.place(back + half)));
    groups.push_back(pointGroup(11, m_plane.toObject.place(back - half)));
    groups.push_back(pointGroup(12, m_plane.toObject.place(tip)));
    groups.push_back(pointGroup(13, m_plane.toObject.place(tip)));
    add(groups);
}

double DimensionPicture::widthOf(const std::u16string &string) const
{
    geometry::Text measured;
    measured.string = string;
    measured.style = m_drawing.tables().find(known::Style, m_style.textStyle);
    return layOut(measured, geometry::textStyleOf(m_drawing.database(), measured.style)).width * m_style.textHeight;
}

void DimensionPicture::text(const Vector &place, double angle, const std::u16string &string)
{
    constexpr std::int64_t Centre = 1, Middle = 2;
    const Vector right = m_plane.toObject.direction({std::cos(angle), std::sin(angle), 0});
    GroupList groups = part(u"TEXT", m_style.textColor);
    groups.push_back(pointGroup(10, m_plane.toObject.place(place)));
    groups.push_back(realGroup(40, m_style.textHeight));
    groups.push_back(textGroup(1, string));
    groups.push_back(realGroup(50, turnInDegrees(std::atan2(right.y, right.x))));
    groups.push_back(textGroup(7, m_style.textStyle));
    groups.push_back(integerGroup(72, Centre));
    groups.push_back(pointGroup(11, m_plane.toObject.place(place)));
    groups.push_back(integerGroup(73, Middle));
    add(groups);
}

// Arrows stand inside where there is room for them and the text, else outside, pointing at each other.
Vector DimensionPicture::dimensionLine(const Vector &first, const Vector &second, const DimensionLabel &label)
{
    const double whole = length(second - first), arrowLength = m_style.tickSize > 0 ? 0 : m_style.arrowSize;
    const double width = widthOf(label.text), gap = m_style.gap;
    const Vector along = normalized(second - first, {1, 0, 0});
    const bool leavesLine = m_style.isTextAbove || label.place.has_value();
    const bool arrowsFit = whole >= 2 * arrowLength + (leavesLine ? 2 * gap : width + 2 * gap);
    const double turn = m_style.isTextLevel ? 0 : readable(std::atan2(along.y, along.x));
    const Vector middle = (first + second) * 0.5;
    const Vector up{-std::sin(turn), std::cos(turn), 0};
    arrow(first, arrowsFit ? -along : along);
    arrow(second, arrowsFit ? along : -along);
    if (!arrowsFit) {
        line(first - along * (2 * arrowLength), first - along * arrowLength, m_style.lineColor);
        line(second + along * arrowLength, second + along * (2 * arrowLength), m_style.lineColor);
    }
    const Vector start = arrowsFit ? first + along * arrowLength : first;
    const Vector end = arrowsFit ? second - along * arrowLength : second;
    const double half = width / 2 + gap;
    if (leavesLine || 2 * half >= length(end - start)) {
        line(start, end, m_style.lineColor);
    } else {
        line(start, middle - along * half, m_style.lineColor);
        line(middle + along * half, end, m_style.lineColor);
    }
    const Vector usual = m_style.isTextAbove ? middle + up * (gap + m_style.textHeight / 2) : middle;
    const Vector place = label.place.value_or(usual);
    text(place, label.angle.value_or(turn), label.text);
    return place;
}

Vector DimensionPicture::leaderLine(const Vector &tip, const Vector &textSide, const DimensionLabel &label)
{
    const auto sideOf = [&tip](const Vector &place) { return place.x < tip.x ? -1.0 : 1.0; };
    const double behindHook = m_style.gap + widthOf(label.text) / 2;
    Vector hung = textSide;
    if (label.place)
        hung = *label.place - Vector{sideOf(*label.place) * (m_style.arrowSize + behindHook), 0, 0};
    const double side = sideOf(label.place.value_or(textSide));
    const Vector towards = normalized(tip - hung, {-1, 0, 0});
    const Vector hook = hung + Vector{side * m_style.arrowSize, 0, 0};
    arrow(tip, towards);
    line(tip - towards * m_style.arrowSize, hung, m_style.lineColor);
    line(hung, hook, m_style.lineColor);
    const Vector place = label.place.value_or(hook + Vector{side * behindHook, 0, 0});
    text(place, label.angle.value_or(0), label.text);
    return place;
}

// Kept on a layer of their own, which is not plotted.
void DimensionPicture::definitionPoint(const Vector &place)
{
    add({textGroup(groupcode::Type, u"POINT"), textGroup(groupcode::Layer, u"Defpoints"),
         pointGroup(10, m_plane.toWorld.place(place))});
}

void DimensionPicture::centreMark(const Vector &centre)
{
    const double half = m_style.centreSize;
    if (half == 0)
        return;
    line(centre - Vector{half, 0, 0}, centre + Vector{half, 0, 0}, m_style.lineColor);
    line(centre - Vector{0, half, 0}, centre + Vector{0, half, 0}, m_style.lineColor);
}

} // namespace drawing
