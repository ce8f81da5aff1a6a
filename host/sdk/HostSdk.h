#pragma once

#include "sdk/fx/FxExport.h"

#include <cstddef>

class CFxDocument;
class CFxSystemServices;
class OdDbObjectId;
struct LispName;

// How a host, or a test, puts itself behind the functions that sdk/ declares. Modules never include this.
namespace HostSdk {

class ActiveDocumentProvider
{
public:
    virtual CFxDocument *activeDocument() = 0; // null when no document is active
    // The object of an entity name in the active document; null when there is none.
    virtual OdDbObjectId objectId(const LispName &name) = 0;

protected:
    ~ActiveDocumentProvider() = default;
};

struct Allocator
{
    void *(*allocate)(std::size_t size);
    void (*release)(void *memory);
};

// Nothing is owned: whoever installs something stays alive until it installs null, which is also the state at start.
FX_EXPORT void installSystemServices(CFxSystemServices *services);
FX_EXPORT void installActiveDocumentProvider(ActiveDocumentProvider *provider);

// What odrxAlloc and odrxFree do from now on. At start they are malloc and free.
FX_EXPORT void installAllocator(Allocator allocator);

} // namespace HostSdk
