#include "host/drawing/RawValues.h"
#include "host/drawing/geometry/Bezier.h"
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Group;
using drawing::GroupList;
using drawing::Item;
using drawing::NoRecord;
using drawing::RecordId;

namespace {

// What the dimension style says of arrows, and the leader's own extended data against it.
struct ArrowStyle
{
    double size = 0.18, scale = 1;
    RecordId blockRecord = NoRecord; // none: a filled triangle

    void take(const drawing::Database &database, std::int64_t code, const drawing::GroupValue &value)
    {
        if (const double *real = std::get_if<double>(&value); real && code == 40)
            scale = *real == 0 ? 1 : *real;
        else if (real && code == 41)
            size = *real;
        else if (const drawing::Handle *handle = std::get_if<drawing::Handle>(&value); handle && code == 341)
            blockRecord = database.find(*handle);
    }
};

// Extended data of this form: "DSTYLE", braces, and in them pairs of the style's code and its value.
void takeOverrides(const drawing::Database &database, const GroupList &groups, ArrowStyle &style)
{
    constexpr int ExtendedReal = 1040, ExtendedHandle = 1005, ExtendedInteger = 1070;
    const auto isStart = [](const Group &group) {
        return group == Group{drawing::groupcode::ExtendedString, u"DSTYLE"};
    };
    auto at = std::find_if(groups.begin(), groups.end(), isStart);
    for (; at != groups.end() && groups.end() - at > 1; ++at) {
        const std::int64_t *code = std::get_if<std::int64_t>(&at->value);
        if (at->code != ExtendedInteger || !code)
            continue;
        const Group &value = *++at;
        const std::u16string *text = std::get_if<std::u16string>(&value.value);
        if (value.code == ExtendedReal)
            style.take(database, *code, value.value);
        else if (value.code == ExtendedHandle && text)
            style.take(database, *code, drawing::Handle{drawing::handleOf(*text)});
    }
}

ArrowStyle arrowStyle(const drawing::Drawing &drawing, RecordId leader, std::u16string_view name)
{
    ArrowStyle style;
    const drawing::Database &database = drawing.database();
    if (const RecordId record = drawing.tables().find(drawing::known::DimensionStyle, name); record != NoRecord)
        for (const Group &group : database.groups(record))
            style.take(database, group.code, group.value);
    takeOverrides(database, database.groups(leader), style);
    return style;
}

void arrowShapes(ShapeWalk &walk, const ArrowStyle &style, const Vector &tip, const Vector &inwards,
                 const Vector &normal)
{
    const double size = style.size * style.scale;
    const Vector x = -inwards * size, y = cross(normal, x), z = normal * size; // arrow blocks point to the right
    const RecordId block =
        style.blockRecord == NoRecord
            ? NoRecord
            : walk.drawing().tables().find(drawing::known::Block, walk.database().name(style.blockRecord));
    if (block != NoRecord)
        return walk.block(block, {x, y, z, tip});
    constexpr double HalfWidth = 1.0 / 6;
    const Vector a = tip - x + y * HalfWidth, b = tip - x - y * HalfWidth;
    walk.area({{{Line{tip, a}, Line{a, b}, Line{b, tip}}}, true, true, {}, {}});
}

} // namespace

void leaderShapes(ShapeWalk &walk, RecordId id)
{
    std::vector<Vector> vertices;
    std::u16string styleName = u"STANDARD";
    Vector extrusion{0, 0, 1};
    bool hasArrow = true, isSpline = false;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == 10)
            vertices.push_back(vectorOf(item.point));
        else if (item.code == 3)
            styleName = reader.text(item);
        else if (item.code == 71)
            hasArrow = item.integer != 0;
        else if (item.code == 72)
            isSpline = item.integer != 0;
        else if (item.code == code::Extrusion)
            extrusion = vectorOf(item.point);
    if (vertices.size() < 2)
        return;

    std::vector<Curve> path;
    if (isSpline)
        path.push_back(splineThrough(vertices, vertices[1] - vertices[0], vertices.back() - vertices.end()[-2]));
    for (std::size_t i = 0; i + 1 < vertices.size() && !isSpline; ++i)
        path.push_back(Line{vertices[i], vertices[i + 1]});
    walk.path(path);
    if (hasArrow)
        arrowShapes(walk, arrowStyle(walk.drawing(), id, styleName), vertices[0],
                    normalized(vertices[1] - vertices[0], {1, 0, 0}), normalized(extrusion));
}

} // namespace geometry
