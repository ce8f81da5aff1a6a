#include "host/drawing/edit/StretchedText.h"

#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PlaneMap.h"
#include "host/drawing/edit/RoleTransform.h"
#include "host/drawing/geometry/TextLayouts.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace drawing {

using geometry::Matrix;
using geometry::Vector;

namespace {

enum Code : int {
    LongTextCode = 3,
    StyleCode = 7,
    SecondCode = 11,
    ThicknessCode = 39,
    HeightCode = 40,
    WidthCode = 41,
    RotationCode = 50,
    ObliqueCode = 51,
    HorizontalCode = 72,
    ExtrusionCode = 210,
};
constexpr double Turn = 360;

double degrees(double radians)
{
    constexpr double Tiny = 1e-12;
    const double angle = radians * (180 / std::numbers::pi);
    return angle < -Tiny ? angle + Turn : std::max(angle, 0.0);
}

// How letters stand whose unit square goes to these two vectors, which run counter-clockwise about the normal.
struct Stand
{
    Vector along;
    double width, height; // of the square
    double slant;         // tangent

    Stand(const Vector &right, const Vector &up, const Vector &normal)
        : along(geometry::normalized(right)), width(length(right)), height(dot(up, cross(normal, along))),
          slant(dot(up, along) / height)
    {
        constexpr double Tiny = 1e-12;
        if (std::abs(slant) < Tiny)
            slant = 0;
    }
};

void setOptional(GroupList &text, int code, double value, double usual)
{
    if (value != usual || hasGroup(text, code))
        setGroupInFirstPart(text, realGroup(code, value));
}

void setExtrusion(GroupList &text, const Vector &extrusion)
{
    if (hasGroup(text, ExtrusionCode) || extrusion != Vector{0, 0, 1})
        setGroupInFirstPart(text, pointGroup(ExtrusionCode, extrusion));
}

// Along its base line, which goes through both places of a text that is between them.
Vector alongOf(const GroupList &line)
{
    constexpr std::int64_t Aligned = 3, Fit = 5;
    const double rotation = geometry::radians(realOf(line, RotationCode));
    const Vector usual{std::cos(rotation), std::sin(rotation), 0};
    const std::int64_t horizontal = integerOf(line, HorizontalCode);
    if (!hasGroup(line, SecondCode) || (horizontal != Aligned && horizontal != Fit))
        return usual;
    const Vector way = placeOf(line, SecondCode) - placeOf(line, groupcode::FirstX);
    return geometry::normalized({way.x, way.y, 0}, usual);
}

GroupList stretchedLine(GroupList line, const Matrix &matrix)
{
    const PlaneMap map(matrix, extrusionOf(line));
    const Vector along = alongOf(line);
    const double height = realOf(line, HeightCode, 1), slant = std::tan(geometry::radians(realOf(line, ObliqueCode)));
    const Stand stand(map.direction(along) * realOf(line, WidthCode, 1),
                      map.direction(Vector{-along.y, along.x, 0} + along * slant), {0, 0, 1});
    for (const int code : {groupcode::FirstX, int{SecondCode}})
        if (hasGroup(line, code))
            setGroup(line, pointGroup(code, map.place(placeOf(line, code))));
    setGroupInFirstPart(line, realGroup(HeightCode, height * stand.height));
    setOptional(line, RotationCode, degrees(std::atan2(stand.along.y, stand.along.x)), 0);
    setOptional(line, WidthCode, stand.width / stand.height, 1);
    setOptional(line, ObliqueCode, degrees(std::atan(stand.slant)), 0);
    if (hasGroup(line, ThicknessCode))
        setGroup(line, realGroup(ThicknessCode, realOf(line, ThicknessCode) * map.thickness()));
    setExtrusion(line, map.extrusion());
    return line;
}

// --- paragraphs, whose letters have their width and slant from codes in the text ---

std::u16string number(double value)
{
    constexpr int Digits = 12;
    return QString::number(value, 'g', Digits).toStdU16String();
}

// What codes say of letters, and what they say of the stretched ones.
class Letters
{
public:
    Letters(const Stand &stand) : m_stand(stand) {}

    std::u16string width(double factor) const
    {
        return u"\\W" + number(factor * m_stand.width / m_stand.height) + u";";
    }
    std::u16string slant(double tangent) const
    {
        const double slanted = m_stand.slant + tangent * m_stand.width / m_stand.height;
        return u"\\Q" + number(std::atan(slanted) * (180 / std::numbers::pi)) + u";";
    }

    // With its own codes of both kinds; what is said in relation to the letters before stays.
    std::u16string changed(const std::u16string &text) const
    {
        std::u16string result;
        for (std::size_t at = 0; at < text.size();) {
            const bool isCode = text[at] == u'\\' && at + 1 < text.size();
            const std::size_t end =
                isCode && (text[at + 1] == u'W' || text[at + 1] == u'Q') ? text.find(u';', at) : std::u16string::npos;
            bool isNumber = false;
            const double value = end != std::u16string::npos
                                     ? QString::fromStdU16String(text.substr(at + 2, end - at - 2)).toDouble(&isNumber)
                                     : 0;
            if (isNumber) {
                result += text[at + 1] == u'W' ? width(value) : slant(std::tan(geometry::radians(value)));
                at = end + 1;
                continue;
            }
            const std::size_t length = isCode ? 2 : 1; // a backslash in the text is two of them
            result += text.substr(at, length);
            at += length;
        }
        return result;
    }

private:
    Stand m_stand;
};

// The text in its pieces: all but the last are as long as files have them.
void setString(GroupList &paragraphs, std::u16string string)
{
    constexpr std::size_t PieceLength = 250;
    removeGroups(paragraphs, LongTextCode);
    GroupList pieces;
    for (; string.size() > PieceLength; string.erase(0, PieceLength))
        pieces.push_back(textGroup(LongTextCode, string.substr(0, PieceLength)));
    setGroup(paragraphs, textGroup(groupcode::PrimaryText, string));
    paragraphs.insert(std::ranges::find(paragraphs, groupcode::PrimaryText, &Group::code), pieces.begin(),
                      pieces.end());
}

std::u16string stringOf(const GroupList &paragraphs)
{
    std::u16string string;
    for (const Group &group : paragraphs)
        if (const auto *piece = std::get_if<std::u16string>(&group.value);
            piece && (group.code == LongTextCode || group.code == groupcode::PrimaryText))
            string += *piece;
    return string;
}

void stretchLetters(const Drawing &drawing, GroupList &paragraphs, const Stand &stand)
{
    constexpr double Same = 1e-12;
    if (std::abs(stand.width / stand.height - 1) < Same && stand.slant == 0)
        return;
    const RecordId record = drawing.tables().find(known::Style, textOf(paragraphs, StyleCode, u"STANDARD"));
    const geometry::TextStyle style = geometry::textStyleOf(drawing.database(), record);
    const Letters letters(stand);
    const std::u16string slant = stand.slant != 0 || style.slant != 0 ? letters.slant(style.slant) : u"";
    setString(paragraphs, letters.width(style.widthFactor) + slant + letters.changed(stringOf(paragraphs)));
}

GroupList stretchedParagraphs(const Drawing &drawing, GroupList paragraphs, const Matrix &matrix)
{
    enum ParagraphCode : int { WidthOfInkCode = 42, HeightOfInkCode = 43, AnnotationHeightCode = 46 };
    const Vector normal = extrusionOf(paragraphs);
    const double rotation = geometry::radians(realOf(paragraphs, RotationCode));
    const Vector turned = Matrix::ofExtrusion(normal).direction({std::cos(rotation), std::sin(rotation), 0});
    const Vector right = geometry::normalized(placeOf(paragraphs, SecondCode, turned), turned);
    const Vector newRight = matrix.direction(right), newUp = matrix.direction(cross(normal, right));
    const Vector newNormal = geometry::normalized(cross(newRight, newUp));
    const Stand stand(newRight, newUp, newNormal);
    setGroup(paragraphs, pointGroup(groupcode::FirstX, matrix.place(placeOf(paragraphs, groupcode::FirstX))));
    for (const int code : {int{HeightCode}, int{HeightOfInkCode}, int{AnnotationHeightCode}})
        if (hasGroup(paragraphs, code))
            setGroup(paragraphs, realGroup(code, realOf(paragraphs, code) * stand.height));
    for (const int code : {int{WidthCode}, int{WidthOfInkCode}})
        if (hasGroup(paragraphs, code))
            setGroup(paragraphs, realGroup(code, realOf(paragraphs, code) * stand.width));
    removeGroups(paragraphs, RotationCode);
    setGroup(paragraphs, pointGroup(SecondCode, stand.along));
    setExtrusion(paragraphs, newNormal);
    stretchLetters(drawing, paragraphs, stand);
    return paragraphs;
}

bool isParagraphs(const GroupList &text)
{
    return textOf(text, groupcode::Type) == u"MTEXT";
}

} // namespace

bool isTextType(std::u16string_view type)
{
    return type == u"TEXT" || type == u"ATTRIB" || type == u"ATTDEF" || type == u"SHAPE" || type == u"MTEXT";
}

// What is embedded in an attribute of several lines is as a MTEXT behind its marker. Columns of paragraphs, which are
// embedded too, go.
std::optional<GroupList> stretchedText(const Drawing &drawing, GroupList text, const Matrix &matrix)
{
    if (PlaneMap(matrix, extrusionOf(text)).isFlat())
        return std::nullopt;
    const auto begin = std::ranges::find(text, groupcode::EmbeddedObject, &Group::code);
    const auto extended =
        std::find_if(begin, text.end(), [](const Group &group) { return group.code >= groupcode::ExtendedString; });
    GroupList embedded(begin, extended);
    text.erase(begin, extended);
    const RoleTransform roles({matrix, false}, {0, 0, 1});
    for (Group &group : text)
        if (group.code >= groupcode::ExtendedString)
            roles.applyExtended(group);
    if (isParagraphs(text))
        return stretchedParagraphs(drawing, std::move(text), matrix);
    text = stretchedLine(std::move(text), matrix);
    if (embedded.empty())
        return text;
    const Group marker = embedded.front();
    embedded.erase(embedded.begin());
    embedded = stretchedParagraphs(drawing, std::move(embedded), matrix);
    embedded.insert(embedded.begin(), marker);
    text.insert(std::ranges::find_if(text, [](const Group &group) { return group.code >= groupcode::ExtendedString; }),
                embedded.begin(), embedded.end());
    return text;
}

} // namespace drawing
