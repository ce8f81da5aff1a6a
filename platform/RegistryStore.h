#pragma once

#include "platform/Registry.h"
#include "platform/RegistryHive.h"

#include <QStringList>

#include <array>
#include <memory>
#include <mutex>
#include <vector>

// The roots of this process's registry and the handles that are open. Who uses it holds the mutex.
class RegistryStore
{
public:
    // A key as a call finds it by a handle.
    struct Place
    {
        RegistryHive *hive = nullptr;
        RegistryKey *key = nullptr; // until the hive changes
        std::u16string_view path;   // of the key, below the root of its hive
    };

    static RegistryStore &instance()
    {
        static RegistryStore store;
        return store;
    }

    std::mutex &mutex() { return m_mutex; }
    void setUp(const QString &folder, const QStringList &keys);

    // The key of a handle with at least these rights, as it is now. Gives a status.
    LSTATUS locate(HKEY handle, REGSAM rights, Place &place);
    // The key at a path below it, ERROR_FILE_NOT_FOUND when there is none: then the place is where to add it.
    LSTATUS locateBelow(HKEY handle, std::u16string_view path, Place &place);
    // A handle to the key at a path below a place. The key is there.
    HKEY open(const Place &place, std::u16string_view path, RegistryKey &key, REGSAM access);
    // The same for the key that was closed last, when it is at this path below a root, and still there; else null.
    // Programs read one value of a key after the other.
    HKEY openAgain(HKEY root, std::u16string_view path, REGSAM access);
    LSTATUS close(HKEY handle);

    // A change of the key that `locate` finds for a place: finds it, begins, finds it again, because others may have
    // removed it until then, acts and ends. Gives the first status that is none of success.
    template <class Locate, class Action> LSTATUS change(Place &place, Locate locateKey, Action action)
    {
        LSTATUS status = locateKey(place);
        if (status == ERROR_SUCCESS)
            status = begin(*place.hive);
        if (status != ERROR_SUCCESS)
            return status;
        RegistryHive &hive = *place.hive;
        status = locateKey(place);
        if (status == ERROR_SUCCESS && place.hive != &hive)
            status = ERROR_KEY_DELETED; // another root has one of its name
        if (status == ERROR_SUCCESS)
            status = action(place);
        const LSTATUS written = end(hive);
        return status != ERROR_SUCCESS ? status : written;
    }

    void beginBatch() { m_isBatch = true; }
    bool endBatch();
    void dropBatch();

private:
    struct OpenKey
    {
        RegistryHive *hive;
        RegistryKey *key;       // null: gone
        std::uint64_t revision; // of the hive, when the key was found
        std::u16string path;
        REGSAM access;
        bool isOpen;
    };
    enum Root { CurrentUser, LocalMachine, Users, CurrentConfiguration };

    RegistryStore();
    // Around a change of a hive. Give a status.
    LSTATUS begin(RegistryHive &hive);
    LSTATUS end(RegistryHive &hive);
    void complete(RegistryKey &root) const;
    OpenKey *find(HKEY handle);
    RegistryHive *hiveOf(HKEY root);
    bool locateRoot(HKEY handle, Place &place);

    std::mutex m_mutex;
    QStringList m_keys; // that exist, whatever the files say
    std::unique_ptr<RegistryNotice> m_notice;
    std::array<std::unique_ptr<RegistryHive>, 4> m_hives;
    std::vector<std::unique_ptr<OpenKey>> m_openKeys; // which stay where they are: a place names the path of one
    std::vector<std::size_t> m_closed;                // places of m_openKeys
    bool m_isBatch = false;
    std::vector<RegistryHive *> m_batch; // hives that it has changed
};
