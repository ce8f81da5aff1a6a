#pragma once

#include "sdk/oda/OdRxExport.h"
#include "sdk/oda/OdSmartPtr.h"

class OdDbObject;
class OdDbStub; // the database's own

namespace OdDb {
enum OpenMode { kForRead, kForWrite };
}

// Names an object of a drawing as long as the drawing is open.
class ODRX_EXPORT OdDbObjectId
{
public:
    OdDbObjectId() = default;
    explicit OdDbObjectId(OdDbStub *stub) : m_stub(stub) {}

    bool isNull() const { return m_stub == nullptr; }
    // The object, open until the pointer goes; null for a null id and for one whose object is erased.
    OdSmartPtr<OdDbObject> openObject(OdDb::OpenMode mode = OdDb::kForRead) const;

private:
    OdDbStub *m_stub = nullptr;
};
