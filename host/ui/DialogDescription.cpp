#include "host/ui/DialogDescription.h"

#include "host/ui/DialogParts.h"
#include "host/ui/TextBrowserView.h"

#include <QFileDialog>
#include <QJsonArray>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

QString iconName(QMessageBox::Icon icon)
{
    switch (icon) {
    case QMessageBox::Information:
        return QStringLiteral("information");
    case QMessageBox::Warning:
        return QStringLiteral("warning");
    case QMessageBox::Critical:
        return QStringLiteral("critical");
    case QMessageBox::Question:
        return QStringLiteral("question");
    default:
        return QStringLiteral("none");
    }
}

QJsonArray buttonTexts(const QDialog &dialog)
{
    QJsonArray texts;
    for (const QPushButton *button : visibleButtons(dialog))
        texts += withoutMnemonic(button->text());
    return texts;
}

// Qt's own parts of a dialog have names that begin so.
bool isInternal(const QLabel *label)
{
    return label->objectName().isEmpty() || label->objectName().startsWith(u"qt_");
}

QJsonObject labelTexts(const QDialog &dialog)
{
    QJsonObject labels;
    for (const QLabel *label : dialog.findChildren<QLabel *>())
        if (!isInternal(label) && label->isVisibleTo(&dialog))
            labels.insert(label->objectName(), label->text());
    return labels;
}

QString textOfContents(const QDialog &dialog)
{
    if (const auto *browser = dialog.findChild<QTextBrowser *>())
        return givenPage(*browser);
    if (const auto *editor = dialog.findChild<QPlainTextEdit *>())
        return editor->toPlainText();
    const QList<QLabel *> labels = dialog.findChildren<QLabel *>();
    return labels.size() == 1 ? labels.constFirst()->text() : QString();
}

void describeFileDialog(TranscriptEvent &event, const QFileDialog &dialog)
{
    event.add(u"directory", dialog.directory().path());
    event.add(u"filters", QJsonArray::fromStringList(dialog.nameFilters()));
}

} // namespace

QString dialogText(const QDialog &dialog)
{
    if (const auto *box = qobject_cast<const QMessageBox *>(&dialog))
        return box->text();
    if (qobject_cast<const QFileDialog *>(&dialog)) {
        const auto *name = dialog.findChild<QLineEdit *>();
        return name ? name->text() : QString();
    }
    return textOfContents(dialog);
}

void describeDialog(TranscriptEvent &event, const QDialog &dialog)
{
    event.add(u"class", QString::fromLatin1(dialog.metaObject()->className()));
    event.add(u"title", dialog.windowTitle());
    event.add(u"text", dialogText(dialog));
    if (const auto *browser = dialog.findChild<QTextBrowser *>())
        event.add(u"shown", browser->toPlainText());
    if (const auto *box = qobject_cast<const QMessageBox *>(&dialog))
        event.add(u"icon", iconName(box->icon()));
    event.add(u"buttons", buttonTexts(dialog));
    if (const auto *fileDialog = qobject_cast<const QFileDialog *>(&dialog))
        describeFileDialog(event, *fileDialog);
    else if (const QJsonObject labels = labelTexts(dialog); !labels.isEmpty())
        event.add(u"labels", labels);
    event.add(u"width", dialog.width()).add(u"height", dialog.height());
}

QString dialogName(const QDialog &dialog)
{
    return QStringLiteral("%1 \"%2\"").arg(QString::fromLatin1(dialog.metaObject()->className()), dialog.windowTitle());
}
