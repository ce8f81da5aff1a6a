#pragma once

#include <QList>

class QDialog;
class QPushButton;
class QWidget;

QString withoutMnemonic(const QString &text); // "&Yes" is "Yes", "&&" a single &

// In the order in which they were made, which no style changes.
QList<QPushButton *> visibleButtons(const QDialog &dialog);

// By text without mnemonic or by object name; null when there is none.
QPushButton *findButton(const QDialog &dialog, const QString &name);

// The widget that takes what a person types: the one with the focus when it is an editor, else the first; null when
// there is none.
QWidget *findEditor(const QDialog &dialog);
