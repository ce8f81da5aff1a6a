#include "host/ui/HtmlDialog.h"

#include "host/ui/TextBrowserView.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>

void showHtmlDialog(QWidget *parent, const QString &text)
{
    QDialog dialog(parent);
    dialog.setObjectName(QStringLiteral("htmlPrompt"));
    dialog.setWindowTitle(QStringLiteral("Message"));
    dialog.resize(480, 320);
    TextBrowserView view;
    view.openPage(text);
    QDialogButtonBox buttons(QDialogButtonBox::Ok);
    QVBoxLayout layout(&dialog);
    layout.addWidget(view.widget());
    layout.addWidget(&buttons);
    QObject::connect(&buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    dialog.exec();
}
