#pragma once

#include "host/drawing/Drawing.h"
#include "host/sdk/OdDbStub.h"
#include "lisp/resbuf.h"
#include "sdk/oda/OdDbDatabase.h"

#include <memory>
#include <unordered_map>

// A document's drawing as modules see it through the drawings SDK.
class DrawingDatabase final : public OdDbDatabase
{
public:
    explicit DrawingDatabase(drawing::Drawing &drawing);
    ~DrawingDatabase();

    void startUndoRecord() override;
    void blockUndoRecording(bool block) override;
    bool isUndoBlockStarted() const override;
    void startTransaction() override;
    void endTransaction() override; // nothing when none is open

    OdDbObjectId objectId(const LispName &name); // a null id for a name that is none of this drawing

private:
    class Stub;

    drawing::Drawing &m_drawing;
    std::unordered_map<drawing::RecordId, std::unique_ptr<Stub>> m_stubs; // of the ids that were given
};
