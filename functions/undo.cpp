#include "functions/undo.h"

#include "functions/VersionText.h"
#include "lisp/ActiveLispHost.h"
#include "lisp/LispStatus.h"
#include "sdk/fx/CFxDocument.h"
#include "sdk/fx/CFxSystemServices.h"
#include "sdk/oda/OdDbDatabase.h"

// The functions that bracket changes work on the drawing alone: they take no arguments and set no result. Without an
// active document the call fails.

int acetBeginUndogroup()
{
    CFxDocument *document = ACTIVE_DOCUMENT();
    if (document == nullptr)
        return StatusError;
    OdDbDatabase *database = document->database();
    database->startUndoRecord();
    database->blockUndoRecording(true);
    return StatusNormal;
}

int acetEndUndogroup()
{
    CFxDocument *document = ACTIVE_DOCUMENT();
    if (document == nullptr)
        return StatusError;
    OdDbDatabase *database = document->database();
    if (database->isUndoBlockStarted())
        database->blockUndoRecording(false);
    return StatusNormal;
}

int startAddTableTransaction()
{
    CFxDocument *document = ACTIVE_DOCUMENT();
    if (document == nullptr)
        return StatusError;
    document->database()->startTransaction();
    return StatusNormal;
}

int endAddTableTransaction()
{
    CFxDocument *document = ACTIVE_DOCUMENT();
    if (document == nullptr)
        return StatusError;
    document->database()->endTransaction();
    return StatusNormal;
}

int acetUtilVer()
{
    activeLispHost()->retStr(versionText);
    return StatusNormal;
}
