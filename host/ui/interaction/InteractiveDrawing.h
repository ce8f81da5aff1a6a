#pragma once

#include "host/ui/interaction/ViewInput.h"
#include "host/ui/interaction/ViewVariables.h"

class CommandRunner;
class DrawingFiles;

// The drawing in the window as a person works with it: shown as it is, answering requests by clicks.
class InteractiveDrawing final : public QObject
{
public:
    // The window takes over what is shown.
    InteractiveDrawing(WindowInterface &interface, CommandRunner &runner, DrawingFiles &files, Document &document);

    DrawingArea &area() { return m_area; }

private:
    void showWhatIs(); // after a program or a command, and before it asks

    DrawingArea &m_area;
    ViewVariables m_variables;
    ViewInput m_input;
};
