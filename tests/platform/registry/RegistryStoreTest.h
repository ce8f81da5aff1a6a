#pragma once

#include "platform/Registry.h"
#include "platform/RegistrySetup.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

// Each test has a registry folder of its own, with helpers that name values of HKEY_CURRENT_USER\Software\Test.
class RegistryStoreTest : public testing::Test
{
protected:
    static constexpr char16_t Key[] = u"Software\\Test";

    RegistryStoreTest()
    {
        restart();
        warnings().clear();
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) { warnings() << text; });
    }
    ~RegistryStoreTest() { qInstallMessageHandler(nullptr); }

    // What was said on standard error.
    static QStringList &warnings()
    {
        static QStringList texts;
        return texts;
    }

    // As a new process would begin.
    void restart() { setUpRegistry(m_folder.path(), {QStringLiteral("HKEY_CURRENT_USER\\Software\\Test")}); }

    QString folder() const { return m_folder.path(); }
    QString hive() const { return m_folder.filePath(QStringLiteral("registry/HKEY_CURRENT_USER.reg")); }
    QStringList files() const
    {
        return QDir(m_folder.filePath(QStringLiteral("registry"))).entryList(QDir::Files, QDir::Name);
    }
    QStringList copies() const { return files().filter(QStringLiteral(".damaged-")); }

    static QByteArray contentOf(const QString &name)
    {
        QFile file(name);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("cannot be read");
    }
    static void write(const QString &name, const QByteArray &content)
    {
        ASSERT_TRUE(QDir().mkpath(QFileInfo(name).path()));
        QFile file(name);
        ASSERT_TRUE(file.open(QFile::WriteOnly));
        ASSERT_EQ(file.write(content), content.size());
    }

    static LSTATUS set(const char16_t *name, const QByteArray &data)
    {
        HKEY key = nullptr;
        LSTATUS status = RegOpenKeyExW(HKEY_CURRENT_USER, Key, 0, KEY_WRITE, &key);
        if (status == 0)
            status = RegSetValueExW(key, name, 0, REG_BINARY, reinterpret_cast<const BYTE *>(data.constData()),
                                    static_cast<DWORD>(data.size()));
        RegCloseKey(key);
        return status;
    }
    static QByteArray get(const char16_t *name)
    {
        HKEY key = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, Key, 0, KEY_READ, &key) != 0)
            return "no key";
        QByteArray bytes(100'000, '\0');
        DWORD size = 100'000;
        const LSTATUS status =
            RegQueryValueExW(key, name, nullptr, nullptr, reinterpret_cast<BYTE *>(bytes.data()), &size);
        RegCloseKey(key);
        return status == 0 ? bytes.left(static_cast<qsizetype>(size)) : QByteArray("missing");
    }

private:
    QTemporaryDir m_folder;
};
