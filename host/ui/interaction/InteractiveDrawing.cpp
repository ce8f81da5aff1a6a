#include "host/ui/interaction/InteractiveDrawing.h"

#include "host/drawing/selection/EntityIndex.h"
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
      m_input(interface, m_area, document), m_spaces(runner, m_area, document)
{
    interface.window().showDrawing(m_area);
    document.services().overlay = &m_pictures;
    connect(&runner, &CommandRunner::ended, this, &InteractiveDrawing::showWhatIs);
    connect(&runner, &CommandRunner::ended, &m_selection, &ViewSelection::showWhatIs);
    connect(&m_selection, &ViewSelection::changed, this, &InteractiveDrawing::selectionChanged);
    connect(&interface, &WindowInterface::requestBegan, this, [this](const InputRequest &request) {
        showWhatIs();
        m_input.begin(request);
    });
    connect(&m_area, &DrawingArea::tabShown, this, [this] { m_pictures.clear(); });
    connect(&m_area.view(), &DrawingView::cursorMoved, this, &InteractiveDrawing::showCoordinates);
    connect(&m_area.view(), &DrawingView::cursorLeft, &interface.window(), &MainWindow::hideCoordinates);
    connect(&m_preparing, &QTimer::timeout, this, &InteractiveDrawing::prepareForClicks);
    showWhatIs();
}

InteractiveDrawing::~InteractiveDrawing()
{
    m_document.services().overlay = &m_document.services().noOverlay;
}

void InteractiveDrawing::showWhatIs()
{
    const std::optional<ViewVariables::Place> wanted = m_variables.changed(); // before the view tells others
    m_area.refresh([this] { m_interface.pulse(); });
    m_area.workThrough(m_document.currentViewport());
    if (wanted)
        m_variables.show(*wanted);
    m_variables.takeFromView(); // the coordinate system may be another one
    m_preparing.start(0);
}

// Clicks ask an index of where entities lie, which is made while nobody waits for anything. When a program goes on, the
// rest waits until its changes are shown.
void InteractiveDrawing::prepareForClicks()
{
    if (!m_interface.isIdle() || !m_document.session().entityIndex().prepare())
        m_preparing.stop();
}

void InteractiveDrawing::showCoordinates(const QPointF &place)
{
    const LispPoint user = ViewCoordinates(m_document, m_area.view()).user(place);
    m_interface.window().showCoordinates(user.x, user.y);
}
