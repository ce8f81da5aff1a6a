#pragma once

#include "sdk/fx/ui/CFxDialog.h"

#include "ui_Dlg_MTextEditor.h"

// An editor for a few lines of plain text, with a label above it.
class Dlg_MTextEditor : public CFxDialog, public Ui::Dlg_MTextEditor
{
    Q_OBJECT

public:
    explicit Dlg_MTextEditor(QWidget *parent);
    ~Dlg_MTextEditor() override;
};
