#include "functions/filedialogs.h"

#include "functions/HostWindows.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"

#include <QDir>
#include <QFileDialog>

#include <array>

namespace {

// Four strings and the flags. Both dialogs for files read them alike, and neither uses the fourth string.
struct FileArguments
{
    std::array<resbuf *, 4> strings = {};
    resbuf *flags = nullptr; // null when the reading stopped early: the call has been answered
};

FileArguments readFileArguments()
{
    FileArguments arguments;
    resbuf *next = activeLispHost()->getArgs();
    for (resbuf *&string : arguments.strings) {
        string = checkArgument(TypeString, next);
        if (string == nullptr)
            return arguments;
        next = string->rbnext;
    }
    arguments.flags = checkArgument(TypeShort, next);
    return arguments;
}

void returnPath(const QString &path)
{
    if (path.isEmpty())
        activeLispHost()->retNil();
    else
        returnText(path);
}

QString askForSavedFile(const QString &title, const QString &folder, const QString &filter)
{
    QFileDialog dialog(hostMainWindow());
    dialog.setWindowTitle(title);
    dialog.setNameFilter(filter);
    dialog.setDirectory(folder);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setAttribute(Qt::WA_QuitOnClose, false); // closing a dialog never ends the host
    const QStringList paths = dialog.exec() == QDialog::Accepted ? dialog.selectedFiles() : QStringList();
    return paths.value(0);
}

QString startFolder(const QString &wanted)
{
    const QDir folder(wanted);
    return !wanted.isEmpty() && folder.exists() ? folder.path() : QDir::rootPath();
}

} // namespace

int acetFileReaddialog()
{
    const FileArguments arguments = readFileArguments();
    if (arguments.flags != nullptr) {
        const auto &[title, defaultName, extension, unused] = arguments.strings;
        const int flags = arguments.flags->resval.shortInteger;
        resbuf result = {}; // its text stays the host's
        const int status = activeLispHost()->getFileDialog(title->resval.string, defaultName->resval.string,
                                                           extension->resval.string, flags, &result);
        if (status == StatusNormal)
            activeLispHost()->retWStr(result.resval.string);
        else
            activeLispHost()->retNil();
    }
    activeLispHost()->releaseRb(arguments.flags);
    return StatusNormal;
}

int acetFileWritedialog()
{
    const FileArguments arguments = readFileArguments();
    if (arguments.flags != nullptr) {
        const auto &[title, folder, filter, unused] = arguments.strings;
        returnPath(askForSavedFile(textOf(title), textOf(folder), textOf(filter)));
    }
    activeLispHost()->releaseRb(arguments.flags);
    return StatusNormal;
}

int acetUiPickdir()
{
    // The first text is read and not used. Whatever is missing or refused, the dialog is shown with the rest.
    std::array<QString, 3> texts;
    resbuf *last = nullptr;
    resbuf *next = activeLispHost()->getArgs();
    for (QString &text : texts) {
        last = checkArgument(TypeString, next, Presence::Optional);
        if (last == nullptr)
            break;
        text = textOf(last);
        next = last->rbnext;
    }
    const auto &[unused, folder, caption] = texts;
    returnPath(QFileDialog::getExistingDirectory(activeDocumentWindow(), caption, startFolder(folder),
                                                 QFileDialog::ShowDirsOnly));
    if (last != nullptr)
        activeLispHost()->releaseRb(last);
    return StatusNormal;
}
