#pragma once

#include <QStringList>

// A folder that may be written and whose files are in memory and on no disk: one for all users, else the user's own,
// else the temporary folder, wherever that is.
QString memoryFolder();

// The first of these that is one; null when none is.
QString firstMemoryFolder(const QStringList &folders);
