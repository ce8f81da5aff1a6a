#include "host/kernel/Host.h"

#include "host/kernel/Memory.h"
#include "host/kernel/ProductKeys.h"
#include "sdk/fx/CFxString.h"
#include "sdk/oda/OdDbObjectId.h"
#include "storage/ProfileFolder.h"

#include <QFileInfo>

namespace {

// Programs run commands where this variable names a command interpreter, as it always does on Windows.
void defineCommandInterpreter()
{
    if (!qEnvironmentVariableIsSet("COMSPEC"))
        qputenv("COMSPEC", "/bin/sh");
}

} // namespace

Host::Host()
{
    keepFreedMemory();
    defineCommandInterpreter();
    HostSdk::installSystemServices(this);
    HostSdk::installActiveDocumentProvider(this);
    openProductRegistry();
}

Host::~Host()
{
    m_modules.unloadAll();
    HostSdk::installActiveDocumentProvider(nullptr);
    HostSdk::installSystemServices(nullptr);
}

// Without a window the command line is where a person looks.
void Host::message(const CFxString &text)
{
    m_services.print(u'\n' + text.toQString().toStdU16String());
}

OdDbObjectId Host::objectId(const LispName &name)
{
    Document *document = m_documents.active();
    return document ? document->openDrawing().database.objectId(name) : OdDbObjectId();
}

// Every text is shown in the same way, whatever the option.
void Host::htmlPrompt(const CFxString &text, bool)
{
    m_services.userInterface->showHtml(text.toQString());
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
