#pragma once

#include "host/commands/Context.h"

#include <QString>

namespace commands {

// Drawings are DXF files: a name with another ending, or none, has ".dxf" in its place.
QString dxfName(const std::u16string &typed);

// What of a drawing's file was not understood, for the user; empty when all was.
QString oddityNote(const drawing::Database &database);

// Where a file is there already, asks whether it shall be replaced. Throws CommandError when not.
Command confirmReplacing(Context &context, const QString path);

// Saves a drawing, which need not be the open one, and says so. Throws CommandError when that fails.
void writeDrawing(Context &context, const drawing::Database &database, const QString &path);

} // namespace commands
