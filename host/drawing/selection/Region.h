#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"

#include <optional>
#include <vector>

// Which entities a window, a polygon or a fence takes, and which lies under a pick, as seen from above. Curves are
// tested as they run, not by their boxes; texts and images by the box around them. Layers are the caller's.
namespace selection {

struct Place
{
    double x, y;
};
using Polygon = std::vector<Place>; // closed by itself

enum class Reach { Inside, Crossing };

Polygon rectangle(Place corner, Place opposite);

// Whether the entity lies inside the polygon, or also touches or crosses it.
bool takes(const drawing::Drawing &drawing, drawing::RecordId entity, const Polygon &polygon, Reach reach);

// Whether the entity touches the line from place to place.
bool isCrossed(const drawing::Drawing &drawing, drawing::RecordId entity, const std::vector<Place> &fence);

// The distance of the place from the entity; none for an entity that nothing is seen of.
std::optional<double> distanceFrom(const drawing::Drawing &drawing, drawing::RecordId entity, Place place);

// The entity of the model, or of paper space, that lies under the place, the last one of several: the nearest within
// the distance. NoRecord when there is none.
drawing::RecordId entityAt(const drawing::Drawing &drawing, const std::vector<drawing::RecordId> &candidates,
                           Place place, double distance);

// What of an entity lies nearest to a place: the entity that is drawn there, which is a block's where the entity is a
// block reference.
struct Part
{
    drawing::RecordId entity = drawing::NoRecord;
    std::vector<drawing::RecordId> inserts; // that it stands in, the outermost first
    geometry::Matrix toWorld;               // from the coordinates of what it stands in
};
std::optional<Part> nearestPart(const drawing::Drawing &drawing, drawing::RecordId entity, Place place);

} // namespace selection
