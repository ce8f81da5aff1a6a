#pragma once

#include "host/ui/view/DrawingView.h"

// What follows the cursor while a place is asked for: a line from where something begins, or a rectangle. A rectangle
// to the left is dashed, as one that selects what it crosses.
class RubberBand final : public ViewOverlay
{
public:
    enum class Shape { Line, Rectangle };

    // Places are in the world of the space that is worked on.
    void begin(Shape shape, const geometry::Vector &from);
    void end() { m_from.reset(); }
    void setTo(const std::optional<geometry::Vector> &to) { m_to = to; } // none: where the cursor is

    void paint(QPainter &painter, const DrawingView &view) override;

private:
    static void paintRectangle(QPainter &painter, const QPointF &from, const QPointF &to);

    Shape m_shape = Shape::Line;
    std::optional<geometry::Vector> m_from, m_to;
};
