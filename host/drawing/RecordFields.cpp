#include "host/drawing/RecordFields.h"

namespace drawing {

namespace {

constexpr int NoCode = -1;

int nameCodeOf(RecordKind kind)
{
    switch (kind) {
    case RecordKind::Entity:
        return groupcode::Layer;
    case RecordKind::SectionStart:
    case RecordKind::TableStart:
    case RecordKind::TableRecord:
    case RecordKind::BlockStart:
        return groupcode::Name;
    case RecordKind::HeaderVariable:
        return groupcode::VariableName;
    default:
        return NoCode;
    }
}

int handleCodeOf(const Record &record)
{
    switch (record.kind) {
    case RecordKind::TableRecord: // a dimension style's 5 is the name of a block
        return record.type == known::DimensionStyle ? groupcode::DimStyleHandle : groupcode::Handle;
    case RecordKind::TableStart:
    case RecordKind::BlockStart:
    case RecordKind::BlockEnd:
    case RecordKind::Entity:
    case RecordKind::Object:
        return groupcode::Handle;
    default:
        return NoCode;
    }
}

} // namespace

void RecordFields::begin(const Record &record)
{
    m_handleCode = handleCodeOf(record);
    m_nameCode = nameCodeOf(record.kind);
    m_subclasses = 0;
}

} // namespace drawing
