#pragma once

#include "host/kernel/input/UserInput.h"
#include "host/ui/interaction/RubberBand.h"
#include "host/ui/interaction/ViewCoordinates.h"

class DrawingArea;
class WindowInterface;

// Answers requests for places by clicks in the view of the model. The right button is Enter. A rectangle may also be
// drawn with the button held: where it is let go is the other corner.
class ViewInput final : public QObject
{
    Q_OBJECT

public:
    ViewInput(WindowInterface &interface, DrawingArea &area, Document &document);
    ~ViewInput() override;

    bool isAsked() const { return m_kind.has_value(); } // whether a click would be an answer

private:
    void begin(const InputRequest &request);
    void end();
    void press(const QPointF &world);
    void release(const QPointF &world);
    void move(const QPointF &world);
    void pick(const QPointF &world);
    void showMarks();
    QPointF constrained(const QPointF &world) const; // by ORTHOMODE

    WindowInterface &m_interface;
    DrawingArea &m_area;
    Document &m_document;
    ViewCoordinates m_coordinates;
    RubberBand m_rubberBand;
    std::optional<InputRequest::Kind> m_kind; // of the request that waits for a place
    std::optional<LispPoint> m_base;
    std::optional<QPointF> m_held; // where the button was pressed, until it is let go
};
