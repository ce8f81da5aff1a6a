#pragma once

#include "platform/FileAttributes.h"
#include "tests/support/ExtendedAttributes.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/xattr.h>

// A directory below the current one: the file system of the build keeps extended attributes, that of /tmp may not.
class AttributeFixture : public testing::Test
{
protected:
    QString path(const QString &name) const { return m_directory.filePath(name); }

    QString newFile(const QString &name) const
    {
        QFile file(path(name));
        EXPECT_TRUE(file.open(QFile::WriteOnly));
        return path(name);
    }

    static DWORD attributes(const QString &file) { return GetFileAttributesW(file.toStdU16String().c_str()); }

    static bool setAttributes(const QString &file, DWORD word)
    {
        return SetFileAttributesW(file.toStdU16String().c_str(), word) == TRUE;
    }

    static mode_t mode(const QString &file)
    {
        struct stat information = {};
        EXPECT_EQ(stat(QFile::encodeName(file).constData(), &information), 0);
        return information.st_mode & 07777;
    }

    static bool setMode(const QString &file, mode_t mode)
    {
        return chmod(QFile::encodeName(file).constData(), mode) == 0;
    }

    static std::string stored(const QString &file)
    {
        std::string value(64, '\0');
        const ssize_t size =
            getxattr(QFile::encodeName(file).constData(), "user.DOSATTRIB", value.data(), value.size());
        return size < 0 ? "none" : value.substr(0, static_cast<std::size_t>(size));
    }

    static bool store(const QString &file, std::string_view value)
    {
        return setxattr(QFile::encodeName(file).constData(), "user.DOSATTRIB", value.data(), value.size(), 0) == 0;
    }

private:
    QTemporaryDir m_directory{QDir::current().filePath(QStringLiteral("attributes-XXXXXX"))};
};

// For what needs the extended attribute.
class StoredAttributeFixture : public AttributeFixture
{
protected:
    void SetUp() override
    {
        if (!keepsExtendedAttributes(QFile::encodeName(path(QString())).constData()))
            GTEST_SKIP() << "the file system of the build keeps no extended attributes";
    }
};
