// LINE, RAY and XLINE, POINT, CIRCLE and ARC, ELLIPSE.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

void lineShapes(ShapeWalk &walk, RecordId id)
{
    Line line;
    double thickness = 0;
    Vector extrusion{0, 0, 1};
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 10:
            line.start = vectorOf(item.point);
            break;
        case 11:
            line.end = vectorOf(item.point);
            break;
        case code::Thickness:
            thickness = item.real;
            break;
        case code::Extrusion:
            extrusion = vectorOf(item.point);
            break;
        default:
            break;
        }
    const Curve curve = line; // in world coordinates, also with an extrusion direction
    walk.thickPath({&curve, 1}, false, normalized(extrusion) * thickness);
}

void rayShapes(ShapeWalk &walk, RecordId id)
{
    Ray ray;
    ray.isEndless = walk.database().names().text(walk.database().record(id).type) == "XLINE";
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == 10)
            ray.origin = vectorOf(item.point);
        else if (item.code == 11)
            ray.direction = normalized(vectorOf(item.point), {1, 0, 0});
    walk.ray(ray);
}

void pointShapes(ShapeWalk &walk, RecordId id)
{
    Vector place, extrusion{0, 0, 1};
    double thickness = 0;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == 10)
            place = vectorOf(item.point);
        else if (item.code == code::Thickness)
            thickness = item.real;
        else if (item.code == code::Extrusion)
            extrusion = vectorOf(item.point);
    walk.point(place);
    if (thickness != 0)
        walk.line(place, place + normalized(extrusion) * thickness);
}

void circleShapes(ShapeWalk &walk, RecordId id)
{
    Vector centre, extrusion{0, 0, 1};
    double radius = 0, start = 0, end = 360, thickness = 0;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 10:
            centre = vectorOf(item.point);
            break;
        case 40:
            radius = item.real;
            break;
        case 50:
            start = item.real;
            break;
        case 51:
            end = item.real;
            break;
        case code::Thickness:
            thickness = item.real;
            break;
        case code::Extrusion:
            extrusion = vectorOf(item.point);
            break;
        default:
            break;
        }
    const bool isArc = walk.database().names().text(walk.database().record(id).type) == "ARC";
    const double from = isArc ? reducedAngle(radians(start)) : 0;
    const double sweep = isArc ? counterclockwise(from, radians(end)) : FullTurn;
    const Matrix plane = Matrix::ofExtrusion(extrusion);
    const Curve arc = EllipticArc{plane.place(centre), plane.x * radius, plane.y * radius, from, from + sweep};
    walk.thickPath({&arc, 1}, !isArc, plane.z * thickness);
}

void ellipseShapes(ShapeWalk &walk, RecordId id)
{
    Vector centre, major{1, 0, 0}, extrusion{0, 0, 1};
    double ratio = 1, start = 0, end = FullTurn;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 10:
            centre = vectorOf(item.point);
            break;
        case 11:
            major = vectorOf(item.point);
            break;
        case 40:
            ratio = item.real;
            break;
        case 41:
            start = item.real;
            break;
        case 42:
            end = item.real;
            break;
        case code::Extrusion:
            extrusion = vectorOf(item.point);
            break;
        default:
            break;
        }
    // All in world coordinates. The minor axis has its length also where the axes are not quite upright.
    const Vector minor = normalized(cross(extrusion, major), {}) * (length(major) * ratio);
    const double from = reducedAngle(start), sweep = counterclockwise(from, end);
    const Curve arc = EllipticArc{centre, major, minor, from, from + sweep};
    walk.path({&arc, 1}, sweep == FullTurn);
}

} // namespace geometry
