#include "storage/AbandonedFiles.h"

#include <QCoreApplication>
#include <QDir>
#include <QDirIterator>

#ifndef _WIN32
#include <cerrno>
#include <csignal>
#endif

namespace {

constexpr QLatin1String Suffix(".new");

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
    return target.filePath() + u'.' + QString::number(QCoreApplication::applicationPid()) + Suffix;
}

void removeAbandonedFiles(const QFileInfo &target)
{
    const QString prefix = target.fileName() + u'.';
    QDirIterator files(target.absolutePath(), {u'*' + QString(Suffix)}, QDir::Files | QDir::Hidden);
    while (files.hasNext()) {
        const QString path = files.next(), name = files.fileName();
        QStringView number = QStringView(name).mid(prefix.size());
        if (!name.startsWith(prefix) || !number.endsWith(Suffix))
            continue; // also FILE.new, which a process with a lock writes
        number.chop(Suffix.size());
        bool isNumber = false;
        const int process = number.toInt(&isNumber);
        if (isNumber && process > 0 && !isAlive(process))
            QFile::remove(path);
    }
}
