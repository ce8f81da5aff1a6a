#pragma once

#include "sdk/oda/OdDbObjectId.h"
#include "sdk/oda/OdRxObject.h"

// What a drawing holds: entities, table records, dictionaries.
class ODRX_EXPORT OdDbObject : public OdRxObject
{
public:
    virtual OdDbObjectId objectId() const = 0;

protected:
    ~OdDbObject() = default;
};

using OdDbObjectPtr = OdSmartPtr<OdDbObject>;
