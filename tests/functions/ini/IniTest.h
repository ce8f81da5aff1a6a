#pragma once

#include "functions/ini.h"
#include "tests/support/HandlerTest.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

class IniTest : public HandlerTest
{
protected:
    QString path(const QString &name) const { return m_directory.filePath(name); }

    // The file that most tests use, with this content.
    QString newFile(const QByteArray &content) const
    {
        QFile file(path(QStringLiteral("test.ini")));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        file.write(content);
        return file.fileName();
    }

    // With newlines alone at the ends of lines, where QSettings ends them as the system does.
    static QByteArray content(const QString &name)
    {
        QFile file(name);
        QByteArray bytes = file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("no such file");
#ifdef _WIN32
        bytes.replace("\r\n", "\n");
#endif
        return bytes;
    }

    // Lets other users reach the directory, for what is done without the superuser's rights.
    void openDirectory()
    {
        ASSERT_TRUE(QFile::setPermissions(m_directory.path(), QFile::Permissions(0x7755)));
    }

private:
    QTemporaryDir m_directory;
};

inline const Operations noValue = {"getArgs", "retNil"};

inline Operations stringValue(const char *value)
{
    return {"getArgs", operation("retWStr", value)};
}
