#pragma once

#include "sdk/oda/OdDbObject.h"

// What an object id leads to: the place of one object in its database.
class OdDbStub
{
public:
    virtual OdDbObjectPtr open(OdDb::OpenMode mode) = 0; // null: erased

protected:
    ~OdDbStub() = default;
};
