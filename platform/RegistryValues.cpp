// Values: reading, writing, removing, and what a key holds.

#include "platform/Registry.h"
#include "platform/RegistryStore.h"

#include <algorithm>
#include <cstring>

namespace {

bool isText(DWORD type)
{
    return type == REG_SZ || type == REG_EXPAND_SZ || type == REG_MULTI_SZ;
}

// A unit of a text that need not be aligned.
bool isZeroUnit(const BYTE *unit)
{
    return unit[0] == 0 && unit[1] == 0;
}

bool endsInZeroUnit(const BYTE *data, DWORD length)
{
    return length == 1 ? data[0] == 0 : isZeroUnit(data + length - 2);
}

LSTATUS copyData(const RegistryValue &value, DWORD *type, BYTE *data, DWORD *size)
{
    const auto length = static_cast<DWORD>(value.data.size());
    if (type != nullptr)
        *type = value.type;
    if (size == nullptr)
        return ERROR_SUCCESS;
    const DWORD room = *size;
    *size = length;
    if (data == nullptr)
        return ERROR_SUCCESS;
    if (length > room)
        return ERROR_MORE_DATA;
    std::memcpy(data, value.data.constData(), length);
    if (isText(value.type) && length > 0 && room - length >= 2 && !endsInZeroUnit(data, length))
        std::memset(data + length, 0, 2);
    return ERROR_SUCCESS;
}

LSTATUS copyName(const std::u16string &name, LPWSTR buffer, DWORD *length)
{
    if (name.size() >= *length)
        return ERROR_MORE_DATA;
    std::copy_n(name.c_str(), name.size() + 1, buffer);
    *length = static_cast<DWORD>(name.size());
    return ERROR_SUCCESS;
}

// Calls with the key of the handle as it is now.
template <class Action> LSTATUS lookAt(HKEY handle, REGSAM rights, Action action)
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    RegistryStore::Place place;
    const LSTATUS status = store.locate(handle, rights, place);
    return status == ERROR_SUCCESS ? action(*place.key) : status;
}

template <class Action> LSTATUS change(HKEY handle, Action action)
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    RegistryStore::Place place;
    return store.change(
        place, [&](RegistryStore::Place &found) { return store.locate(handle, KEY_SET_VALUE, found); },
        [&](RegistryStore::Place &found) { return action(*found.hive, *found.key); });
}

// A terminator that the caller forgot to count is stored, as Windows does it.
DWORD sizeWithTerminator(DWORD type, const BYTE *data, DWORD size)
{
    if (!isText(type) || size < 2)
        return size;
    const DWORD units = size / 2 * 2;
    return !isZeroUnit(data + units - 2) && isZeroUnit(data + units) ? size + 2 : size;
}

template <class Things> DWORD longestName(const Things &things)
{
    std::size_t longest = 0;
    for (const auto &thing : things)
        longest = std::max(longest, thing->name.size());
    return static_cast<DWORD>(longest);
}

DWORD mostData(const RegistryKey &key)
{
    qsizetype most = 0;
    for (const auto &value : key.values)
        most = std::max(most, value->data.size());
    return static_cast<DWORD>(most);
}

void answer(DWORD *place, DWORD number)
{
    if (place != nullptr)
        *place = number;
}

} // namespace

LSTATUS RegQueryValueExW(HKEY key, LPCWSTR name, DWORD *reserved, DWORD *type, BYTE *data, DWORD *size)
{
    if (reserved != nullptr || (data != nullptr && size == nullptr))
        return ERROR_INVALID_PARAMETER;
    return lookAt(key, KEY_QUERY_VALUE, [&](const RegistryKey &found) -> LSTATUS {
        const RegistryValue *value = found.values.find(textArgument(name));
        return value != nullptr ? copyData(*value, type, data, size) : ERROR_FILE_NOT_FOUND;
    });
}

LSTATUS RegSetValueExW(HKEY key, LPCWSTR name, DWORD, DWORD type, const BYTE *data, DWORD size)
{
    if (data == nullptr && size > 0)
        return ERROR_NOACCESS;
    if (!isRegistryValueName(textArgument(name)))
        return ERROR_INVALID_PARAMETER;
    const QByteArray bytes(reinterpret_cast<const char *>(data),
                           static_cast<qsizetype>(sizeWithTerminator(type, data, size)));
    return change(key, [&](RegistryHive &hive, RegistryKey &found) -> LSTATUS {
        hive.setValue(found, textArgument(name), type, bytes);
        return ERROR_SUCCESS;
    });
}

LSTATUS RegDeleteValueW(HKEY key, LPCWSTR name)
{
    return change(key, [&](RegistryHive &hive, RegistryKey &found) -> LSTATUS {
        if (found.values.find(textArgument(name)) == nullptr)
            return ERROR_FILE_NOT_FOUND;
        hive.removeValue(found, textArgument(name));
        return ERROR_SUCCESS;
    });
}

LSTATUS RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, DWORD *length, DWORD *reserved, LPWSTR, DWORD *classLength,
                      FILETIME *written)
{
    if (name == nullptr || length == nullptr || reserved != nullptr)
        return ERROR_INVALID_PARAMETER;
    answer(classLength, 0);
    if (written != nullptr)
        *written = {};
    return lookAt(key, KEY_ENUMERATE_SUB_KEYS, [&](const RegistryKey &found) -> LSTATUS {
        return index < found.keys.size() ? copyName(found.keys.at(index).name, name, length) : ERROR_NO_MORE_ITEMS;
    });
}

LSTATUS RegEnumValueW(HKEY key, DWORD index, LPWSTR name, DWORD *length, DWORD *reserved, DWORD *type, BYTE *data,
                      DWORD *size)
{
    if (name == nullptr || length == nullptr || reserved != nullptr || (data != nullptr && size == nullptr))
        return ERROR_INVALID_PARAMETER;
    return lookAt(key, KEY_QUERY_VALUE, [&](const RegistryKey &found) -> LSTATUS {
        if (index >= found.values.size())
            return ERROR_NO_MORE_ITEMS;
        const RegistryValue &value = found.values.at(index);
        const LSTATUS nameStatus = copyName(value.name, name, length);
        const LSTATUS dataStatus = copyData(value, type, nameStatus == ERROR_SUCCESS ? data : nullptr, size);
        return nameStatus != ERROR_SUCCESS ? nameStatus : dataStatus;
    });
}

LSTATUS RegQueryInfoKeyW(HKEY key, LPWSTR, DWORD *classLength, DWORD *reserved, DWORD *keys, DWORD *longestKey,
                         DWORD *longestClass, DWORD *values, DWORD *longestValue, DWORD *mostBytes, DWORD *securitySize,
                         FILETIME *written)
{
    if (reserved != nullptr)
        return ERROR_INVALID_PARAMETER;
    return lookAt(key, KEY_QUERY_VALUE, [&](const RegistryKey &found) -> LSTATUS {
        answer(classLength, 0);
        answer(keys, static_cast<DWORD>(found.keys.size()));
        answer(longestKey, longestName(found.keys));
        answer(longestClass, 0);
        answer(values, static_cast<DWORD>(found.values.size()));
        answer(longestValue, longestName(found.values));
        answer(mostBytes, mostData(found));
        answer(securitySize, 0);
        if (written != nullptr)
            *written = {};
        return ERROR_SUCCESS;
    });
}
