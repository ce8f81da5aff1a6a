#pragma once

#include "platform/ui/MessageBox.h"

#include <QMap>
#include <QMessageBox>

// The window behind MessageBoxW.
class NativeMessageBox final : public QMessageBox
{
public:
    static bool understands(UINT type);

    NativeMessageBox(QWidget *owner, UINT type); // a type that it understands

    int run(); // the ID of the pressed button; 0 when the box went away without one

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

private:
    void addButtons(UINT type);
    QPushButton *addHelpButton();
    void setIconOf(UINT type);
    void setModalityOf(UINT type);
    void setTextDirectionOf(UINT type);

    bool canBeClosed() const { return escapeButton() != nullptr; }

    QMap<QAbstractButton *, int> m_ids;
};
