#pragma once

#include <QString>

class QWidget;

// Shows a text with HTML tags, or a page, until the user closes it.
void showHtmlDialog(QWidget *parent, const QString &text);
