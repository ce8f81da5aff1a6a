#pragma once

#include "host/interpreter/Value.h"

#include <QWidget>

class Document;
class QPushButton;
class QTreeWidget;

// The data of the selected entities as entget gives it, group by group. What is selected: the entities that are
// selected before a command begins, else those that the last command selected.
class PropertiesPanel final : public QWidget
{
public:
    explicit PropertiesPanel(Document &document);

    void refresh(); // after the selection, or the drawing, has changed

    // The data of all that is shown, a quoted list a line, as entmake takes it: without the names of entities, which
    // mean nothing elsewhere and cannot be read.
    QString asLisp() const;

private:
    void add(lisp::Value list);

    Document &m_document;
    QTreeWidget *m_groups;
    QPushButton *m_copy;
    QStringList m_lists;
};
