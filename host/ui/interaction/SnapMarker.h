#pragma once

#include "host/drawing/snap/Snap.h"
#include "host/ui/view/DrawingView.h"

// Shows the place that the cursor is drawn to, and what it is, in the way of the drawing board: a square for an end, a
// triangle for the middle, a circle for a centre, a cross for an intersection.
class SnapMarker final : public ViewOverlay
{
public:
    void show(const std::optional<snap::Snap> &snap) { m_snap = snap; }
    const std::optional<snap::Snap> &shown() const { return m_snap; }

    void paint(QPainter &painter, const DrawingView &view) override;

private:
    std::optional<snap::Snap> m_snap;
};
