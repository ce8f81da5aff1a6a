#pragma once

#include <QString>

class QWidget;

// Shows a plain text until the user presses OK.
void showAlertBox(QWidget *parent, const QString &text);
