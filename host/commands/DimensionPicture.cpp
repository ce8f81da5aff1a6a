#include "host/commands/DimensionPicture.h"

#include "host/drawing/Blocks.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/entities/EntityMaking.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <cmath>

namespace commands {

using drawing::GroupList;
using drawing::integerGroup;
using drawing::pointGroup;
using drawing::realGroup;
using drawing::textGroup;

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

Point pointOf(const Vector &place)
{
    return {place.x, place.y, place.z};
}

} // namespace

DimensionPicture::DimensionPicture(Context &context)
    : m_context(context), m_plane(context.session()), m_name(drawing::freeBlockName(context.tables(), u"*D")),
      m_block(drawing::addBlock(context.database(), context.tables(), {m_name, {}, 1, u"0"}))
{
    if (m_block == drawing::NoRecord)
        throw CommandError{u"The block of the dimension cannot be made."};
}

double DimensionPicture::size(std::u16string_view variable) const
{
    const double scale = m_context.session().real(u"DIMSCALE");
    return m_context.session().real(variable) * (scale > 0 ? scale : 1);
}

// Colours that the variables leave to the block are the dimension's.
GroupList DimensionPicture::part(std::u16string type, std::u16string_view colour) const
{
    GroupList groups{textGroup(drawing::groupcode::Type, std::move(type)), textGroup(drawing::groupcode::Layer, u"0")};
    if (!colour.empty())
        groups.push_back(integerGroup(62, m_context.session().integer(colour)));
    return groups;
}

void DimensionPicture::add(const GroupList &groups)
{
    GroupList whole = groups;
    if (m_plane.normal() != Vector{0, 0, 1})
        whole.push_back(pointGroup(ExtrusionCode, m_plane.normal()));
    if (drawing::addEntity(m_context.drawing(), whole, {m_block, false, u"0"}) == drawing::NoRecord)
        throw CommandError{u"The picture of the dimension cannot be made."};
}

void DimensionPicture::line(const Vector &start, const Vector &end, std::u16string_view colour)
{
    GroupList groups = part(u"LINE", colour);
    groups.push_back(pointGroup(10, m_plane.world(pointOf(start))));
    groups.push_back(pointGroup(11, m_plane.world(pointOf(end))));
    add(groups);
}

void DimensionPicture::extensionLine(const Vector &measured, const Vector &foot, std::u16string_view suppressor)
{
    const double away = length(foot - measured), offset = size(u"DIMEXO");
    if (m_context.session().integer(suppressor) != 0 || away <= offset)
        return;
    const Vector along = normalized(foot - measured);
    line(measured + along * offset, foot + along * size(u"DIMEXE"), u"DIMCLRE");
}

// A filled triangle three times as long as wide, or a stroke where DIMTSZ wants one.
void DimensionPicture::arrow(const Vector &tip, const Vector &towards)
{
    constexpr double Slenderness = 6;
    const Vector side{-towards.y, towards.x, 0};
    if (const double tick = size(u"DIMTSZ"); tick > 0) {
        const Vector stroke = (towards + side) * tick;
        line(tip - stroke, tip + stroke, u"DIMCLRD");
        return;
    }
    const double length = size(u"DIMASZ");
    const Vector back = tip - towards * length, half = side * (length / Slenderness);
    GroupList groups = part(u"SOLID", u"DIMCLRD");
    groups.push_back(pointGroup(10, m_plane.object(pointOf(back + half))));
    groups.push_back(pointGroup(11, m_plane.object(pointOf(back - half))));
    groups.push_back(pointGroup(12, m_plane.object(pointOf(tip))));
    groups.push_back(pointGroup(13, m_plane.object(pointOf(tip))));
    add(groups);
}

double DimensionPicture::widthOf(const std::u16string &string) const
{
    geometry::Text measured;
    measured.string = string;
    measured.style = m_context.tables().find(drawing::known::Style, m_context.session().text(u"DIMTXSTY"));
    return layOut(measured, geometry::textStyleOf(m_context.database(), measured.style)).width * size(u"DIMTXT");
}

void DimensionPicture::text(const Vector &place, double angle, const std::u16string &string)
{
    constexpr std::int64_t Centre = 1, Middle = 2;
    GroupList groups = part(u"TEXT", u"DIMCLRT");
    groups.push_back(pointGroup(10, m_plane.object(pointOf(place))));
    groups.push_back(realGroup(40, size(u"DIMTXT")));
    groups.push_back(textGroup(1, string));
    groups.push_back(realGroup(50, degrees(m_plane.objectAngle(angle))));
    groups.push_back(textGroup(7, m_context.session().text(u"DIMTXSTY")));
    groups.push_back(integerGroup(72, Centre));
    groups.push_back(pointGroup(11, m_plane.object(pointOf(place))));
    groups.push_back(integerGroup(73, Middle));
    add(groups);
}

// Arrows stand inside where there is room for them and the text, else outside, pointing at each other.
Vector DimensionPicture::dimensionLine(const Vector &first, const Vector &second, const std::u16string &string,
                                       std::optional<double> textAngle)
{
    const Session &session = m_context.session();
    const double whole = length(second - first), arrowLength = size(u"DIMTSZ") > 0 ? 0 : size(u"DIMASZ");
    const double gap = std::abs(size(u"DIMGAP")), height = size(u"DIMTXT"), width = widthOf(string);
    const Vector along = normalized(second - first, {1, 0, 0});
    const bool isAbove = session.integer(u"DIMTAD") != 0;
    const bool arrowsFit = whole >= 2 * arrowLength + (isAbove ? 2 * gap : width + 2 * gap);
    const double turn = session.integer(u"DIMTIH") != 0 ? 0 : readable(std::atan2(along.y, along.x));
    const Vector middle = (first + second) * 0.5;
    const Vector up{-std::sin(turn), std::cos(turn), 0};
    arrow(first, arrowsFit ? -along : along);
    arrow(second, arrowsFit ? along : -along);
    if (!arrowsFit) {
        line(first - along * (2 * arrowLength), first - along * arrowLength, u"DIMCLRD");
        line(second + along * arrowLength, second + along * (2 * arrowLength), u"DIMCLRD");
    }
    const Vector start = arrowsFit ? first + along * arrowLength : first;
    const Vector end = arrowsFit ? second - along * arrowLength : second;
    const double half = width / 2 + gap;
    if (isAbove || 2 * half >= length(end - start)) {
        line(start, end, u"DIMCLRD");
    } else {
        line(start, middle - along * half, u"DIMCLRD");
        line(middle + along * half, end, u"DIMCLRD");
    }
    const Vector place = isAbove ? middle + up * (gap + height / 2) : middle;
    text(place, textAngle.value_or(turn), string);
    return place;
}

Vector DimensionPicture::leaderLine(const Vector &tip, const Vector &textSide, const std::u16string &string,
                                    std::optional<double> textAngle)
{
    const Vector towards = normalized(tip - textSide, {-1, 0, 0});
    const double gap = std::abs(size(u"DIMGAP")), side = textSide.x < tip.x ? -1 : 1;
    const Vector hook = textSide + Vector{side * size(u"DIMASZ"), 0, 0};
    arrow(tip, towards);
    line(tip - towards * size(u"DIMASZ"), textSide, u"DIMCLRD");
    line(textSide, hook, u"DIMCLRD");
    const Vector place = hook + Vector{side * (gap + widthOf(string) / 2), 0, 0};
    text(place, textAngle.value_or(0), string);
    return place;
}

// Kept on a layer of their own, which is not plotted.
void DimensionPicture::definitionPoint(const Vector &place)
{
    GroupList groups{textGroup(drawing::groupcode::Type, u"POINT"), textGroup(drawing::groupcode::Layer, u"Defpoints")};
    groups.push_back(pointGroup(10, m_plane.world(pointOf(place))));
    add(groups);
}

void DimensionPicture::centreMark(const Vector &centre)
{
    const double half = std::abs(size(u"DIMCEN"));
    if (half == 0)
        return;
    line(centre - Vector{half, 0, 0}, centre + Vector{half, 0, 0}, u"DIMCLRD");
    line(centre - Vector{0, half, 0}, centre + Vector{0, half, 0}, u"DIMCLRD");
}

} // namespace commands
