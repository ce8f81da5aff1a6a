#pragma once

#include "sdk/fx/ui/FxUiExport.h"

#include <QMessageBox>

// The host's message box. How exec() runs it is the host's affair.
class FX_UI_EXPORT CFxMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    explicit CFxMessageBox(QWidget *parent = nullptr);
    ~CFxMessageBox() override;

    int exec() override;
};
