#pragma once

#include "host/drawing/GroupCursor.h"
#include "host/drawing/RawValues.h"
#include "host/drawing/Record.h"

namespace drawing {

// Reads, group after group, what a Record says of its bytes: handle, name and space.
class RecordFields
{
public:
    RecordFields(NameTable &names, const FileFormat &format) : m_names(names), m_format(format) {}

    // For a record whose kind and type are set.
    void begin(const Record &record);
    void take(const RawGroup &group, Record &record)
    {
        switch (group.code) {
        case groupcode::Handle:
        case groupcode::DimStyleHandle:
            if (group.code == m_handleCode && record.handle == 0)
                record.handle = handleOf(group.value);
            break;
        case groupcode::Name:
        case groupcode::Layer:
        case groupcode::VariableName:
            if (group.code == m_nameCode) {
                record.name = m_names.idOf(group.value);
                m_nameCode = NoCode;
            }
            break;
        case groupcode::Space:
            // Only the common part of an entity, before the second subclass, tells the space.
            if (record.kind == RecordKind::Entity && m_subclasses <= 1 && integerOf(group, m_format.kind) != 0)
                record.flags |= Record::PaperSpace;
            break;
        case groupcode::Subclass:
            ++m_subclasses;
            break;
        case groupcode::EmbeddedObject: // the groups after it mean other things
            m_nameCode = m_handleCode = NoCode;
            break;
        default:
            break;
        }
    }

private:
    static constexpr int NoCode = -1;

    NameTable &m_names;
    FileFormat m_format;
    int m_handleCode = NoCode;
    int m_nameCode = NoCode;
    int m_subclasses = 0;
};

} // namespace drawing
