#include "sdk/fx/ui/CFxDialog.h"
#include "sdk/fx/ui/CFxMessageBox.h"

CFxDialog::CFxDialog(QWidget *parent, bool, Qt::WindowFlags flags) : QDialog(parent, flags) {}
CFxDialog::~CFxDialog() = default;

CFxMessageBox::CFxMessageBox(QWidget *parent) : QMessageBox(parent) {}
CFxMessageBox::~CFxMessageBox() = default;

// A program waits for the answer: nothing else of the host may be used meanwhile.
int CFxMessageBox::exec()
{
    setWindowModality(Qt::ApplicationModal);
    return QMessageBox::exec();
}
