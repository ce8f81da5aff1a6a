#pragma once

#include "sdk/oda/OdRxObject.h"
#include "sdk/oda/OdString.h"

// One loaded run-time module. The loader calls initApp after the factory, and uninitApp and deleteModule before it
// unloads the library. The order of the operations is the loader's.
class OdRxModule : public OdRxObject
{
public:
    virtual void *sysData() const = 0; // the operating system's handle of the module's library
    virtual void deleteModule() = 0;
    virtual void initApp() = 0;
    virtual void uninitApp() = 0;
    virtual OdString moduleName() const = 0; // full path of the module's file

protected:
    ~OdRxModule() = default;
};

// What every module library exports under these plain names.
using OdRxModuleFactory = OdRxModule *(*)(void **sysData);
using OdRxApiVersionQuery = void (*)(int *major, int *minor, int *majorBuild, int *minorBuild);
