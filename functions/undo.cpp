#include "functions/undo.h"

#include "functions/VersionText.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/LispStatus.h"

int acetUtilVer()
{
    activeLispHost()->retStr(versionText);
    return StatusNormal;
}
