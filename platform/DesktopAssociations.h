#pragma once

#include <QStringList>

// The program that the desktop's settings name for the file or URL, and its arguments, in which the field codes of
// desktop entries (Exec) are left; empty when there is none. https://specifications.freedesktop.org/desktop-entry-spec
QStringList desktopCommand(const QString &fileOrUrl);
