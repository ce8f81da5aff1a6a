#pragma once

#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

// The groups of a POLYLINE, whose flags say which of four kinds it is: in a plane when no other is set.
struct PolylineGroups
{
    enum Flag { Closed = 1, SplineFit = 4, InSpace = 8, Mesh = 16, ClosedInN = 32, PolyfaceMesh = 64 };

    drawing::RecordId id = drawing::NoRecord;
    std::int64_t flags = 0;
    std::int64_t countM = 0, countN = 0;     // of a mesh's vertices, or of its control points
    std::int64_t densityM = 0, densityN = 0; // of a smoothed mesh's vertices
    double elevation = 0, thickness = 0, startWidth = 0, endWidth = 0;
    Vector extrusion{0, 0, 1};

    bool is(Flag flag) const { return (flags & flag) != 0; }
};

PolylineGroups readPolyline(const drawing::Database &database, drawing::RecordId id);

// Those that are seen: of a curve or surface fitted to its vertices, not these but the ones made for it.
std::vector<drawing::RecordId> verticesOf(const drawing::Database &database, const PolylineGroups &groups);
Vector placeOf(const drawing::Database &database, drawing::RecordId vertex);

void meshShapes(ShapeWalk &walk, const PolylineGroups &groups);
void polyfaceShapes(ShapeWalk &walk, const PolylineGroups &groups);

} // namespace geometry
