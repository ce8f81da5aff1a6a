#pragma once

#include "host/ui/view/DrawingView.h"

// What follows the cursor while a place is asked for: a line from where something begins, or a rectangle. A rectangle
// to the left is dashed, as one that selects what it crosses.
class RubberBand final : public ViewOverlay
{
public:
    enum class Shape { Line, Rectangle };

    void begin(Shape shape, const QPointF &from); // in the scene
    void end() { m_from.reset(); }
    void setTo(const std::optional<QPointF> &to) { m_to = to; } // in the scene; none: where the cursor is

    void paint(QPainter &painter, const DrawingView &view) override;

private:
    static void paintRectangle(QPainter &painter, const QPointF &from, const QPointF &to);

    Shape m_shape = Shape::Line;
    std::optional<QPointF> m_from, m_to;
};
