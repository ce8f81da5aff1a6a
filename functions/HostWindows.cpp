#include "functions/HostWindows.h"

#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxSystemServices.h"

QWidget *hostMainWindow()
{
    CFxSystemServices *services = GetFxSystemServices();
    return services != nullptr ? services->mainWindow() : nullptr;
}

QWidget *activeDocumentWindow()
{
    CFxDocument *document = ACTIVE_DOCUMENT();
    return document != nullptr ? document->window() : nullptr;
}
