#pragma once

#include "functions/files.h"
#include "tests/support/HandlerTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

// A directory of the test's own, below the current one: the build's file system keeps extended attributes, that of /tmp
// may not. The current directory is as it was when the test ends.
class FilesTest : public HandlerTest
{
protected:
    ~FilesTest() override { QDir::setCurrent(m_startDirectory); }

    QString path(const QString &name) const { return m_directory.filePath(name); }

    QString newFile(const QString &name, const QByteArray &content = {}) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return path(name);
    }

    static QByteArray content(const QString &file)
    {
        QFile opened(file);
        return opened.open(QFile::ReadOnly) ? opened.readAll() : QByteArray("no such file");
    }

private:
    QString m_startDirectory = QDir::currentPath();
    QTemporaryDir m_directory{QDir::current().filePath(QStringLiteral("files-XXXXXX"))};
};
