#pragma once

#include "host/drawing/Record.h"
#include "host/ui/interaction/RubberBand.h"
#include "host/ui/interaction/ViewCoordinates.h"

#include <QObject>

class CommandRunner;
class Document;
class DrawingArea;
class WindowInterface;

// What a person selects in the view while no command runs, for the next one to take (PICKFIRST): clicks, and rectangles
// between two, add to it, with Shift they take away, with PICKADD 0 each begins anew. Esc forgets it and Delete erases
// it.
class ViewSelection final : public QObject
{
    Q_OBJECT

public:
    ViewSelection(WindowInterface &interface, CommandRunner &runner, DrawingArea &area, Document &document);
    ~ViewSelection() override;

    void showWhatIs(); // after the drawing, or what is selected in it, has changed

Q_SIGNALS:
    void changed(); // by the person

private:
    enum class Change { Add, Remove };

    void press(const QPointF &place, Qt::KeyboardModifiers modifiers);
    void release(const QPointF &place);
    void selectTo(const QPointF &corner);
    void change(const std::vector<drawing::RecordId> &entities);
    void forgetOtherSpaces();
    void clear();
    void erase();
    bool isMine() const; // whether clicks select: no program runs

    WindowInterface &m_interface;
    CommandRunner &m_runner;
    DrawingArea &m_area;
    Document &m_document;
    ViewCoordinates m_coordinates;
    RubberBand m_rectangle;
    std::optional<QPointF> m_corner; // of the rectangle that is being drawn, in the scene
    Change m_change = Change::Add;
};
