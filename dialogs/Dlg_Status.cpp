#include "dialogs/Dlg_Status.h"

#include "dialogs/WindowFlags.h"

Dlg_Status::Dlg_Status(QWidget *parent) : CFxDialog(parent, true, dialogFlags)
{
    setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false); // closing a dialog never ends the host
}

Dlg_Status::~Dlg_Status() = default;
