#pragma once

#include "platform/Registry.h"

#include <QByteArray>
#include <QStringList>

#include <optional>
#include <string>
#include <string_view>

// The root and what follows it; a null root when the path names none.
struct RegistryPath
{
    HKEY root = nullptr;
    std::u16string below;

    explicit RegistryPath(std::u16string_view path);
};

struct RegistryData
{
    DWORD type = REG_NONE;
    QByteArray bytes;
};

// A key of the registry, open while this lives.
class OpenRegistryKey
{
public:
    enum class IfMissing { Fail, Add };

    // By a path that begins with the name of a root, in any case.
    OpenRegistryKey(std::u16string_view path, REGSAM access, IfMissing ifMissing = IfMissing::Fail);
    ~OpenRegistryKey() { RegCloseKey(m_key); }
    OpenRegistryKey(const OpenRegistryKey &) = delete;
    OpenRegistryKey &operator=(const OpenRegistryKey &) = delete;

    bool isOpen() const { return m_key != nullptr; }
    QStringList keyNames() const;
    QStringList valueNames() const; // the unnamed value's is empty
    std::optional<RegistryData> value(const std::u16string &name) const;

    // False when it fails.
    bool setValue(const std::u16string &name, const RegistryData &data);
    bool removeValue(const std::u16string &name);

private:
    HKEY m_key = nullptr;
};
