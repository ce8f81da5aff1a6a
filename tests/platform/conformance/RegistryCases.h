#pragma once

#include "platform/Registry.h"
#include "tests/platform/conformance/Conformance.h"

// In HKEY_CURRENT_USER; made before the cases run and removed afterwards. Each case has a key of its own there.
inline constexpr char16_t conformanceKey[] = u"Software\\Conformance cases";

conformance::Cases registryKeyCases();
conformance::Cases registryValueCases();
conformance::Cases registryListCases();

// A key that is new, open with all rights, and gone with this object.
class NewKey
{
public:
    NewKey()
    {
        RegCreateKeyExW(HKEY_CURRENT_USER, windowsText(conformanceKey), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &m_key,
                        nullptr);
    }
    ~NewKey()
    {
        RegCloseKey(m_key);
        RegDeleteTreeW(HKEY_CURRENT_USER, windowsText(conformanceKey));
    }
    NewKey(const NewKey &) = delete;
    NewKey &operator=(const NewKey &) = delete;

    operator HKEY() const { return m_key; }

    LSTATUS add(const char16_t *path) const
    {
        HKEY key = nullptr;
        const LSTATUS status =
            RegCreateKeyExW(m_key, windowsText(path), 0, nullptr, 0, KEY_READ, nullptr, &key, nullptr);
        RegCloseKey(key);
        return status;
    }
    LSTATUS open(const char16_t *path, REGSAM access, HKEY *key) const
    {
        return RegOpenKeyExW(m_key, windowsText(path), 0, access, key);
    }
    LSTATUS set(const char16_t *name, DWORD type, const void *data, DWORD size) const
    {
        return RegSetValueExW(m_key, windowsText(name), 0, type, static_cast<const BYTE *>(data), size);
    }

private:
    HKEY m_key = nullptr;
};

inline std::string hexadecimal(const BYTE *bytes, std::size_t count)
{
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (std::size_t index = 0; index < count; ++index)
        (text += digits[bytes[index] / 16]) += digits[bytes[index] % 16];
    return text;
}
