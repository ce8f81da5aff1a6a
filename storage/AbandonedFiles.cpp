#include "storage/AbandonedFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>

#ifndef _WIN32
#include <cerrno>
#include <csignal>
#endif

namespace {

const QString suffix = QStringLiteral(".new");

#ifdef _WIN32
// The system does not remove a file that a process has open: to try is enough.
bool isAlive(int)
{
    return false;
}
#else
bool isAlive(int process)
{
    return kill(process, 0) == 0 || errno != ESRCH;
}
#endif

} // namespace

QString ownFileBeside(const QFileInfo &target)
{
    return QStringLiteral("%1.%2%3").arg(target.filePath(), QString::number(QCoreApplication::applicationPid()),
                                         suffix);
}

void removeAbandonedFiles(const QFileInfo &target)
{
    const QString prefix = target.fileName() + u'.';
    QDirIterator files(target.absolutePath(), {u'*' + suffix}, QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        const QString path = files.next(), name = files.fileName();
        if (!name.startsWith(prefix))
            continue;
        bool isNumber = false;
        const int process = QStringView(name).mid(prefix.size()).chopped(suffix.size()).toInt(&isNumber);
        if (isNumber && process > 0 && !isAlive(process))
            QFile::remove(path);
    }
}
