#pragma once

#include "platform/Registry.h"

#include <QStringList>

#include <string>
#include <string_view>

// The root and what follows it; a null root when the path names none.
struct RegistryPath
{
    HKEY root = nullptr;
    std::u16string below;

    explicit RegistryPath(std::u16string_view path);
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
    HKEY handle() const { return m_key; }
    QStringList keyNames() const;
    QStringList valueNames() const; // the unnamed value's is empty

private:
    HKEY m_key = nullptr;
};
