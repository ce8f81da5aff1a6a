#pragma once

#include "sdk/oda/OdRxExport.h"

// The drawing of a document. The order of the operations is the SDK's.
class ODRX_EXPORT OdDbDatabase
{
public:
    // Begins a new step of undo.
    virtual void startUndoRecord() = 0;
    // While blocked, changes do not begin steps of their own: they all belong to the step that is open.
    virtual void blockUndoRecording(bool block) = 0;
    virtual bool isUndoBlockStarted() const = 0;

    // Transactions nest. Ending one keeps its changes.
    virtual void startTransaction() = 0;
    virtual void endTransaction() = 0;

protected:
    ~OdDbDatabase() = default;
};
