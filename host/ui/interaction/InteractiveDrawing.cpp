#include "host/ui/interaction/InteractiveDrawing.h"

#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/WindowInterface.h"
#include "host/ui/view/DrawingArea.h"

InteractiveDrawing::InteractiveDrawing(WindowInterface &interface, CommandRunner &runner, Document &document)
    : m_interface(interface), m_document(document),
      m_area(*new DrawingArea([&document]() -> const drawing::Drawing & { return document.drawing(); })),
      m_pictures(m_area.view(), *interface.window().statusBar(),
                 [&document]() -> const drawing::Drawing & { return document.drawing(); }),
      m_variables(m_area, document), m_selection(interface, runner, m_area, document),
      m_input(interface, m_area, document)
{
    interface.window().showDrawing(m_area);
    document.services().overlay = &m_pictures;
    connect(&runner, &CommandRunner::ended, this, &InteractiveDrawing::showWhatIs);
    connect(&runner, &CommandRunner::ended, &m_selection, &ViewSelection::showWhatIs);
    connect(&m_selection, &ViewSelection::changed, this, &InteractiveDrawing::selectionChanged);
    connect(&interface, &WindowInterface::requestBegan, this, &InteractiveDrawing::showWhatIs);
}

InteractiveDrawing::~InteractiveDrawing()
{
    m_document.services().overlay = &m_document.services().noOverlay;
}

void InteractiveDrawing::showWhatIs()
{
    m_area.refresh([this] { m_interface.pulse(); });
    m_variables.showInView();
}
