#pragma once

#include "host/drawing/DrawingWriter.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <string>

namespace drawing {

// What an independent reader of DXF finds wrong with the drawing as it would be saved; empty when nothing.
inline std::string auditOf(const Database &database)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("audited.dxf"));
    QString failure;
    if (!saveDrawing(database, path, Backup::None, failure))
        return failure.toStdString();
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(EZDXF_PYTHON), {QStringLiteral(AUDIT_SCRIPT), path});
    if (!process.waitForFinished() || process.exitStatus() != QProcess::NormalExit)
        return "the audit did not run: " + process.errorString().toStdString();
    const std::string output = process.readAll().toStdString();
    return process.exitCode() == 0 ? output : output + "(exit code " + std::to_string(process.exitCode()) + ")";
}

} // namespace drawing
