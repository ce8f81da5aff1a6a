#include "host/ui/AlertBox.h"

#include <QMessageBox>

void showAlertBox(QWidget *parent, const QString &text)
{
    QMessageBox box(QMessageBox::Warning, QStringLiteral("Alert"), text, QMessageBox::Ok, parent);
    box.setTextFormat(Qt::PlainText);
    box.exec();
}
