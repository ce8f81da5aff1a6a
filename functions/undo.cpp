#include "functions/undo.h"

#include "lisp/ActiveLispHost.h"
#include "lisp/LispStatus.h"

// The day is padded with a blank to two characters, so there are two blanks before a one-digit day.
int acetUtilVer()
{
    activeLispHost()->retStr("LispExtension Version: " LISPEXTENSION_BUILD_DATE);
    return StatusNormal;
}
