#pragma once

#include <QDeadlineTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <string>

// What a script prints that the Python of this machine runs, on both streams, and "status N" as its last line.
inline std::string outputOfScript(const QString &script, const QStringList &arguments)
{
    constexpr int Patience = 300'000; // milliseconds
    const QTemporaryDir folder;
    QFile output(folder.filePath(QStringLiteral("output")));
    QProcess::startDetached(QStringLiteral(RUN_INTO_FILE),
                            QStringList{output.fileName(), QStringLiteral(EZDXF_PYTHON), script} + arguments);
    for (const QDeadlineTimer deadline(Patience); !output.exists() && !deadline.hasExpired();)
        QThread::msleep(10);
    return output.open(QIODevice::ReadOnly) ? output.readAll().toStdString() : "the script did not run";
}
