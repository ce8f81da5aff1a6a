#include "sdk/oda/OdDbObjectId.h"

#include "host/sdk/OdDbStub.h"

OdDbObjectPtr OdDbObjectId::openObject(OdDb::OpenMode mode) const
{
    return m_stub ? m_stub->open(mode) : OdDbObjectPtr();
}
