#include "host/ui/interaction/SpaceChooser.h"

#include "host/kernel/Document.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/view/DrawingArea.h"

SpaceChooser::SpaceChooser(CommandRunner &runner, DrawingArea &area, Document &document)
    : m_runner(runner), m_area(area), m_document(document)
{
    connect(&area, &DrawingArea::tabChosen, this, &SpaceChooser::chooseTab);
    connect(&area.view(), &DrawingView::doubleClicked, this, &SpaceChooser::chooseSpace);
}

void SpaceChooser::chooseTab(const QString &name)
{
    if (!m_runner.isRunning())
        m_runner.run([&] { m_document.showLayout(name.toStdU16String()); });
}

void SpaceChooser::chooseSpace(const QPointF &place, bool &isTaken)
{
    const drawing::RecordId viewport = m_area.viewportAt(place);
    isTaken = m_area.isLayoutShown() && !m_runner.isRunning() && viewport != m_document.currentViewport();
    if (!isTaken)
        return;
    m_runner.run([&] {
        if (viewport != drawing::NoRecord)
            m_document.workThroughViewport(viewport);
        else
            m_document.workOnPaper();
    });
}
