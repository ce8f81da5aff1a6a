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
    if (start == end)
        return;
    GroupList groups = part(u"LINE", color);
    groups.push_back(pointGroup(10, m_plane.toWorld.place(start)));
    groups.push_back(pointGroup(11, m_plane.toWorld.place(end)));
    add(groups);
}

// One of no length would be a whole circle.
void DimensionPicture::arc(const MeasuredAngle &angle, double start, double end)
{
    if (end <= start)
        return;
    const auto inDegrees = [this](double turn) {
        const Vector right = m_plane.toObject.direction({std::cos(turn), std::sin(turn), 0});
        return turnInDegrees(std::atan2(right.y, right.x));
    };
    GroupList groups = part(u"ARC", m_style.lineColor);
    groups.push_back(pointGroup(10, m_plane.toObject.place(angle.vertex)));
    groups.push_back(realGroup(40, angle.radius));
    groups.push_back(realGroup(50, inDegrees(start)));
    groups.push_back(realGroup(51, inDegrees(end)));
    add(groups);
}

void DimensionPicture::extensionLine(const Vector &measured, const Vector &foot)
{
    if (length(foot - measured) <= m_style.extensionOffset)
        return;
    const Vector along = normalized(foot - measured);
    line(measured + along * m_style.extensionOffset, foot + along * m_style.overhang, m_style.extensionColor);
}

void DimensionPicture::extensionLine(const MeasuredAngle &angle, const AngleSide &side)
{
    if (side.begin < angle.radius && angle.radius < side.end)
        return;
    const Vector along{std::cos(side.direction), std::sin(side.direction), 0};
    const double nearest = angle.radius >= side.end ? side.end : side.begin;
    extensionLine(angle.vertex + along * nearest, angle.vertex + along * angle.radius);
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

// How far the line is left open on each side of a text's middle when the text is turned by so much against the line.
double DimensionPicture::halfGap(const std::u16string &string, double turn) const
{
    const double along = std::abs(std::cos(turn)), across = std::abs(std::sin(turn));
    const double halfWidth = widthOf(string) / 2 + m_style.gap, halfHeight = m_style.textHeight / 2 + m_style.gap;
    return along * halfHeight >= across * halfWidth ? halfWidth / along : halfHeight / across;
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
    const Vector along = normalized(second - first, {1, 0, 0});
    const double direction = std::atan2(along.y, along.x);
    const double turn = m_style.isTextLevel ? 0 : readable(direction);
    const double half = halfGap(label.text, turn - direction);
    const bool leavesLine = m_style.isTextAbove || label.place.has_value();
    const bool arrowsFit = whole >= 2 * (arrowLength + (leavesLine ? m_style.gap : half));
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
    if (leavesLine || 2 * half >= length(end - start)) {
        line(start, end, m_style.lineColor);
    } else {
        line(start, middle - along * half, m_style.lineColor);
        line(middle + along * half, end, m_style.lineColor);
    }
    const Vector usual = m_style.isTextAbove ? middle + up * (m_style.gap + m_style.textHeight / 2) : middle;
    const Vector place = label.place.value_or(usual);
    text(place, label.angle.value_or(turn), label.text);
    return place;
}

// Where the middle of a text stands above an arc. Within the arc its ends, which the arc bends towards, keep off it
// too.
Vector DimensionPicture::aboveArc(const MeasuredAngle &angle, double place, double turn,
                                  const std::u16string &string) const
{
    const Vector outwards{std::cos(place), std::sin(place), 0}, up{-std::sin(turn), std::cos(turn), 0};
    const double halfWidth = widthOf(string) / 2, halfHeight = m_style.textHeight / 2;
    const double inner = angle.radius - m_style.gap;
    if (dot(up, outwards) < 0 && halfWidth < inner)
        return angle.vertex + outwards * (std::sqrt(inner * inner - halfWidth * halfWidth) - halfHeight);
    return angle.at(place) + up * (m_style.gap + halfHeight);
}

Vector DimensionPicture::dimensionArc(const MeasuredAngle &angle, const DimensionLabel &label)
{
    const double start = angle.start, end = angle.start + angle.sweep, middle = (start + end) / 2;
    const double step = m_style.tickSize > 0 ? 0 : m_style.arrowSize / angle.radius; // of an arrow, in radians
    const auto along = [](double place) { return Vector{-std::sin(place), std::cos(place), 0}; };
    const double direction = middle + geometry::FullTurn / 4;
    const double turn = m_style.isTextLevel ? 0 : readable(direction);
    const double half = halfGap(label.text, turn - direction) / angle.radius;
    const bool leavesLine = m_style.isTextAbove || label.place.has_value();
    const bool arrowsFit = angle.sweep >= 2 * (step + (leavesLine ? m_style.gap / angle.radius : half));
    const double inwards = arrowsFit ? step : 0;
    if (arrowsFit) {
        arrow(angle.at(start), -along(start + step / 2));
        arrow(angle.at(end), along(end - step / 2));
    } else {
        arrow(angle.at(start), along(start - step / 2));
        arrow(angle.at(end), -along(end + step / 2));
        arc(angle, start - 2 * step, start - step);
        arc(angle, end + step, end + 2 * step);
    }
    if (leavesLine || 2 * half >= angle.sweep - 2 * inwards) {
        arc(angle, start + inwards, end - inwards);
    } else {
        arc(angle, start + inwards, middle - half);
        arc(angle, middle + half, end - inwards);
    }
    const Vector usual = m_style.isTextAbove ? aboveArc(angle, middle, turn, label.text) : angle.at(middle);
    const Vector place = label.place.value_or(usual);
    text(place, label.angle.value_or(turn), label.text);
    return place;
}

Vector DimensionPicture::ordinateLine(const Vector &measured, const Vector &end, const Vector &direction,
                                      const DimensionLabel &label)
{
    const double ahead = dot(end - measured, direction), side = ahead < 0 ? -1 : 1;
    const Vector along = direction * side;
    const Vector start = measured + along * std::min(m_style.extensionOffset, std::abs(ahead));
    const Vector straight = measured + direction * ahead;
    if (length(end - straight) == 0) {
        line(start, end, m_style.lineColor);
    } else {
        const double step = std::min(2 * m_style.arrowSize, length(straight - start) / 3);
        line(start, straight - along * (2 * step), m_style.lineColor);
        line(straight - along * (2 * step), end - along * step, m_style.lineColor);
        line(end - along * step, end, m_style.lineColor);
    }
    const Vector place = label.place.value_or(end + along * (m_style.gap + widthOf(label.text) / 2));
    text(place, label.angle.value_or(readable(std::atan2(direction.y, direction.x))), label.text);
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
