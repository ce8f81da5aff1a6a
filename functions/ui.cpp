#include "functions/ui.h"

#include "dialogs/Dlg_MTextEditor.h"
#include "dialogs/Dlg_QT_ShowHtmlModalWindow.h"
#include "dialogs/Dlg_Status.h"
#include "functions/HostWindows.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/ArgumentChecker.h"
#include "lisp/LispStatus.h"
#include "lisp/Values.h"
#include "sdk/fx/CFxString.h"
#include "sdk/fx/CFxSystemServices.h"

#include <QPointer>
#include <QProcess>

// Which argument node a handler hands back to the interpreter differs from handler to handler, and is part of its
// contract. Some look at the type codes themselves, because they answer wrong arguments with silence.

namespace {

constexpr int EditorPatienceMilliseconds = 30000;
constexpr int EditorStarted = 32; // given whatever became of the program: LISP programs rely on it

QString textOrEmpty(const resbuf *node)
{
    return isString(node) ? textOf(node) : QString();
}

// The one dialog of its kind: made at its first use with the host's main window as parent, which owns it and takes it
// along, and used again and again until then.
template <class Dialog> Dialog &onlyDialog()
{
    static QPointer<Dialog> dialog;
    if (dialog.isNull())
        dialog = new Dialog(hostMainWindow());
    return *dialog;
}

void showStatus(const QString &message, const QString &title)
{
    auto &window = onlyDialog<Dlg_Status>();
    window.setWindowFlag(Qt::WindowContextHelpButtonHint, false);
    window.setFixedSize(window.size());
    window.setWindowTitle(title);
    window.Message->setText(message);
    if (!window.isVisible())
        window.show();
}

} // namespace

int acetUiStatus()
{
    resbuf *first = activeLispHost()->getArgs();
    resbuf *last = first;
    if (isString(first)) {
        last = first->rbnext;
        showStatus(textOf(first), textOrEmpty(last));
    }
    activeLispHost()->retNil();
    activeLispHost()->releaseRb(last);
    return StatusNormal;
}

int acetUiProgress()
{
    resbuf *first = activeLispHost()->getArgs();
    if (first == nullptr) {
        activeLispHost()->progressEnd();
        activeLispHost()->retNil();
        return StatusNormal;
    }
    resbuf *last = first;
    if (first->restype == TypeString) {
        // The maximum is not handed on: the host's meter chooses its own range.
        activeLispHost()->progressStart(first->resval.string);
        activeLispHost()->retT();
        last = first->rbnext;
    } else if (first->restype == TypeShort) {
        const int position = first->resval.shortInteger;
        if (activeLispHost()->progressSet(position) != 0)
            activeLispHost()->retInt(position);
        else
            activeLispHost()->retNil();
    }
    activeLispHost()->releaseRb(last);
    return StatusNormal;
}

int acetUiTxted()
{
    auto &dialog = onlyDialog<Dlg_MTextEditor>();
    QString title;
    QString subtitle;
    QString text;
    // What is refused stays empty, and the dialog is shown all the same.
    if (const resbuf *textNode = checkArgument(TypeString, activeLispHost()->getArgs())) {
        text = textOf(textNode);
        resbuf *subtitleNode = nullptr;
        if (const resbuf *titleNode = checkArgument(TypeString, textNode->rbnext)) {
            title = textOf(titleNode);
            subtitleNode = checkArgument(TypeString, titleNode->rbnext);
            if (subtitleNode != nullptr)
                subtitle = textOf(subtitleNode);
        }
        activeLispHost()->releaseRb(subtitleNode);
    }
    dialog.setWindowTitle(title);
    dialog.labelSubtitle->setText(subtitle);
    dialog.textEditor->setPlainText(text);
    if (dialog.exec() == QDialog::Accepted)
        returnText(dialog.textEditor->toPlainText());
    else
        activeLispHost()->retNil();
    return StatusNormal;
}

int editRtext()
{
    const resbuf *programNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (programNode == nullptr) {
        activeLispHost()->retNil();
        return StatusNormal;
    }
    resbuf *argumentsNode = programNode->rbnext;
    const QStringList arguments = textOrEmpty(argumentsNode).split(u','); // no text: one empty argument
    // Not deleted here: a program that takes longer goes on, and the main window owns the object.
    auto *process = new QProcess(hostMainWindow());
    process->start(textOf(programNode), arguments, QIODevice::ReadWrite);
    process->waitForFinished(EditorPatienceMilliseconds);
    activeLispHost()->retInt(EditorStarted);
    activeLispHost()->releaseRb(argumentsNode);
    return StatusNormal;
}

int showhtmlmodalwindow()
{
    resbuf *pageNode = checkArgument(TypeString, activeLispHost()->getArgs());
    if (pageNode == nullptr)
        return StatusNormal;
    auto &window = onlyDialog<Dlg_QT_ShowHtmlModalWindow>();
    window.setPage(textOf(pageNode));
    window.exec();
    activeLispHost()->releaseRb(pageNode);
    return StatusNormal;
}

int wexoHtmlprompt()
{
    resbuf *textNode = activeLispHost()->getArgs();
    if (!isString(textNode))
        return StatusNormal;
    CFxSystemServices *services = GetFxSystemServices();
    if (services != nullptr)
        services->htmlPrompt(CFxString(textNode->resval.string), false);
    activeLispHost()->releaseRb(textNode);
    return StatusNormal;
}
