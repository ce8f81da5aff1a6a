#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

#include <vector>

namespace drawing {

// A polyline as commands look at it. Places are in its own coordinates: of polylines in space those of the world.
struct PolylineData
{
    struct Vertex
    {
        geometry::Vector place;
        double startWidth = 0, endWidth = 0, bulge = 0;
    };

    std::vector<Vertex> vertices;
    bool isClosed = false, isInSpace = false;
    bool generatesLinetype = false; // over its vertices, not anew at each
    geometry::Vector extrusion{0, 0, 1};
    double thickness = 0;
};

// Of an LWPOLYLINE or POLYLINE; none for meshes and other entities.
std::optional<PolylineData> polylineOf(const Database &database, RecordId entity);
// Also of a LINE that lies in the world's plane or parallel to it, and of an ARC.
std::optional<PolylineData> asPolyline(const Database &database, RecordId entity);

void reverse(PolylineData &polyline);

// The records of a POLYLINE's vertices: those that are seen, and those that only shape a spline.
std::vector<RecordId> shownVerticesOf(const Database &database, RecordId polyline);
std::vector<RecordId> splineFrameOf(const Database &database, RecordId polyline);

// Gives a plane polyline, LINE or ARC these vertices. A POLYLINE stays one; the others are an LWPOLYLINE then, which
// keeps the handle and all data. False for an LWPOLYLINE before R2000, or when a value cannot be written.
bool replacePolyline(Drawing &drawing, RecordId entity, const PolylineData &polyline);

// Group 70 of a polyline that had these flags.
std::int64_t polylineFlags(const PolylineData &polyline, std::int64_t others = 0);

// The LWPOLYLINE, with what `common` says of its type, layer, and so on.
GroupList lightPolyline(GroupList common, const PolylineData &polyline);

// What entities of other types made from this one have of it: type and marker, layer, colour, linetype, and so on.
GroupList commonGroups(const GroupList &groups, std::u16string type);

// The lines and arcs that a polyline consists of, without its widths.
std::vector<GroupList> segmentsOf(const Database &database, RecordId polyline);

} // namespace drawing
