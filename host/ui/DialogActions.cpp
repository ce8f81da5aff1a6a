#include "host/ui/DialogActions.h"

#include "host/ui/DialogParts.h"

#include <QApplication>
#include <QFileDialog>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>

namespace {

void pressEscape(QDialog &dialog)
{
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &press);
    QKeyEvent release(QEvent::KeyRelease, Qt::Key_Escape, Qt::NoModifier);
    QApplication::sendEvent(&dialog, &release);
}

// In place of the old text, and for the editor as if typed: it can be undone.
void replaceText(QWidget *editor, const QString &text)
{
    if (auto *line = qobject_cast<QLineEdit *>(editor)) {
        line->selectAll();
        line->insert(text);
    } else if (auto *richText = qobject_cast<QTextEdit *>(editor)) {
        richText->selectAll();
        richText->insertPlainText(text);
    } else if (auto *plainText = qobject_cast<QPlainTextEdit *>(editor)) {
        plainText->selectAll();
        plainText->insertPlainText(text);
    }
}

// As a typed name with Enter: the dialog checks it, and asks before it overwrites.
void chooseFile(QDialog &dialog, const QString &path)
{
    if (auto *name = dialog.findChild<QLineEdit *>())
        replaceText(name, path);
    QMetaObject::invokeMethod(&dialog, "accept");
}

} // namespace

bool suits(const Answer &answer, const QDialog &dialog)
{
    switch (answer.kind) {
    case Answer::Kind::Escape:
        return true;
    case Answer::Kind::Press: {
        const QPushButton *button = findButton(dialog, answer.argument);
        return button != nullptr && button->isEnabled();
    }
    case Answer::Kind::Text:
        return findEditor(dialog) != nullptr;
    case Answer::Kind::File:
        return qobject_cast<const QFileDialog *>(&dialog) != nullptr;
    default:
        return false;
    }
}

void perform(const Answer &answer, QDialog &dialog)
{
    switch (answer.kind) {
    case Answer::Kind::Press:
        findButton(dialog, answer.argument)->click();
        break;
    case Answer::Kind::Text:
        replaceText(findEditor(dialog), answer.argument);
        break;
    case Answer::Kind::File:
        chooseFile(dialog, answer.argument);
        break;
    default:
        pressEscape(dialog);
    }
}

void dismiss(QDialog &dialog)
{
    pressEscape(dialog);
    if (dialog.isVisible())
        dialog.done(QDialog::Rejected);
    if (dialog.isVisible())
        dialog.hide(); // ends its event loop even when it overrides all else
}
