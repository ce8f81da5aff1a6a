// TEXT, ATTRIB and ATTDEF; MTEXT.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::NoRecord;
using drawing::RecordId;

namespace {

enum class TextType { Text, Attribute, Definition };

struct TextGroups
{
    std::u16string string, tag, style = u"STANDARD";
    Vector first, second, extrusion{0, 0, 1};
    bool hasSecond = false;
    double height = 1, widthFactor = 1, rotation = 0, oblique = 0, thickness = 0; // angles in degrees
    std::int64_t generation = 0, horizontal = 0, vertical = 0;
};

TextGroups readText(const drawing::Database &database, RecordId id, TextType type)
{
    TextGroups groups;
    // Attributes have the length of their field where texts have the vertical alignment.
    const int verticalCode = type == TextType::Text ? 73 : 74;
    EntityReader reader(database, id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 1:
            groups.string = reader.text(item);
            break;
        case 2:
            groups.tag = reader.text(item);
            break;
        case 7:
            groups.style = reader.text(item);
            break;
        case 10:
            groups.first = vectorOf(item.point);
            break;
        case 11:
            groups.second = vectorOf(item.point);
            groups.hasSecond = true;
            break;
        case code::Thickness:
            groups.thickness = item.real;
            break;
        case 40:
            groups.height = item.real;
            break;
        case 41:
            groups.widthFactor = item.real;
            break;
        case 50:
            groups.rotation = item.real;
            break;
        case 51:
            groups.oblique = item.real;
            break;
        case 71:
            groups.generation = item.integer;
            break;
        case 72:
            groups.horizontal = std::clamp<std::int64_t>(item.integer, 0, 5);
            break;
        case code::Extrusion:
            groups.extrusion = vectorOf(item.point);
            break;
        default:
            if (item.code == verticalCode)
                groups.vertical = std::clamp<std::int64_t>(item.integer, 0, 3);
            break;
        }
    return groups;
}

bool isBetweenPoints(HorizontalAlignment alignment)
{
    return alignment == HorizontalAlignment::Aligned || alignment == HorizontalAlignment::Fit;
}

// In the plane's coordinates.
void setPlace(Text &text, const TextGroups &groups)
{
    enum Generation { Backward = 2, UpsideDown = 4 };
    const bool isLeft = text.horizontal == HorizontalAlignment::Left && text.vertical == VerticalAlignment::Baseline;
    const bool between = isBetweenPoints(text.horizontal) && groups.hasSecond;
    const Vector way = groups.second - groups.first;
    const Vector alongRotation{std::cos(radians(groups.rotation)), std::sin(radians(groups.rotation)), 0};
    const Vector along = between ? normalized({way.x, way.y, 0}, alongRotation) : alongRotation;
    const Vector upright = Vector{-along.y, along.x, 0} + along * std::tan(radians(groups.oblique));

    text.insertion = isLeft || between || !groups.hasSecond ? groups.first : groups.second;
    text.right = along * (groups.height * groups.widthFactor * ((groups.generation & Backward) != 0 ? -1 : 1));
    text.up = upright * (groups.height * ((groups.generation & UpsideDown) != 0 ? -1 : 1));
    if (between && length(text.right) > 0)
        text.span = length(way) / length(text.right);
}

} // namespace

void textShapes(ShapeWalk &walk, RecordId id)
{
    const std::string_view name = walk.database().names().text(walk.database().record(id).type);
    const TextType type = name == "TEXT"     ? TextType::Text
                          : name == "ATTDEF" ? TextType::Definition
                                             : TextType::Attribute;
    const TextGroups groups = readText(walk.database(), id, type);
    Text text;
    text.string = type == TextType::Definition ? groups.tag : groups.string; // what is seen of it
    text.style = walk.drawing().tables().find(drawing::known::Style, groups.style);
    text.horizontal = static_cast<HorizontalAlignment>(groups.horizontal);
    text.vertical = static_cast<VerticalAlignment>(groups.vertical);
    setPlace(text, groups);

    const Matrix plane = Matrix::ofExtrusion(groups.extrusion);
    text.insertion = plane.place(text.insertion);
    text.right = plane.direction(text.right);
    text.up = plane.direction(text.up);
    walk.text(text);
    if (groups.thickness != 0) {
        text.insertion += plane.z * groups.thickness;
        walk.text(text);
    }
}

void paragraphShapes(ShapeWalk &walk, RecordId id)
{
    Paragraphs paragraphs;
    std::u16string style = u"STANDARD";
    Vector extrusion{0, 0, 1};
    std::optional<Vector> right; // the last one that is given
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 3:
        case 1:
            paragraphs.string += reader.text(item);
            break;
        case 7:
            style = reader.text(item);
            break;
        case 10:
            paragraphs.insertion = vectorOf(item.point);
            break;
        case 11:
            right = vectorOf(item.point);
            break;
        case 40:
            paragraphs.height = item.real;
            break;
        case 41:
            paragraphs.width = item.real;
            break;
        case 44:
            paragraphs.lineSpacing = item.real;
            break;
        case 50:
            right = Matrix::ofExtrusion(extrusion).direction(
                {std::cos(radians(item.real)), std::sin(radians(item.real)), 0});
            break;
        case 71:
            paragraphs.attachment = static_cast<int>(std::clamp<std::int64_t>(item.integer, 1, 9));
            break;
        case 73:
            paragraphs.isExactSpacing = item.integer == 2;
            break;
        case code::Extrusion:
            extrusion = vectorOf(item.point);
            break;
        default:
            break;
        }
    const Matrix plane = Matrix::ofExtrusion(extrusion);
    paragraphs.style = walk.drawing().tables().find(drawing::known::Style, style);
    paragraphs.right = right ? normalized(*right, plane.x) : plane.x;
    paragraphs.up = cross(plane.z, paragraphs.right);
    walk.paragraphs(std::move(paragraphs));
}

} // namespace geometry
