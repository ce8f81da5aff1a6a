#include "host/kernel/OpenRegistryKey.h"

#include "storage/RegistryText.h"

#include <QString>

#include <algorithm>
#include <array>

namespace {

HKEY rootNamed(QStringView name)
{
    static const std::array<std::pair<QStringView, HKEY>, 5> roots = {
        {{RegistryRoot::Classes, HKEY_CLASSES_ROOT},
         {RegistryRoot::CurrentUser, HKEY_CURRENT_USER},
         {RegistryRoot::LocalMachine, HKEY_LOCAL_MACHINE},
         {RegistryRoot::Users, HKEY_USERS},
         {RegistryRoot::CurrentConfiguration, HKEY_CURRENT_CONFIG}}};
    const auto found = std::ranges::find_if(
        roots, [name](const auto &root) { return root.first.compare(name, Qt::CaseInsensitive) == 0; });
    return found == roots.end() ? nullptr : found->second;
}

// The names that a call lists one by one, none of them longer than a registry allows.
template <class ListNext> QStringList listNames(ListNext listNext)
{
    QStringList names;
    std::u16string buffer(16384, u'\0');
    for (DWORD index = 0;; ++index) {
        auto length = static_cast<DWORD>(buffer.size());
        if (listNext(index, windowsText(buffer.data()), &length) != ERROR_SUCCESS)
            return names;
        names.append(QStringView(buffer.data(), static_cast<qsizetype>(length)).toString());
    }
}

} // namespace

RegistryPath::RegistryPath(std::u16string_view path)
{
    const std::size_t end = std::min(path.find(u'\\'), path.size());
    root = rootNamed({path.data(), static_cast<qsizetype>(end)});
    below = path.substr(std::min(end + 1, path.size()));
}

OpenRegistryKey::OpenRegistryKey(std::u16string_view path, REGSAM access, IfMissing ifMissing)
{
    const RegistryPath place(path);
    if (place.root == nullptr)
        return;
    if (ifMissing == IfMissing::Add)
        RegCreateKeyExW(place.root, windowsText(place.below.c_str()), 0, nullptr, 0, access, nullptr, &m_key, nullptr);
    else
        RegOpenKeyExW(place.root, windowsText(place.below.c_str()), 0, access, &m_key);
}

QStringList OpenRegistryKey::keyNames() const
{
    return listNames([this](DWORD index, LPWSTR name, DWORD *length) {
        return RegEnumKeyExW(m_key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
}

QStringList OpenRegistryKey::valueNames() const
{
    return listNames([this](DWORD index, LPWSTR name, DWORD *length) {
        return RegEnumValueW(m_key, index, name, length, nullptr, nullptr, nullptr, nullptr);
    });
}

std::optional<RegistryData> OpenRegistryKey::value(const std::u16string &name) const
{
    RegistryData data;
    LSTATUS status = ERROR_MORE_DATA;
    // Another process may make it longer between two queries.
    for (DWORD size = 0; status == ERROR_MORE_DATA;) {
        data.bytes.resize(static_cast<qsizetype>(size));
        status = RegQueryValueExW(m_key, windowsText(name.c_str()), nullptr, &data.type,
                                  reinterpret_cast<BYTE *>(data.bytes.data()), &size);
        if (status == ERROR_SUCCESS)
            data.bytes.resize(static_cast<qsizetype>(size));
    }
    return status == ERROR_SUCCESS ? std::optional(data) : std::nullopt;
}

bool OpenRegistryKey::setValue(const std::u16string &name, const RegistryData &data)
{
    const QByteArray padded = data.bytes + "\xff\xff"; // a zero unit behind a text would be stored with it
    return RegSetValueExW(m_key, windowsText(name.c_str()), 0, data.type,
                          reinterpret_cast<const BYTE *>(padded.constData()),
                          static_cast<DWORD>(data.bytes.size())) == ERROR_SUCCESS;
}

bool OpenRegistryKey::removeValue(const std::u16string &name)
{
    return RegDeleteValueW(m_key, windowsText(name.c_str())) == ERROR_SUCCESS;
}
