#pragma once

#include "sdk/fx/FxExport.h"
#include "sdk/oda/OdDbObjectId.h"

struct LispName;

class FX_EXPORT CFxAPI
{
public:
    // The object of an entity name in the active document; null when the name is of no object there.
    static OdDbObjectId GetObjectId(const LispName &name);
};
