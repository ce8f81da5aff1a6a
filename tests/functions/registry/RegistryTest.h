#pragma once

#include "functions/registry.h"
#include "platform/Registry.h"
#include "platform/RegistrySetup.h"
#include "tests/support/HandlerTest.h"

#include <QTemporaryDir>

// Each test has a registry of its own, on Windows a key of its own, with the key below for its values.
class RegistryTest : public HandlerTest
{
protected:
    static constexpr char16_t Key[] = u"Software\\LispExtension tests";
    static constexpr char16_t Path[] = u"HKEY_CURRENT_USER\\Software\\LispExtension tests";

    RegistryTest()
    {
        setUpRegistry(m_folder.path());
        addKey(HKEY_CURRENT_USER, Key);
    }
    ~RegistryTest() { RegDeleteTreeW(HKEY_CURRENT_USER, windowsText(Key)); }

    void addKey(HKEY root, const char16_t *path)
    {
        HKEY key = nullptr;
        EXPECT_EQ(RegCreateKeyExW(root, windowsText(path), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr), 0);
        RegCloseKey(key);
    }

    void set(const char16_t *name, DWORD type, const QByteArray &data, HKEY root = HKEY_CURRENT_USER,
             const char16_t *path = Key)
    {
        const QByteArray padded = data + "\xff\xff"; // a zero unit behind a text would be stored with it
        HKEY key = nullptr;
        ASSERT_EQ(RegOpenKeyExW(root, windowsText(path), 0, KEY_WRITE, &key), 0);
        EXPECT_EQ(RegSetValueExW(key, windowsText(name), 0, type, reinterpret_cast<const BYTE *>(padded.constData()),
                                 static_cast<DWORD>(data.size())),
                  0);
        RegCloseKey(key);
    }

    // What stands in the registry, "missing" where nothing does.
    QByteArray data(const char16_t *name, HKEY root = HKEY_CURRENT_USER, const char16_t *path = Key)
    {
        HKEY key = nullptr;
        if (RegOpenKeyExW(root, windowsText(path), 0, KEY_READ, &key) != 0)
            return "no key";
        DWORD size = 8192;
        QByteArray bytes(8192, '\0');
        const LSTATUS status =
            RegQueryValueExW(key, windowsText(name), nullptr, nullptr, reinterpret_cast<BYTE *>(bytes.data()), &size);
        RegCloseKey(key);
        return status == 0 ? bytes.left(static_cast<qsizetype>(size)) : QByteArray("missing");
    }

    static QByteArray bytesOf(const std::u16string &units)
    {
        return {reinterpret_cast<const char *>(units.data()), static_cast<qsizetype>(units.size() * 2)};
    }

private:
    QTemporaryDir m_folder;
};
