#pragma once

#include "host/ui/interaction/OverlayPictures.h"
#include "host/ui/interaction/SpaceChooser.h"
#include "host/ui/interaction/ViewInput.h"
#include "host/ui/interaction/ViewSelection.h"
#include "host/ui/interaction/ViewVariables.h"

#include <QTimer>

class CommandRunner;

// The drawing in the window as a person works with it: shown as it is, answering requests by clicks, with what is
// selected in it.
class InteractiveDrawing final : public QObject
{
    Q_OBJECT

public:
    // The window takes over what is shown.
    InteractiveDrawing(WindowInterface &interface, CommandRunner &runner, Document &document);
    ~InteractiveDrawing() override;

    DrawingArea &area() { return m_area; }

Q_SIGNALS:
    void selectionChanged(); // by a person's clicks

private:
    void showWhatIs(); // the drawing after a change, in a view that commands may have changed
    void showCoordinates(const QPointF &place);
    void prepareForClicks();

    WindowInterface &m_interface;
    Document &m_document;
    DrawingArea &m_area;
    OverlayPictures m_pictures;
    ViewVariables m_variables;
    ViewSelection m_selection;
    ViewInput m_input;
    SpaceChooser m_spaces;
    QTimer m_preparing;
};
