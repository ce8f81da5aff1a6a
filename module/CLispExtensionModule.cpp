#include "module/CLispExtensionModule.h"

#include "module/Registration.h"
#include "platform/ModuleFileName.h"
#include "sdk/fx/CFxDocumentManager.h"
#include "sdk/fx/CFxSystemServices.h"

#include <array>

namespace {

// Null before the host's start and after its end.
CFxDocumentManager *documentManager()
{
    CFxSystemServices *services = GetFxSystemServices();
    return services != nullptr ? services->documentManager() : nullptr;
}

// The count is read anew each time: the host may open or close documents meanwhile.
void forEachDocument(const CFxDocumentManager *manager, void (*visit)(CFxDocument *))
{
    for (std::uint16_t index = 0; index < manager->documentCount(); ++index)
        visit(manager->documentAt(index));
}

} // namespace

void CLispExtensionModule::initApp()
{
    CFxDocumentManager *manager = documentManager();
    if (manager == nullptr)
        return;
    manager->addReactor(this);
    forEachDocument(manager, registerFunctions);
}

void CLispExtensionModule::uninitApp()
{
    CFxDocumentManager *manager = documentManager();
    if (manager == nullptr)
        return;
    manager->removeReactor(this);
    forEachDocument(manager, unregisterFunctions);
}

OdString CLispExtensionModule::moduleName() const
{
    std::array<char16_t, MAX_PATH> path = {};
    GetModuleFileNameW(static_cast<HMODULE>(sysData()), windowsText(path.data()), static_cast<DWORD>(path.size()));
    return OdString(path.data());
}

void CLispExtensionModule::DocumentLispLoaded(CFxDocument *document)
{
    registerFunctions(document);
}

void CLispExtensionModule::DocumentLispUnloaded(CFxDocument *document)
{
    unregisterFunctions(document);
}
