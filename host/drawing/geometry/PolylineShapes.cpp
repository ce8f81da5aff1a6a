// LWPOLYLINE; POLYLINE in a plane and in space. Its meshes are in MeshShapes.cpp.
#include "host/drawing/geometry/MeshShapes.h"
#include "host/drawing/geometry/PlanePolyline.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

void setVertexValue(PlanePolyline::Vertex &vertex, const Item &item)
{
    if (item.code == 40)
        vertex.startWidth = item.real;
    else if (item.code == 41)
        vertex.endWidth = item.real;
    else if (item.code == 42)
        vertex.bulge = item.real;
}

void readPlaneVertices(const drawing::Database &database, const PolylineGroups &groups, PlanePolyline &polyline)
{
    for (const RecordId part : verticesOf(database, groups)) {
        PlanePolyline::Vertex vertex{{}, groups.startWidth, groups.endWidth, 0};
        EntityReader reader(database, part);
        for (Item item; reader.next(item);)
            if (item.code == 10)
                vertex.place = {item.point.x, item.point.y, groups.elevation};
            else
                setVertexValue(vertex, item);
        polyline.vertices.push_back(vertex);
    }
}

void spacePolylineShapes(ShapeWalk &walk, const PolylineGroups &groups)
{
    std::vector<Vector> places;
    for (const RecordId part : verticesOf(walk.database(), groups))
        places.push_back(placeOf(walk.database(), part));
    std::vector<Curve> path;
    for (std::size_t i = 0; i + 1 < places.size(); ++i)
        path.push_back(Line{places[i], places[i + 1]});
    if (places.size() == 1 || (groups.is(PolylineGroups::Closed) && !places.empty()))
        path.push_back(Line{places.back(), places.front()});
    walk.path(path, groups.is(PolylineGroups::Closed));
}

} // namespace

void lightPolylineShapes(ShapeWalk &walk, RecordId id)
{
    PlanePolyline polyline;
    double thickness = 0, elevation = 0, width = 0;
    Vector extrusion{0, 0, 1};
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == 10)
            polyline.vertices.push_back({vectorOf(item.point), 0, 0, 0});
        else if (item.code == 38)
            elevation = item.real;
        else if (item.code == code::Thickness)
            thickness = item.real;
        else if (item.code == 43)
            width = item.real;
        else if (item.code == 70)
            polyline.isClosed = (item.integer & PolylineGroups::Closed) != 0;
        else if (item.code == code::Extrusion)
            extrusion = vectorOf(item.point);
        else if (!polyline.vertices.empty())
            setVertexValue(polyline.vertices.back(), item);
    for (PlanePolyline::Vertex &vertex : polyline.vertices) {
        vertex.place.z = elevation;
        if (width != 0) // then the vertices have no widths of their own
            vertex.startWidth = vertex.endWidth = width;
    }
    planePolylineShapes(walk, polyline, Matrix::ofExtrusion(extrusion), thickness);
}

void polylineShapes(ShapeWalk &walk, RecordId id)
{
    const PolylineGroups groups = readPolyline(walk.database(), id);
    if (groups.is(PolylineGroups::PolyfaceMesh))
        return polyfaceShapes(walk, groups);
    if (groups.is(PolylineGroups::Mesh))
        return meshShapes(walk, groups);
    if (groups.is(PolylineGroups::InSpace))
        return spacePolylineShapes(walk, groups);
    PlanePolyline polyline;
    polyline.isClosed = groups.is(PolylineGroups::Closed);
    readPlaneVertices(walk.database(), groups, polyline);
    planePolylineShapes(walk, polyline, Matrix::ofExtrusion(groups.extrusion), groups.thickness);
}

} // namespace geometry
