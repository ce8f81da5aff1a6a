#include "host/kernel/drawing/DrawingDatabase.h"

#include "host/kernel/drawing/EntityName.h"
#include "sdk/oda/OdDbAttributeDefinition.h"

using drawing::Drawing;
using drawing::RecordId;
using drawing::RecordKind;

namespace {

// An object that is open: lives as long as somebody points to it.
template <class Interface> class Opened : public Interface
{
public:
    Opened(const Drawing &drawing, OdDbObjectId id, RecordId record) : m_drawing(drawing), m_id(id), m_record(record) {}
    virtual ~Opened() = default;

    void addRef() override { ++m_references; }
    void release() override
    {
        if (--m_references == 0)
            delete this;
    }
    long numRefs() const override { return m_references; }
    OdDbObjectId objectId() const override { return m_id; }

protected:
    const Drawing &m_drawing;
    OdDbObjectId m_id;
    RecordId m_record;

private:
    long m_references = 0;
};

// Several lines stand in a text with lines of its own, which is embedded.
class OpenedAttributeDefinition final : public Opened<OdDbAttributeDefinition>
{
public:
    using Opened::Opened;
    bool isMTextAttributeDefinition() const override
    {
        return m_drawing.database().firstGroup(m_record, drawing::groupcode::EmbeddedObject).has_value();
    }
};

OdDbObject *newObject(const Drawing &drawing, OdDbObjectId id, RecordId record)
{
    if (drawing.database().record(record).kind != RecordKind::Entity)
        return new Opened<OdDbObject>(drawing, id, record);
    if (drawing.database().type(record) == u"ATTDEF")
        return new OpenedAttributeDefinition(drawing, id, record);
    return new Opened<OdDbEntity>(drawing, id, record);
}

} // namespace

class DrawingDatabase::Stub final : public OdDbStub
{
public:
    Stub(const Drawing &drawing, RecordId record) : m_drawing(drawing), m_record(record) {}

    OdDbObjectPtr open(OdDb::OpenMode) override
    {
        if (m_drawing.database().record(m_record).isGone())
            return {};
        return OdDbObjectPtr(newObject(m_drawing, OdDbObjectId(this), m_record));
    }

private:
    const Drawing &m_drawing;
    RecordId m_record;
};

DrawingDatabase::DrawingDatabase(Drawing &drawing) : m_drawing(drawing) {}

DrawingDatabase::~DrawingDatabase() = default;

void DrawingDatabase::startUndoRecord()
{
    m_drawing.database().journal().startRecord();
}

void DrawingDatabase::blockUndoRecording(bool block)
{
    drawing::Journal &journal = m_drawing.database().journal();
    if (block)
        journal.beginBlock();
    else
        journal.endBlock();
}

bool DrawingDatabase::isUndoBlockStarted() const
{
    return m_drawing.database().journal().isBlockOpen();
}

void DrawingDatabase::startTransaction()
{
    m_drawing.database().journal().startTransaction();
}

void DrawingDatabase::endTransaction()
{
    m_drawing.database().journal().endTransaction();
}

OdDbObjectId DrawingDatabase::objectId(const LispName &name)
{
    const RecordId record = recordOf(m_drawing, name);
    if (record == drawing::NoRecord)
        return OdDbObjectId();
    std::unique_ptr<Stub> &stub = m_stubs[record];
    if (!stub)
        stub = std::make_unique<Stub>(m_drawing, record);
    return OdDbObjectId(stub.get());
}
