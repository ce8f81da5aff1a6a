#pragma once

#include "sdk/oda/OdDbEntity.h"

class ODRX_EXPORT OdDbAttributeDefinition : public OdDbEntity
{
public:
    virtual bool isMTextAttributeDefinition() const = 0; // it has several lines

protected:
    ~OdDbAttributeDefinition() = default;
};

using OdDbAttributeDefinitionPtr = OdSmartPtr<OdDbAttributeDefinition>;
