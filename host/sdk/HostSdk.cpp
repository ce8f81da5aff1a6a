#include "host/sdk/HostSdk.h"

#include "sdk/fx/CFxAPI.h"
#include "sdk/fx/CFxSystemServices.h"
#include "sdk/oda/OdAlloc.h"

#include <cstdlib>

namespace {

CFxSystemServices *installedServices = nullptr;
HostSdk::ActiveDocumentProvider *installedProvider = nullptr;
HostSdk::Allocator installedAllocator = {std::malloc, std::free};

} // namespace

namespace HostSdk {

void installSystemServices(CFxSystemServices *services)
{
    installedServices = services;
}

void installActiveDocumentProvider(ActiveDocumentProvider *provider)
{
    installedProvider = provider;
}

void installAllocator(Allocator allocator)
{
    installedAllocator = allocator;
}

} // namespace HostSdk

CFxSystemServices *GetFxSystemServices()
{
    return installedServices;
}

CFxDocument *ACTIVE_DOCUMENT()
{
    return installedProvider != nullptr ? installedProvider->activeDocument() : nullptr;
}

OdDbObjectId CFxAPI::GetObjectId(const LispName &name)
{
    return installedProvider != nullptr ? installedProvider->objectId(name) : OdDbObjectId();
}

void *odrxAlloc(std::size_t size)
{
    return installedAllocator.allocate(size);
}

void odrxFree(void *memory)
{
    installedAllocator.release(memory);
}
