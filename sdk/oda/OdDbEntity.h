#pragma once

#include "sdk/oda/OdDbObject.h"

// An object that can be drawn.
class ODRX_EXPORT OdDbEntity : public OdDbObject
{
protected:
    ~OdDbEntity() = default;
};

using OdDbEntityPtr = OdSmartPtr<OdDbEntity>;
