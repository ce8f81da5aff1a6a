#include "dialogs/Dlg_MTextEditor.h"

#include "dialogs/WindowFlags.h"

Dlg_MTextEditor::Dlg_MTextEditor(QWidget *parent) : CFxDialog(parent, true, dialogFlags)
{
    setupUi(this);
    setAttribute(Qt::WA_QuitOnClose, false); // closing a dialog never ends the host
    connect(okButton, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancelButton, &QPushButton::clicked, this, &QDialog::reject);
    setWindowFlag(Qt::WindowContextHelpButtonHint, false);
}

Dlg_MTextEditor::~Dlg_MTextEditor() = default;
