#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// The system's folders whose files are in memory and on no disk: the one for all users, then the user's own.
QStringList memoryFolders();

// Those of the folders that are such ones.
QStringList foldersInMemory(const QStringList &folders);

// A new folder that goes away with this object, in the first of the parents where one can be made: not where the file
// system is full or may not be written. Where none will do, what the last one said; there must be one.
std::unique_ptr<QTemporaryDir> newFolderInFirst(const QStringList &parents);
