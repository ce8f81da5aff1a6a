#pragma once

#include "host/drawing/Database.h"

#include <QMarginsF>
#include <QPointF>
#include <QRectF>
#include <QSizeF>

namespace render {

// The plot settings of a layout; its paper as the drawing lies on it, so with width and height exchanged where the
// drawing is turned on the printer's paper. All lengths of the paper in millimetres.
struct PageSetup
{
    enum class Area { Display, Extents, Limits, View, Window, Layout };

    QSizeF paper;      // empty: none is known
    QMarginsF margins; // top is that of the drawing's upper edge
    QPointF offset;    // of the plotted area from the lower left margin
    Area area = Area::Layout;
    QRectF window;    // for Area::Window, in drawing units
    double scale = 1; // millimetres of paper for a drawing unit; 0: as large as fits
    bool isCentred = false;
    bool drawsWeights = true;
    bool scalesWeights = false;
};

PageSetup pageSetup(const drawing::Database &database, drawing::RecordId layout);

} // namespace render
