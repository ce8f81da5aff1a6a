#include "host/ui/gui/MainWindow.h"

#include "host/ui/view/DrawingArea.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDockWidget>
#include <QFileDialog>
#include <QMenuBar>
#include <QStatusBar>
#include <QVBoxLayout>

namespace {

constexpr int CommandLineHeight = 210, PanelWidth = 260; // until somebody changes them

} // namespace

MainWindow::MainWindow()
    : m_documentArea(new QWidget), m_commandPanel(new CommandPanel), m_progressPanel(new ProgressPanel),
      m_coordinates(new QLabel)
{
    setObjectName(QStringLiteral("mainWindow"));
    setWindowTitle(QStringLiteral("lisphost"));
    m_documentArea->setObjectName(QStringLiteral("documentArea"));
    m_documentArea->setAutoFillBackground(true);
    m_documentArea->setBackgroundRole(QPalette::Dark);
    setCentralWidget(m_documentArea);

    auto *dock = new QDockWidget(tr("Command line"), this);
    dock->setObjectName(QStringLiteral("commandDock"));
    dock->setFeatures(QDockWidget::DockWidgetMovable | QDockWidget::DockWidgetFloatable);
    dock->setWidget(m_commandPanel);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    addDockWidget(Qt::BottomDockWidgetArea, dock);
    resizeDocks({dock}, {CommandLineHeight}, Qt::Vertical);
    m_coordinates->setObjectName(QStringLiteral("coordinates"));
    statusBar()->addWidget(m_coordinates);
    statusBar()->addPermanentWidget(m_progressPanel);
    makeMenus();
    m_state.restore(*this, m_commandPanel->history());
    showRecentFiles();
    m_commandPanel->focusInput();
    qApp->installEventFilter(this);
}

QString MainWindow::drawingFilter()
{
    return tr("Drawings (*.dxf);;All files (*)");
}

void MainWindow::makeFileMenu()
{
    m_fileMenu = menuBar()->addMenu(tr("&File"));
    m_fileMenu->addAction(tr("&Open Drawing…"), QKeySequence::Open, this,
                          [this] { chooseFile(tr("Open Drawing"), drawingFilter()); });
    m_fileMenu->addAction(tr("&Save Drawing"), QKeySequence::Save, this, &MainWindow::saveChosen);
    m_fileMenu->addAction(tr("Save Drawing &As…"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S), this,
                          &MainWindow::saveAsChosen);
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(tr("&Load Program…"), QKeySequence(Qt::CTRL | Qt::Key_L), this,
                          [this] { chooseFile(tr("Load Program"), tr("AutoLISP programs (*.lsp);;All files (*)")); });
    m_recentMenu = m_fileMenu->addMenu(tr("&Recent Files"));
    m_fileMenu->addSeparator();
    m_fileMenu->addAction(tr("&Quit"), QKeySequence::Quit, this, &QWidget::close);
}

void MainWindow::makeMenus()
{
    makeFileMenu();
    m_viewMenu = menuBar()->addMenu(tr("&View"));
    m_programMenu = menuBar()->addMenu(tr("&Program"));
    m_commandMenu = m_programMenu->addMenu(tr("&Run Command"));
    m_commandMenu->setEnabled(false);
    m_programMenu->addAction(tr("&Stop"), this, &MainWindow::escapePressed)
        ->setObjectName(QStringLiteral("stopAction"));
}

void MainWindow::addPanel(const QString &title, QWidget *panel)
{
    auto *dock = new QDockWidget(title, this);
    dock->setObjectName(panel->objectName() + QStringLiteral("Dock"));
    dock->setWidget(panel);
    m_viewMenu->addAction(dock->toggleViewAction());
    if (restoreDockWidget(dock))
        return;
    addDockWidget(Qt::RightDockWidgetArea, dock); // it was never there before
    dock->show();
    m_panels.append(dock);
    resizeDocks({dock}, {PanelWidth}, Qt::Horizontal);
    resizeDocks(m_panels, QList<int>(m_panels.size(), 1), Qt::Vertical); // equal shares
}

void MainWindow::showDrawing(DrawingArea &area)
{
    auto *column = new QVBoxLayout(m_documentArea);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(&area);
    DrawingView *view = &area.view();
    constexpr double Step = 2;
    const auto zoom = [view](double factor) { view->zoom(factor, QRectF(view->rect()).center()); };
    m_viewMenu->addAction(tr("Zoom to &Extents"), QKeySequence(Qt::CTRL | Qt::Key_0), view, &DrawingView::zoomExtents);
    m_viewMenu->addAction(tr("Zoom &In"), QKeySequence::ZoomIn, view, [zoom] { zoom(Step); });
    m_viewMenu->addAction(tr("Zoom &Out"), QKeySequence::ZoomOut, view, [zoom] { zoom(1 / Step); });
    m_viewMenu->addSeparator();
}

void MainWindow::showCoordinates(double x, double y)
{
    m_coordinates->setText(QStringLiteral("%1, %2").arg(x, 0, 'f', 4).arg(y, 0, 'f', 4));
}

void MainWindow::hideCoordinates()
{
    m_coordinates->clear();
}

void MainWindow::setRunning(bool running)
{
    m_isRunning = running;
    m_fileMenu->setEnabled(!running);
    m_commandMenu->setEnabled(!running && !m_commandMenu->isEmpty());
}

void MainWindow::setCommands(const QStringList &commands)
{
    m_commandMenu->clear();
    for (const QString &command : commands)
        m_commandMenu->addAction(command, this, [this, command] { Q_EMIT commandChosen(command); });
    m_commandMenu->setEnabled(!commands.isEmpty());
}

void MainWindow::addRecentFile(const QString &path)
{
    m_state.addRecentFile(path);
    showRecentFiles();
}

void MainWindow::showRecentFiles()
{
    m_recentMenu->clear();
    for (const QString &path : m_state.recentFiles())
        m_recentMenu->addAction(path, this, [this, path] { openFile(path); });
    m_recentMenu->setEnabled(!m_recentMenu->isEmpty());
}

void MainWindow::chooseFile(const QString &title, const QString &filter)
{
    const QString path = QFileDialog::getOpenFileName(this, title, QString(), filter);
    if (!path.isEmpty())
        openFile(path);
}

void MainWindow::openFile(const QString &path)
{
    if (path.endsWith(QStringLiteral(".dxf"), Qt::CaseInsensitive))
        Q_EMIT drawingChosen(path);
    else
        Q_EMIT programChosen(path);
}

void MainWindow::closeEvent(QCloseEvent *event)
{
    bool allowed = true;
    Q_EMIT closing(allowed);
    event->setAccepted(allowed);
    if (allowed)
        m_state.save(*this, m_commandPanel->history());
}

// Esc stops a program wherever the focus is; but in a modal dialog or a menu it is theirs, and while nothing runs other
// windows, as the status window, are closed by it.
bool MainWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent *>(event)->key() != Qt::Key_Escape)
        return QMainWindow::eventFilter(watched, event);
    const auto *widget = qobject_cast<QWidget *>(watched);
    const bool isTheirs = QApplication::activeModalWidget() != nullptr || QApplication::activePopupWidget() != nullptr;
    if (!widget || isTheirs || !(m_isRunning || widget->window() == this))
        return QMainWindow::eventFilter(watched, event);
    Q_EMIT escapePressed();
    return true;
}
