#include "host/ui/FileChooser.h"

#include <QDir>
#include <QFileDialog>

std::optional<QString> chooseFileInDialog(QWidget *parent, const FileRequest &request)
{
    const bool saving = request.mode == FileRequest::Mode::Save;
    // Without a folder Qt would begin where the last dialog of this run ended.
    QFileDialog dialog(parent, request.title, request.folder.isEmpty() ? QDir::currentPath() : request.folder);
    dialog.setAcceptMode(saving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
    dialog.setFileMode(saving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
    dialog.setNameFilters(request.nameFilters);
    dialog.setDefaultSuffix(request.extension);
    dialog.setOption(QFileDialog::DontConfirmOverwrite, request.overwriting == FileRequest::Overwriting::Silent);
    dialog.selectFile(request.fileName);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return std::nullopt;
    return dialog.selectedFiles().constFirst();
}
