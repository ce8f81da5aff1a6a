#pragma once

#include "sdk/fx/ui/FxUiExport.h"

#include <QDialog>

// The host's dialog, from which the dialogs of its modules derive.
class FX_UI_EXPORT CFxDialog : public QDialog
{
    Q_OBJECT

public:
    // What the flag selects is the host's affair; modules pass true.
    CFxDialog(QWidget *parent, bool flag, Qt::WindowFlags flags);
    ~CFxDialog() override;
};
