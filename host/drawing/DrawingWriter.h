#pragma once

#include "host/drawing/Database.h"

#include <functional>
#include <string_view>

namespace drawing {

// Writes the drawing piece by piece: what is not changed as it was read, in pieces as long as can be. `write` gives
// false to stop; then so does this. The pieces live as long as the call.
bool writeDrawing(const Database &database, const std::function<bool(std::string_view)> &write);

// The whole drawing in memory of its own.
std::string writtenDrawing(const Database &database);

enum class Backup { None, Keep };

// Replaces the file in one step (see storage/AtomicFile.h). Keep: what was there before stays as FILE.bak, in the place
// of an older one, where FILE is the name without its ending. When it fails, `failure` says why, for the user, and the
// file is as it was.
bool saveDrawing(const Database &database, const QString &path, Backup backup, QString &failure);

} // namespace drawing
