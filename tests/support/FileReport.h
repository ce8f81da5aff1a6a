#pragma once

#include <QDateTime>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QTemporaryDir>
#include <QThread>

// What testchild writes into the file that is its first argument: the other ones, a line each.
class FileReport
{
public:
    FileReport() : m_path(m_folder.filePath(QStringLiteral("report"))) {}
    // A file that is there already, and will be replaced by an empty report.
    // It is made an old one, as the child may follow within the same tick of the clock that files have their times by.
    explicit FileReport(const QString &path) : m_path(path)
    {
        QFile file(path);
        if (file.open(QIODevice::ReadWrite))
            file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime);
        file.close();
        m_first = QFileInfo(path).lastModified();
    }

    QString path() const { return m_path; }

    // Waits until the child has written it.
    QStringList lines() const
    {
        QFile file(m_path);
        // On Windows it is there a moment before it may be read.
        if (!wait([&file] { return file.exists() && file.open(QIODevice::ReadOnly); }))
            return {QStringLiteral("no report")};
        QStringList lines = QString::fromUtf8(file.readAll()).split(u'\n');
        lines.removeLast();
        return lines;
    }

    // Whether the child has written its report over the file; waits for that.
    bool isReplaced() const
    {
        return wait([this] { return QFileInfo(m_path).lastModified() != m_first; });
    }

private:
    template <class Condition> static bool wait(Condition condition)
    {
        constexpr int Patience = 10000; // milliseconds
        QElapsedTimer timer;
        timer.start();
        while (!condition()) {
            if (timer.elapsed() > Patience)
                return false;
            QThread::msleep(5);
        }
        return true;
    }

    QTemporaryDir m_folder;
    QString m_path;
    QDateTime m_first;
};
