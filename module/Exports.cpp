#include "module/CLispExtensionModule.h"
#include "platform/LibraryExport.h"
#include "sdk/oda/OdRxWin32Module.h"

// The one object of the process, which takes the library handle over from *sysData when it is made.
LIBRARY_EXPORT OdRxModule *odrxCreateModuleObject(void **sysData)
{
    return OdRxWin32Module<CLispExtensionModule>::createModule(sysData);
}

// The version of the drawings SDK that the module is built for: 26.8, build 54758.
LIBRARY_EXPORT void odrxGetAPIVersion(int *major, int *minor, int *majorBuild, int *minorBuild)
{
    *major = 26;
    *minor = 8;
    *majorBuild = 0;
    *minorBuild = 54758;
}
