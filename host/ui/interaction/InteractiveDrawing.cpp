#include "host/ui/interaction/InteractiveDrawing.h"

#include "host/kernel/Document.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/DrawingFiles.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/view/DrawingArea.h"

InteractiveDrawing::InteractiveDrawing(WindowInterface &interface, CommandRunner &runner, DrawingFiles &files,
                                       Document &document)
    : m_area(*new DrawingArea([&document]() -> const drawing::Drawing & { return document.drawing(); })),
      m_variables(m_area, document), m_input(interface, m_area, document)
{
    interface.window().showDrawing(m_area);
    connect(&files, &DrawingFiles::opened, this, &InteractiveDrawing::showWhatIs);
    connect(&runner, &CommandRunner::ended, this, &InteractiveDrawing::showWhatIs);
    connect(&interface, &WindowInterface::requestBegan, this, &InteractiveDrawing::showWhatIs);
}

void InteractiveDrawing::showWhatIs()
{
    m_area.refresh();
    m_variables.showInView();
}
