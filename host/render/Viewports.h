#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Matrix.h"

#include <QPolygonF>

#include <optional>
#include <unordered_set>

namespace render {

// A window of a layout into the model.
struct Viewport
{
    drawing::RecordId entity = drawing::NoRecord;
    QPolygonF outline;        // in paper units; what lies outside is not drawn
    QRectF view;              // in paper units: the outline of a viewport that is not cut
    geometry::Matrix toPaper; // from the world
    double scale = 1;         // paper units for a drawing unit
    std::unordered_set<drawing::RecordId> frozenLayers;
};

// None for other entities, for a window that is off or has no size, and for the one that stands for the sheet itself.
std::optional<Viewport> viewportOf(const drawing::Drawing &drawing, drawing::RecordId entity);

} // namespace render
