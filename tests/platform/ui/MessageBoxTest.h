#pragma once

#include "platform/LastError.h"
#include "platform/ui/MessageBox.h"
#include "tests/support/DialogWatcher.h"

#include <QMessageBox>
#include <QPushButton>

#include <gtest/gtest.h>

// Boxes with a person who was told beforehand what to do with them.
class MessageBoxTest : public testing::Test
{
protected:
    using Look = std::function<void(QMessageBox &)>;

    // The result of a box of this type that is looked at and then treated so.
    int show(
        UINT type, DialogWatcher::Action action, Look look = [](QMessageBox &) {}, QWidget *owner = nullptr)
    {
        m_person.expect([=](QDialog &dialog) {
            look(dynamic_cast<QMessageBox &>(dialog));
            action(dialog);
        });
        return MessageBoxW(owner, u"text", u"caption", type);
    }

    DialogWatcher &person() { return m_person; }

private:
    DialogWatcher m_person;
};

inline void closeByItsButton(QDialog &dialog)
{
    dialog.close();
}
