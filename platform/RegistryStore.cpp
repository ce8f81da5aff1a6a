#include "platform/RegistryStore.h"

#include "platform/RegistrySetup.h"
#include "storage/ProfileFolder.h"

#include <algorithm>

namespace {

constexpr char16_t ClassesPath[] = u"Software\\Classes";
constexpr std::array RootNames = {RegistryRoot::CurrentUser, RegistryRoot::LocalMachine, RegistryRoot::Users,
                                  RegistryRoot::CurrentConfiguration}; // in the order of RegistryStore's own
constexpr std::size_t HandleStep = 4;                                  // handles are multiples of it

std::size_t placeOf(HKEY handle)
{
    return reinterpret_cast<std::uintptr_t>(handle) / HandleStep - 1;
}

HKEY handleOf(std::size_t place)
{
    return reinterpret_cast<HKEY>((place + 1) * HandleStep);
}

void join(std::u16string &path, std::u16string_view base, std::u16string_view below)
{
    path.assign(base);
    if (!base.empty() && !below.empty())
        path += u'\\';
    path.append(below);
}

} // namespace

RegistryStore::RegistryStore()
{
    setUp(profileFolder(), {});
}

void RegistryStore::setUp(const QString &folder, const QStringList &keys)
{
    const QString registryFolder = folder + QStringLiteral("/registry");
    m_openKeys.clear();
    m_closed.clear();
    m_keys = keys;
    m_notice = std::make_unique<RegistryNotice>(registryFolder);
    for (std::size_t root = 0; root < m_hives.size(); ++root)
        m_hives[root] = std::make_unique<RegistryHive>(std::u16string(RootNames[root]), registryFolder, *m_notice,
                                                       [this](RegistryKey &key) { complete(key); });
}

void RegistryStore::complete(RegistryKey &root) const
{
    if (root.name == RootNames[LocalMachine])
        findOrAddKey(root, ClassesPath);
    if (root.name == RootNames[CurrentUser])
        findOrAddKey(root, u"Software");
    for (const QString &key : m_keys) {
        const std::u16string path = key.toStdU16String();
        const std::size_t end = std::min(path.find(u'\\'), path.size());
        if (path.compare(0, end, root.name) == 0)
            findOrAddKey(root, std::u16string_view(path).substr(end));
    }
}

RegistryStore::OpenKey *RegistryStore::find(HKEY handle)
{
    const auto number = reinterpret_cast<std::uintptr_t>(handle);
    if (number == 0 || number % HandleStep != 0 || placeOf(handle) >= m_openKeys.size())
        return nullptr;
    OpenKey *key = m_openKeys[placeOf(handle)].get();
    return key->isOpen ? key : nullptr;
}

// Null for handles that are no roots, and for HKEY_CLASSES_ROOT, which is a part of two hives.
RegistryHive *RegistryStore::hiveOf(HKEY root)
{
    if (root == HKEY_CURRENT_USER)
        return m_hives[CurrentUser].get();
    if (root == HKEY_LOCAL_MACHINE)
        return m_hives[LocalMachine].get();
    if (root == HKEY_USERS)
        return m_hives[Users].get();
    return root == HKEY_CURRENT_CONFIG ? m_hives[CurrentConfiguration].get() : nullptr;
}

bool RegistryStore::locateRoot(HKEY handle, Place &place)
{
    const bool isClasses = handle == HKEY_CLASSES_ROOT;
    place.hive = isClasses ? m_hives[LocalMachine].get() : hiveOf(handle);
    if (place.hive == nullptr)
        return false;
    place.path = isClasses ? ClassesPath : std::u16string_view();
    place.key = findKey(place.hive->root(), place.path);
    return true;
}

LSTATUS RegistryStore::locate(HKEY handle, REGSAM rights, Place &place)
{
    OpenKey *open = find(handle);
    if (open == nullptr && !locateRoot(handle, place))
        return ERROR_INVALID_HANDLE;
    if (open == nullptr)
        return place.key != nullptr ? ERROR_SUCCESS : ERROR_FILE_NOT_FOUND;
    if ((open->access & rights) != rights)
        return ERROR_ACCESS_DENIED;
    RegistryKey &root = open->hive->root();
    if (open->revision != open->hive->revision()) {
        open->key = findKey(root, open->path);
        open->revision = open->hive->revision();
    }
    place = {open->hive, open->key, open->path};
    return open->key != nullptr ? ERROR_SUCCESS : ERROR_KEY_DELETED;
}

LSTATUS RegistryStore::locateBelow(HKEY handle, std::u16string_view path, Place &place)
{
    if (handle == HKEY_CLASSES_ROOT && !path.empty()) {
        place.hive = m_hives[CurrentUser].get();
        place.path = ClassesPath;
        RegistryKey *users = findKey(place.hive->root(), ClassesPath);
        place.key = users != nullptr ? findKey(*users, path) : nullptr;
        if (place.key != nullptr)
            return ERROR_SUCCESS;
    }
    const LSTATUS status = locate(handle, 0, place);
    if (status != ERROR_SUCCESS)
        return status;
    RegistryKey *below = findKey(*place.key, path);
    if (below == nullptr)
        return ERROR_FILE_NOT_FOUND;
    place.key = below;
    return ERROR_SUCCESS;
}

HKEY RegistryStore::open(const Place &place, std::u16string_view path, RegistryKey &key, REGSAM access)
{
    std::size_t index = m_openKeys.size();
    if (m_closed.empty()) {
        m_openKeys.push_back(std::make_unique<OpenKey>());
    } else {
        index = m_closed.back();
        m_closed.pop_back();
    }
    OpenKey &open = *m_openKeys[index];
    open.hive = place.hive;
    open.key = &key;
    open.revision = place.hive->revision();
    open.access = access;
    open.isOpen = true;
    join(open.path, place.path, path);
    return handleOf(index);
}

HKEY RegistryStore::openAgain(HKEY root, std::u16string_view path, REGSAM access)
{
    if (m_closed.empty())
        return nullptr;
    const std::size_t index = m_closed.back();
    OpenKey &last = *m_openKeys[index];
    if (last.key == nullptr || last.hive != hiveOf(root) || !isSameText(last.path, path))
        return nullptr;
    last.hive->root(); // which may bring another revision
    if (last.revision != last.hive->revision())
        return nullptr;
    m_closed.pop_back();
    last.access = access;
    last.isOpen = true;
    return handleOf(index);
}

LSTATUS RegistryStore::close(HKEY handle)
{
    OpenKey *open = find(handle);
    if (open == nullptr)
        return handle == HKEY_CLASSES_ROOT || hiveOf(handle) != nullptr ? ERROR_SUCCESS : ERROR_INVALID_HANDLE;
    open->isOpen = false;
    m_closed.push_back(placeOf(handle));
    return ERROR_SUCCESS;
}

LSTATUS RegistryStore::begin(RegistryHive &hive)
{
    if (!hive.beginChange().isNull())
        return ERROR_REGISTRY_IO_FAILED;
    if (m_isBatch && std::ranges::find(m_batch, &hive) == m_batch.end()) {
        m_batch.push_back(&hive);
        hive.beginChange(); // stays open until the batch ends
    }
    return ERROR_SUCCESS;
}

LSTATUS RegistryStore::end(RegistryHive &hive)
{
    return hive.endChange().isNull() ? ERROR_SUCCESS : ERROR_REGISTRY_IO_FAILED;
}

// The change of one root is a step of its own. Those of several are prepared first, which is what can fail.
bool RegistryStore::endBatch()
{
    const bool isPrepared = m_batch.size() < 2 || std::ranges::all_of(m_batch, [](RegistryHive *hive) {
                                return hive->prepareChange().isNull();
                            });
    if (!isPrepared) {
        dropBatch();
        return false;
    }
    bool isWritten = true;
    for (RegistryHive *hive : std::exchange(m_batch, {}))
        isWritten &= hive->endChange().isNull();
    m_isBatch = false;
    return isWritten;
}

void RegistryStore::dropBatch()
{
    for (RegistryHive *hive : std::exchange(m_batch, {}))
        hive->dropChanges();
    m_isBatch = false;
}

void setUpRegistry(const QString &folder, const QStringList &keys)
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    store.setUp(folder, keys);
}

RegistryBatch::RegistryBatch()
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    store.beginBatch();
}

RegistryBatch::~RegistryBatch()
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    store.dropBatch();
}

bool RegistryBatch::commit()
{
    RegistryStore &store = RegistryStore::instance();
    const std::lock_guard guard(store.mutex());
    return store.endBatch();
}
