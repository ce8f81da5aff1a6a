#include "host/ui/DialogParts.h"

#include <QDialog>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTextEdit>

#include <algorithm>

namespace {

bool isEditor(const QWidget *widget)
{
    if (const auto *line = qobject_cast<const QLineEdit *>(widget))
        return !line->isReadOnly();
    if (const auto *text = qobject_cast<const QTextEdit *>(widget))
        return !text->isReadOnly();
    const auto *plainText = qobject_cast<const QPlainTextEdit *>(widget);
    return plainText != nullptr && !plainText->isReadOnly();
}

} // namespace

QString withoutMnemonic(const QString &text)
{
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'&' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return result;
}

QList<QPushButton *> visibleButtons(const QDialog &dialog)
{
    QList<QPushButton *> buttons = dialog.findChildren<QPushButton *>();
    buttons.removeIf(
        [&](const QPushButton *button) { return !button->isVisibleTo(&dialog) || button->text().isEmpty(); });
    return buttons;
}

QPushButton *findButton(const QDialog &dialog, const QString &name)
{
    const QList<QPushButton *> buttons = visibleButtons(dialog);
    const auto found = std::find_if(buttons.begin(), buttons.end(), [&](const QPushButton *button) {
        return withoutMnemonic(button->text()) == name || button->objectName() == name;
    });
    return found != buttons.end() ? *found : nullptr;
}

QWidget *findEditor(const QDialog &dialog)
{
    if (isEditor(dialog.focusWidget()))
        return dialog.focusWidget();
    for (QWidget *widget : dialog.findChildren<QWidget *>())
        if (isEditor(widget) && widget->isVisibleTo(&dialog))
            return widget;
    return nullptr;
}
