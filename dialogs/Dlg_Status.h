#pragma once

#include "sdk/fx/ui/CFxDialog.h"

#include "ui_Dlg_Status.h"

// A small modeless window with one text.
class Dlg_Status : public CFxDialog, public Ui::Dlg_Status
{
    Q_OBJECT

public:
    explicit Dlg_Status(QWidget *parent);
    ~Dlg_Status() override;
};
