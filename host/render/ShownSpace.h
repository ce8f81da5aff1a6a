#pragma once

#include "host/drawing/Record.h"
#include "host/drawing/geometry/Matrix.h"

#include <QPolygonF>

namespace render {

// Where a space of the drawing is seen on a page: the model itself, the paper of a layout, or the model in a viewport.
struct ShownSpace
{
    enum class Kind { Model, Paper, Viewport };

    Kind kind = Kind::Model;
    geometry::Matrix toPage; // from the world of the space; never flattened, so that it has an inverse
    double scale = 1;        // of the page for a unit of the space
    QPolygonF outline = {};  // on the page; what lies outside is not drawn. Empty: no limit
    drawing::RecordId viewport = drawing::NoRecord;
    QRectF view = {}; // of a viewport, on the page: what it shows before it is cut to its outline
};

} // namespace render
