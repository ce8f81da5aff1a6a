#pragma once

#include <QFileInfo>

// Where a process that has no lock writes the new content of a file: FILE.NUMBER.new, with the number of the process.
QString ownFileBeside(const QFileInfo &target);

// Removes what processes that no longer live have left there. A number that another process has by now keeps its file
// until that one ends too. The number of a process in another container may look free; a save that loses its file so
// fails with a message, and the drawing stays as it is.
void removeAbandonedFiles(const QFileInfo &target);
