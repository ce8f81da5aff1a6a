#pragma once

#include <QObject>

class CommandRunner;
class Document;
class DrawingArea;
class QPointF;

// What a person works on, while nothing runs: a click on a tab makes the model or a layout current, a double click into
// a viewport the model in it, a double click beside all of them the paper.
class SpaceChooser final : public QObject
{
public:
    SpaceChooser(CommandRunner &runner, DrawingArea &area, Document &document);

private:
    void chooseTab(const QString &name);
    void chooseSpace(const QPointF &place, bool &isTaken);

    CommandRunner &m_runner;
    DrawingArea &m_area;
    Document &m_document;
};
