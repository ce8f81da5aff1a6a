#pragma once

#include "host/drawing/DrawingWriter.h"
#include "tests/support/PythonScript.h"

namespace drawing {

// What an independent reader of DXF finds wrong with the drawing as it would be saved; empty when nothing.
inline std::string auditOf(const Database &database)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("audited.dxf"));
    QString failure;
    if (!saveDrawing(database, path, Backup::None, failure))
        return failure.toStdString();
    const std::string output = outputOfScript(QStringLiteral(AUDIT_SCRIPT), {path});
    return output == "status 0\n" ? std::string() : output;
}

} // namespace drawing
