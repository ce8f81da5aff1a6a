#pragma once

class QString;

// Whether the file is a library of this system with all the parts that its header promises. The system's own loader
// maps what it is given: a copy that was cut short would end the program by a signal.
bool isWholeLibrary(const QString &path);
