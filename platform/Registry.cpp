// Keys: opening, adding, closing, removing.

#include "platform/Registry.h"

#include "platform/RegistryStore.h"

#include <algorithm>

namespace {

constexpr REGSAM GenericRead = 0x80000000, GenericWrite = 0x40000000, GenericExecute = 0x20000000,
                 GenericAll = 0x10000000;
constexpr int DeepestKey = 512;

REGSAM rightsOf(REGSAM access)
{
    REGSAM rights = access;
    if ((access & (MAXIMUM_ALLOWED | GenericAll)) != 0)
        rights |= KEY_ALL_ACCESS;
    if ((access & (GenericRead | GenericExecute)) != 0)
        rights |= KEY_READ;
    if ((access & GenericWrite) != 0)
        rights |= KEY_WRITE;
    return rights;
}

// A backslash at the end, or one too many, is passed over wherever a path leads.
bool canBeAdded(std::u16string_view path, int level)
{
    while (!path.empty()) {
        const std::size_t end = std::min(path.find(u'\\'), path.size());
        if (end > 0 && (!isRegistryKeyName(path.substr(0, end)) || ++level > DeepestKey))
            return false;
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return true;
}

// Does what a change does to a key that was just found, and writes it.
template <class Action> LSTATUS changeBelow(HKEY handle, LPCWSTR path, Action action)
{
    if (textArgument(path).starts_with(u'\\'))
        return ERROR_BAD_PATHNAME;
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    RegistryStore::Place place;
    return store.change(
        place, [&](RegistryStore::Place &found) { return store.locateBelow(handle, textArgument(path), found); },
        [&](RegistryStore::Place &found) { return action(*found.hive, *found.key); });
}

LSTATUS addKey(RegistryStore &store, RegistryStore::Place &place, HKEY handle, std::u16string_view path)
{
    if (!canBeAdded(path, levelOf(*place.key)))
        return ERROR_INVALID_PARAMETER;
    return store.change(
        place, [&](RegistryStore::Place &found) { return store.locate(handle, 0, found); },
        [&](RegistryStore::Place &found) -> LSTATUS {
            found.key = &found.hive->addKey(*found.key, path);
            return ERROR_SUCCESS;
        });
}

} // namespace

LSTATUS RegOpenKeyW(HKEY key, LPCWSTR path, HKEY *result)
{
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    if (path == nullptr || *path == u'\0') {
        *result = key;
        return ERROR_SUCCESS;
    }
    return RegOpenKeyExW(key, path, 0, MAXIMUM_ALLOWED, result);
}

LSTATUS RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD, REGSAM access, HKEY *result)
{
    const std::u16string_view below = textArgument(path);
    if (result == nullptr)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (below.starts_with(u'\\'))
        return ERROR_BAD_PATHNAME;
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    const REGSAM rights = rightsOf(access);
    *result = store.openAgain(key, below, rights);
    if (*result != nullptr)
        return ERROR_SUCCESS;
    RegistryStore::Place place;
    const LSTATUS status = store.locateBelow(key, below, place);
    if (status == ERROR_SUCCESS)
        *result = store.open(place, below, *place.key, rights);
    return status;
}

LSTATUS RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR, DWORD, REGSAM access, const void *,
                        HKEY *result, DWORD *disposition)
{
    const std::u16string_view below = textArgument(path);
    if (reserved != 0 || result == nullptr)
        return ERROR_INVALID_PARAMETER;
    *result = nullptr;
    if (below.starts_with(u'\\'))
        return ERROR_BAD_PATHNAME;
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    RegistryStore::Place place;
    LSTATUS status = store.locateBelow(key, below, place);
    const bool isNew = status == ERROR_FILE_NOT_FOUND;
    if (isNew)
        status = addKey(store, place, key, below);
    if (status != ERROR_SUCCESS)
        return status;
    *result = store.open(place, below, *place.key, rightsOf(access));
    if (disposition != nullptr)
        *disposition = isNew ? REG_CREATED_NEW_KEY : REG_OPENED_EXISTING_KEY;
    return ERROR_SUCCESS;
}

LSTATUS RegCloseKey(HKEY key)
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    return store.close(key);
}

LSTATUS RegDeleteKeyW(HKEY key, LPCWSTR path)
{
    if (path == nullptr)
        return ERROR_INVALID_PARAMETER;
    return changeBelow(key, path, [](RegistryHive &hive, RegistryKey &found) -> LSTATUS {
        if (found.keys.size() > 0 || found.parent == nullptr)
            return ERROR_ACCESS_DENIED;
        hive.removeKey(found);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteTreeW(HKEY key, LPCWSTR path)
{
    const bool removesKey = path != nullptr && *path != u'\0';
    return changeBelow(key, path, [removesKey](RegistryHive &hive, RegistryKey &found) -> LSTATUS {
        if (removesKey) {
            hive.removeKey(found);
            return ERROR_SUCCESS;
        }
        while (found.keys.size() > 0)
            hive.removeKey(found.keys.at(0));
        while (found.values.size() > 0)
            hive.removeValue(found, std::u16string(found.values.at(0).name));
        return ERROR_SUCCESS;
    });
}
