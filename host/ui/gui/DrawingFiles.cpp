#include "host/ui/gui/DrawingFiles.h"

#include "host/drawing/DrawingWriter.h"
#include "host/kernel/Document.h"
#include "host/ui/gui/MainWindow.h"
#include "host/ui/gui/OpeningProgress.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

DrawingFiles::DrawingFiles(MainWindow &window, Document &document)
    : m_window(window), m_document(document), m_savedChangeCount(document.drawing().database().journal().changeCount())
{
    connect(&window, &MainWindow::drawingChosen, this, &DrawingFiles::open);
    connect(&window, &MainWindow::saveChosen, this, &DrawingFiles::save);
    connect(&window, &MainWindow::saveAsChosen, this, &DrawingFiles::saveAs);
    connect(&window, &MainWindow::closing, this, [this](bool &allowed) { allowed = allowed && mayLoseChanges(); });
    showTitle();
}

void DrawingFiles::open(const QString &path)
{
    if (!mayLoseChanges())
        return;
    try {
        OpeningProgress progress(m_window, tr("Opening %1").arg(QFileInfo(path).fileName()));
        m_document.open(path, [&progress](double share) { progress.show(share); });
    } catch (const drawing::ReadError &error) {
        return report(QString::fromUtf8(error.what()));
    } catch (const OpeningProgress::Cancelled &) {
        return report(tr("%1 was not opened.").arg(QFileInfo(path).fileName()));
    }
    m_savedChangeCount = m_document.drawing().database().journal().changeCount();
    m_document.machine().searchFolders().push_back(QFileInfo(path).absolutePath().toStdU16String());
    m_window.addRecentFile(QFileInfo(path).absoluteFilePath());
    showTitle();
    Q_EMIT opened();
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
    m_savedChangeCount = m_document.drawing().database().journal().changeCount();
    m_window.addRecentFile(QFileInfo(path).absoluteFilePath());
    showTitle();
    return true;
}

bool DrawingFiles::isModified()
{
    return m_document.drawing().database().journal().changeCount() != m_savedChangeCount;
}

bool DrawingFiles::mayLoseChanges()
{
    if (!isModified())
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
    m_window.setWindowModified(isModified());
}
