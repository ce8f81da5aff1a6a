#pragma once

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Each test has a folder of its own.
class StorageTest : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_folder.filePath(name); }
    QStringList names() const { return QDir(m_folder.path()).entryList(QDir::Files | QDir::Hidden, QDir::Name); }

    QByteArray contentOf(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }

    void write(const QString &name, const QByteArray &content) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    QString m_failure;

private:
    QTemporaryDir m_folder;
};
