#include "host/ui/gui/DrawingFiles.h"

#include "host/drawing/DrawingWriter.h"
#include "host/kernel/Document.h"
#include "host/ui/gui/CommandRunner.h"
#include "host/ui/gui/MainWindow.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

DrawingFiles::DrawingFiles(MainWindow &window, CommandRunner &runner, Document &document)
    : m_window(window), m_runner(runner), m_document(document)
{
    connect(&window, &MainWindow::drawingChosen, this, &DrawingFiles::open);
    connect(&window, &MainWindow::saveChosen, this, &DrawingFiles::save);
    connect(&window, &MainWindow::saveAsChosen, this, &DrawingFiles::saveAs);
    connect(&runner, &CommandRunner::ended, this, &DrawingFiles::showTitle);
    connect(&window, &MainWindow::closing, this, [this](bool &allowed) { allowed = allowed && mayLoseChanges(); });
    showTitle();
}

void DrawingFiles::open(const QString &path)
{
    if (mayLoseChanges())
        m_runner.run([&] { read(path); }); // the window lives on meanwhile, as while a program runs
}

void DrawingFiles::read(const QString &path)
{
    try {
        m_document.open(path);
    } catch (const drawing::ReadError &error) {
        return report(QString::fromUtf8(error.what()));
    }
    m_document.machine().searchFolders().push_back(QFileInfo(path).absolutePath().toStdU16String());
    m_window.addRecentFile(QFileInfo(path).absoluteFilePath());
}

bool DrawingFiles::save()
{
    const QString path = m_document.drawing().path();
    return path.isEmpty() ? saveAs() : write(path);
}

bool DrawingFiles::saveAs()
{
    const QString known = m_document.drawing().path();
    QFileDialog dialog(&m_window, tr("Save Drawing"), known.isEmpty() ? QString() : QFileInfo(known).absolutePath(),
                       MainWindow::drawingFilter());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("dxf"));
    dialog.selectFile(known.isEmpty() ? QStringLiteral("Drawing1.dxf") : QFileInfo(known).fileName());
    return dialog.exec() == QDialog::Accepted && write(dialog.selectedFiles().constFirst());
}

bool DrawingFiles::write(const QString &path)
{
    QString failure;
    if (!drawing::saveDrawing(m_document.drawing().database(), path, drawing::Backup::Keep, failure)) {
        report(failure);
        return false;
    }
    m_document.drawing().setPath(path);
    m_document.drawing().noteSaved();
    m_window.addRecentFile(QFileInfo(path).absoluteFilePath());
    showTitle();
    return true;
}

bool DrawingFiles::mayLoseChanges()
{
    if (!m_document.drawing().isModified())
        return true;
    const QMessageBox::StandardButton answer =
        QMessageBox::warning(&m_window, tr("Unsaved changes"), tr("Save the changes to %1?").arg(name()),
                             QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
    return answer == QMessageBox::Discard || (answer == QMessageBox::Save && save());
}

void DrawingFiles::report(const QString &failure)
{
    m_window.commandPanel().startFreshLine();
    m_window.commandPanel().print(failure + u'\n', CommandPanel::Voice::Error);
}

QString DrawingFiles::name()
{
    const QString path = m_document.drawing().path();
    return path.isEmpty() ? QStringLiteral("Drawing1.dxf") : QFileInfo(path).fileName();
}

void DrawingFiles::showTitle()
{
    m_window.setWindowTitle(QStringLiteral("%1[*] – lisphost").arg(name()));
    m_window.setWindowModified(m_document.drawing().isModified());
}
