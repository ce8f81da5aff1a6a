#include "tests/support/DialogWatcher.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <QPushButton>

#include <gtest/gtest.h>

DialogWatcher::DialogWatcher()
{
    qApp->installEventFilter(this);
}

DialogWatcher::~DialogWatcher()
{
    EXPECT_TRUE(m_actions.empty()) << m_actions.size() << " expected dialogs were not shown";
}

bool DialogWatcher::eventFilter(QObject *watched, QEvent *event)
{
    auto *dialog = event->type() == QEvent::Show ? qobject_cast<QDialog *>(watched) : nullptr;
    if (dialog && dialog->isModal()) {
        const QPointer shown(dialog);
        QMetaObject::invokeMethod(
            this,
            [this, shown] {
                if (shown)
                    act(*shown);
            },
            Qt::QueuedConnection);
    }
    return false;
}

void DialogWatcher::act(QDialog &dialog)
{
    ++m_shown;
    if (m_actions.empty()) {
        ADD_FAILURE() << "unexpected dialog " << dialog.metaObject()->className();
        dialog.done(0);
        return;
    }
    const Action action = std::move(m_actions.front());
    m_actions.pop_front();
    action(dialog);
    if (dialog.isVisible()) {
        ADD_FAILURE() << "the dialog is still open";
        dialog.done(0);
    }
}

DialogWatcher::Action press(const QString &buttonText)
{
    return [buttonText](QDialog &dialog) {
        for (QPushButton *button : dialog.findChildren<QPushButton *>()) {
            if (button->text() == buttonText)
                return button->click();
        }
        ADD_FAILURE() << "no button " << buttonText.toStdString();
    };
}

DialogWatcher::Action pressKey(Qt::Key key)
{
    return [key](QDialog &dialog) {
        QWidget *target = dialog.focusWidget() != nullptr ? dialog.focusWidget() : &dialog;
        for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(type, key, Qt::NoModifier);
            QApplication::sendEvent(target, &event);
        }
    };
}
