#pragma once

#include <QTreeWidget>

class Document;

// The layers of a document's drawing, by name: on or off, thawed or frozen, colour. A box that is clicked, or a colour
// that is clicked twice, asks for the -LAYER command that changes it, so that it can be undone and programs and people
// go one way.
class LayerPanel final : public QTreeWidget
{
    Q_OBJECT

public:
    enum Column { Name, On, Frozen, Color };

    explicit LayerPanel(Document &document);

    void refresh(); // reads the layers anew when the drawing has changed since

Q_SIGNALS:
    // Answers of a whole command.
    void commandWanted(const QStringList &answers);

private:
    void change(const QTreeWidgetItem &item, int column);
    void askColor(const QTreeWidgetItem &item);
    void send(const QStringList &answers);

    Document &m_document;
    std::pair<std::uint32_t, std::uint64_t> m_shown; // the drawing's number and its count of changes
    QString m_current;
};
