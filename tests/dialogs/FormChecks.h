#pragma once

#include <QDialog>
#include <QLayout>
#include <QMargins>
#include <QSizePolicy>

// Checks of what every form says of its parts.

void expectDialogFlags(const QDialog &dialog); // title, system menu and close button, and nothing else
void expectDoesNotQuit(const QDialog &dialog); // closing it never ends the host
void expectPolicy(const QWidget &widget, QSizePolicy::Policy horizontal, QSizePolicy::Policy vertical);
void expectSpacer(const QLayoutItem *item); // the one that pushes buttons to the right
void expectIcon(const QIcon &icon, const QString &resource);
