#include "host/ui/interaction/RubberBand.h"

#include <QPainter>

namespace {

constexpr QRgb InsideColor = 0xff2f6fd0, CrossingColor = 0xff2e9e4f;
constexpr int FillAlpha = 40;

} // namespace

void RubberBand::begin(Shape shape, const geometry::Vector &from)
{
    m_shape = shape;
    m_from = from;
    m_to.reset();
}

void RubberBand::paintRectangle(QPainter &painter, const QPointF &from, const QPointF &to)
{
    const bool isCrossing = to.x() < from.x();
    QColor color(isCrossing ? CrossingColor : InsideColor);
    painter.setPen(QPen(color, 1, isCrossing ? Qt::DashLine : Qt::SolidLine));
    color.setAlpha(FillAlpha);
    painter.setBrush(color);
    painter.drawRect(QRectF(from, to).normalized());
}

void RubberBand::paint(QPainter &painter, const DrawingView &view)
{
    if (!m_from || !(m_to || view.cursor()))
        return;
    const QPointF from = view.positionOf(*m_from);
    const QPointF to = m_to ? view.positionOf(*m_to) : *view.cursor();
    if (m_shape == Shape::Rectangle)
        return paintRectangle(painter, from, to);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(view.ink(), 1, Qt::DashLine));
    painter.drawLine(from, to);
}
