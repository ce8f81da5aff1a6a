#pragma once

#include "sdk/fx/FxExport.h"

class CFxDocument;
class CFxDocumentManager;

// The entrance to the host's own services.
class CFxSystemServices
{
public:
    virtual CFxDocumentManager *documentManager() = 0; // null while there is none

protected:
    ~CFxSystemServices() = default;
};

FX_EXPORT CFxSystemServices *GetFxSystemServices(); // null before the host's start and after its end
FX_EXPORT CFxDocument *ACTIVE_DOCUMENT();           // null when no document is active
