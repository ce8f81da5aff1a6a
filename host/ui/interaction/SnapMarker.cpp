#include "host/ui/interaction/SnapMarker.h"

#include <QPainter>

namespace {

constexpr double Size = 6; // pixels from the middle to the edge
constexpr QRgb Color = 0xffe07b00;
constexpr double LineWidth = 2;

void drawCross(QPainter &painter)
{
    painter.drawLine(QPointF(-Size, -Size), QPointF(Size, Size));
    painter.drawLine(QPointF(-Size, Size), QPointF(Size, -Size));
}

void draw(QPainter &painter, snap::Mode mode)
{
    switch (mode) {
    case snap::Middle:
        return painter.drawPolygon(QPolygonF({{-Size, Size}, {Size, Size}, {0, -Size}}));
    case snap::Center:
        return painter.drawEllipse(QPointF(0, 0), Size, Size);
    case snap::Quadrant:
        return painter.drawPolygon(QPolygonF({{-Size, 0}, {0, -Size}, {Size, 0}, {0, Size}}));
    case snap::Intersection:
    case snap::ApparentIntersection:
        return drawCross(painter);
    case snap::Node:
        painter.drawEllipse(QPointF(0, 0), Size, Size);
        return drawCross(painter);
    default:
        return painter.drawRect(QRectF(-Size, -Size, 2 * Size, 2 * Size));
    }
}

} // namespace

void SnapMarker::paint(QPainter &painter, const DrawingView &view)
{
    if (!m_snap)
        return;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(Color), LineWidth));
    painter.translate(view.positionOf(m_snap->place));
    draw(painter, m_snap->mode);
    painter.drawText(QPointF(2 * Size, 3 * Size), QString::fromStdU16String(snap::namesOf(m_snap->mode)));
}
