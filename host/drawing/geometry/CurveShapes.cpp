// LINE, RAY and XLINE, POINT, CIRCLE and ARC, ELLIPSE.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::RecordId;

void lineShapes(ShapeWalk &walk, RecordId id)
{
    Line line;
    double thickness = 0;
    Vector extrusion{0, 0, 1};
    EntityReader(walk.database(), id)
        .readInto(Into{10, line.start}, Into{11, line.end}, Into{code::Thickness, thickness},
                  Into{code::Extrusion, extrusion});
    const Curve curve = line; // in world coordinates, also with an extrusion direction
    walk.thickPath({&curve, 1}, false, thickness != 0 ? normalized(extrusion) * thickness : Vector());
}

void rayShapes(ShapeWalk &walk, RecordId id)
{
    Ray ray;
    ray.isEndless = walk.database().record(id).type == drawing::known::EndlessLine;
    EntityReader(walk.database(), id).readInto(Into{10, ray.origin}, Into{11, ray.direction});
    ray.direction = normalized(ray.direction, {1, 0, 0});
    walk.ray(ray);
}

void pointShapes(ShapeWalk &walk, RecordId id)
{
    Vector place, extrusion{0, 0, 1};
    double thickness = 0;
    EntityReader(walk.database(), id)
        .readInto(Into{10, place}, Into{code::Thickness, thickness}, Into{code::Extrusion, extrusion});
    walk.point(place);
    if (thickness != 0)
        walk.line(place, place + normalized(extrusion) * thickness);
}

void circleShapes(ShapeWalk &walk, RecordId id)
{
    Vector centre, extrusion{0, 0, 1};
    double radius = 0, start = 0, end = 360, thickness = 0;
    EntityReader(walk.database(), id)
        .readInto(Into{10, centre}, Into{40, radius}, Into{50, start}, Into{51, end}, Into{code::Thickness, thickness},
                  Into{code::Extrusion, extrusion});
    const bool isArc = walk.database().record(id).type == drawing::known::Arc;
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
    EntityReader(walk.database(), id)
        .readInto(Into{10, centre}, Into{11, major}, Into{40, ratio}, Into{41, start}, Into{42, end},
                  Into{code::Extrusion, extrusion});
    // All in world coordinates. The minor axis has its length also where the axes are not quite upright.
    const Vector minor = normalized(cross(extrusion, major), {}) * (length(major) * ratio);
    const double from = reducedAngle(start), sweep = counterclockwise(from, end);
    const Curve arc = EllipticArc{centre, major, minor, from, from + sweep};
    walk.path({&arc, 1}, sweep == FullTurn);
}

} // namespace geometry
