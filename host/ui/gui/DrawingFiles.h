#pragma once

#include <QObject>

class CommandRunner;
class Document;
class MainWindow;

// Opens and saves a document's drawing for the person at the window, whom it asks before changes get lost, and keeps
// the window's title.
class DrawingFiles final : public QObject
{
    Q_OBJECT

public:
    DrawingFiles(MainWindow &window, CommandRunner &runner, Document &document);

    void open(const QString &path);
    bool save();   // false when it was not saved; asks for a name where there is none
    bool saveAs(); // asks for a name

private:
    void showTitle();
    void read(const QString &path);
    bool mayLoseChanges(); // asks, and saves when that is wanted
    bool write(const QString &path);
    void report(const QString &failure);
    QString name();

    MainWindow &m_window;
    CommandRunner &m_runner;
    Document &m_document;
};
