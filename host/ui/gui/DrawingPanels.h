#pragma once

#include <QObject>

class CommandRunner;
class Document;
class LayerPanel;
class MainWindow;
class PropertiesPanel;

// The panels about a document's drawing in the window: layers, and the data of what is selected. They are read anew
// when something has run.
class DrawingPanels final : public QObject
{
    Q_OBJECT

public:
    DrawingPanels(MainWindow &window, CommandRunner &runner, Document &document);

    void refresh(); // also for whoever selects by other means

private:
    LayerPanel *m_layers; // the window's
    PropertiesPanel *m_properties;
};
