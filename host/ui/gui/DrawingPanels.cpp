#include "host/ui/gui/DrawingPanels.h"

#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/LayerPanel.h"
#include "host/ui/gui/MainWindow.h"
#include "host/ui/gui/PropertiesPanel.h"

DrawingPanels::DrawingPanels(MainWindow &window, CommandRunner &runner, Document &document)
    : m_layers(new LayerPanel(document)), m_properties(new PropertiesPanel(document))
{
    window.addPanel(tr("Layers"), m_layers);
    window.addPanel(tr("Properties"), m_properties);
    // Later: the command changes the list whose box has just been clicked.
    connect(m_layers, &LayerPanel::commandWanted, &runner, &CommandRunner::giveAnswers, Qt::QueuedConnection);
    connect(&runner, &CommandRunner::ended, this, &DrawingPanels::refresh);
}

void DrawingPanels::refresh()
{
    m_layers->refresh();
    m_properties->refresh();
}
