#include "host/kernel/Host.h"

#include <QFileInfo>

Host::Host()
{
    HostSdk::installSystemServices(this);
    HostSdk::installActiveDocumentProvider(this);
}

Host::~Host()
{
    m_modules.unloadAll();
    HostSdk::installActiveDocumentProvider(nullptr);
    HostSdk::installSystemServices(nullptr);
}

std::vector<std::u16string> Host::loadedModules() const
{
    std::vector<std::u16string> names;
    for (const QString &path : m_modules.paths())
        names.push_back(QFileInfo(path).fileName().toStdU16String());
    return names;
}

bool Host::loadModule(std::u16string_view path)
{
    try {
        m_modules.load(QStringView(path.data(), static_cast<qsizetype>(path.size())).toString());
        return true;
    } catch (const ModuleError &) {
        return false;
    }
}
