#pragma once

#include "platform/WindowsTypes.h"

#include <QString>
#include <QStringList>

// Keeps the registry of this process in a folder, where it finds what other processes have kept there, and lets keys
// exist in it ("HKEY_CURRENT_USER\\Software\\Example"). Nothing is read before the first call of the registry, and
// nothing written before the first change. Handles that are open become invalid. A process that never calls this uses
// the user's own folder. On Windows there is but one registry, where the keys are added at once.
#ifndef _WIN32
void setUpRegistry(const QString &folder, const QStringList &keys = {});
#else
inline void setUpRegistry(const QString &, const QStringList &keys = {})
{
    for (const QString &key : keys) {
        const HKEY root = key.startsWith(QStringLiteral("HKEY_CURRENT_USER")) ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
        const std::u16string path = key.section(u'\\', 1).toStdU16String();
        HKEY added = nullptr;
        if (RegCreateKeyExW(root, windowsText(path.c_str()), 0, nullptr, 0, KEY_READ, nullptr, &added, nullptr) == 0)
            RegCloseKey(added);
    }
}
#endif

// While one lives, changes of the registry are kept back; commit writes them all or, when one root cannot be written,
// none. A process that is killed in the moment between two roots leaves each as it was or is to be. What has not
// been committed when it goes is undone, and while it lives other processes wait to change what this one has changed.
// On Windows every change counts at once.
class RegistryBatch
{
public:
#ifdef _WIN32
    bool commit()
    {
        return true;
    }
#else
    RegistryBatch();
    ~RegistryBatch();
    RegistryBatch(const RegistryBatch &) = delete;
    RegistryBatch &operator=(const RegistryBatch &) = delete;
    bool commit();
#endif
};
