#include "lisp/ActiveLispHost.h"

#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxSystemServices.h"

LispHost *activeLispHost()
{
    return ACTIVE_DOCUMENT()->lispHost();
}
