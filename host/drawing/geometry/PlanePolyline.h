#pragma once

#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

// A polyline in a plane, in the plane's coordinates.
struct PlanePolyline
{
    struct Vertex
    {
        Vector place;
        double startWidth = 0, endWidth = 0; // of the segment that begins here
        double bulge = 0;                    // its tangent of a quarter of the angle; 0: straight
    };
    std::vector<Vertex> vertices;
    bool isClosed = false;
};

// The segment from one place to another; to the left of the way when the bulge is negative.
Curve segment(const Vector &start, const Vector &end, double bulge);

// The polyline as a path, and as areas where it has a width. Where straight wide segments meet, their edges go on to
// where they cross, unless the corner is sharp.
void planePolylineShapes(ShapeWalk &walk, const PlanePolyline &polyline, const Matrix &plane, double thickness);

} // namespace geometry
