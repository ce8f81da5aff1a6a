#pragma once

#include "host/kernel/input/UserInput.h"
#include "host/ui/interaction/EntityPicture.h"
#include "host/ui/interaction/RubberBand.h"
#include "host/ui/interaction/SnapMarker.h"
#include "host/ui/interaction/ViewCoordinates.h"

class DrawingArea;
class WindowInterface;

// Answers requests for places by clicks in the view. The right button is Enter. A rectangle may also be
// drawn with the button held: where it is let go is the other corner. What is dragged follows the cursor. Places are
// put to what OSMODE asks for near the cursor.
class ViewInput final : public QObject
{
    Q_OBJECT

public:
    ViewInput(WindowInterface &interface, DrawingArea &area, Document &document);
    ~ViewInput() override;

    void begin(const InputRequest &request); // once the drawing is shown as it is

private:
    void end();
    void press(const QPointF &place);
    void release(const QPointF &place);
    void move(const QPointF &place);
    void pick(const QPointF &place);
    void aim(const QPointF &place); // the cursor is here
    std::optional<snap::Snap> snapAt(const LispPoint &place) const;
    void showMarks();
    LispPoint constrained(LispPoint place) const; // by ORTHOMODE

    WindowInterface &m_interface;
    DrawingArea &m_area;
    Document &m_document;
    ViewCoordinates m_coordinates;
    RubberBand m_rubberBand;
    EntityPicture m_draggedPicture;
    SnapMarker m_marker;
    const Dragged *m_dragged = nullptr;       // of the request that waits
    std::optional<InputRequest::Kind> m_kind; // of the request that waits for a place
    std::optional<LispPoint> m_base;
    bool m_tellsMoves = false;
    std::optional<snap::Modes> m_snapModes; // instead of OSMODE's
    LispPoint m_place{};                    // that a click would give now
    std::optional<QPointF> m_held;          // where the button was pressed, until it is let go
};
