#pragma once

#include "host/kernel/profile/ProfileStore.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// A store in a folder of its own that is not made yet.
class ProfileStoreTest : public testing::Test
{
protected:
    QString folder() const { return m_folder.filePath(QStringLiteral("100%1 profile%2")); }
    QString file(const char *suffix = "") const { return folder() + u"/settings.ini"_qs + QLatin1String(suffix); }

    ProfileStore store()
    {
        return {folder(), [this](const QString &text) { m_warnings += text.toStdString() + '\n'; }};
    }

    // The value, "none" where there is none, "failure".
    static std::string read(ProfileStore &store, const QString &key)
    {
        return store.value(u"s"_qs, key, u"none"_qs).value_or(u"failure"_qs).toStdString();
    }

    std::string contentOf(const QString &path) const
    {
        QFile source(path);
        return source.open(QIODevice::ReadOnly) ? source.readAll().toStdString() : "cannot be read";
    }

    void writeFile(const QByteArray &content) const
    {
        ASSERT_TRUE(QDir().mkpath(folder()));
        QFile target(file());
        ASSERT_TRUE(target.open(QIODevice::WriteOnly));
        ASSERT_EQ(target.write(content), content.size());
    }

    std::string m_warnings;

private:
    QTemporaryDir m_folder;
};
