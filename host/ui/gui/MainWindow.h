#pragma once

#include "host/ui/gui/CommandPanel.h"
#include "host/ui/gui/ProgressPanel.h"
#include "host/ui/gui/WindowState.h"

#include <QLabel>
#include <QMainWindow>

class DrawingArea;

// The window of the host: the drawing's place, the command line below, menus, the progress meter. It shows and tells
// what the person wants; what happens then is somebody else's business.
class MainWindow final : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();

    CommandPanel &commandPanel() { return *m_commandPanel; }
    ProgressPanel &progressPanel() { return *m_progressPanel; }
    QWidget *documentArea() { return m_documentArea; }
    // At the right, below those that are there; the View menu shows and hides it. The window takes it over.
    void addPanel(const QString &title, QWidget *panel);
    void showDrawing(DrawingArea &area);      // in the document's place, with its menu
    void showCoordinates(double x, double y); // of the cursor
    void hideCoordinates();

    // While a program runs the menus can be seen but not used.
    void setRunning(bool running);
    void setCommands(const QStringList &commands); // c: functions without the prefix
    void addRecentFile(const QString &path);
    void openFile(const QString &path); // as if a person had chosen it: a drawing or a program, by its ending

    static QString drawingFilter(); // of dialogs for files

Q_SIGNALS:
    void programChosen(const QString &path);
    void drawingChosen(const QString &path);
    void saveChosen();
    void saveAsChosen();
    void commandChosen(const QString &name);
    void escapePressed();
    void closing(bool &allowed); // allowed: the window may close

protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void makeMenus();
    void makeFileMenu();
    void chooseFile(const QString &title, const QString &filter);
    void showRecentFiles();

    QWidget *m_documentArea;
    CommandPanel *m_commandPanel;
    ProgressPanel *m_progressPanel;
    QMenu *m_fileMenu = nullptr;
    QMenu *m_viewMenu = nullptr;
    QMenu *m_programMenu = nullptr;
    QMenu *m_recentMenu = nullptr;
    QMenu *m_commandMenu = nullptr;
    QList<QDockWidget *> m_panels;
    bool m_isRunning = false;
    QLabel *m_coordinates;
    WindowState m_state;
};
