#pragma once

#include "host/drawing/NameTable.h"

#include <cstdint>

namespace drawing {

// A record's number, which stays its own while the drawing is open, also when it is deleted. 0 is none.
using RecordId = std::uint32_t;
inline constexpr RecordId NoRecord = 0;

// The parts that a file is cut into. Every byte of the file lies in exactly one record.
enum class RecordKind : std::uint8_t {
    Preamble, // what stands before the first record: nothing, comments, or a binary file's sentinel
    SectionStart,
    SectionEnd,
    HeaderVariable,
    Class,
    TableStart,
    TableEnd,
    TableRecord,
    BlockStart,
    BlockEnd,
    Entity,
    Object,
    FileEnd, // with whatever follows it
    Other    // in sections that are not known, or where nothing known may stand
};

// One entity, object, table record, header variable or mark between them. There are as many as the file has, so it is
// kept small.
struct Record
{
    enum Flag : std::uint8_t {
        PaperSpace = 1,
        Erased = 2,          // may come back
        Absent = 4,          // its making was undone
        Added = 8,           // was not in the file
        AssignedHandle = 16, // the file gives it none; it has one while the drawing is open
        SameHandle = 32      // an earlier record has the handle that stands in this one
    };

    std::uint64_t begin = 0; // where its bytes begin in the file; they end where those of the next number begin
    std::uint64_t handle = 0;
    NameId type = known::None; // of group 0; of a header variable none
    NameId name = known::None; // a table record's, block's, section's or variable's own, an entity's layer
    RecordId container =
        NoRecord;           // the start of its block, table or section; the entity that a vertex or attribute is of
    std::uint32_t text = 0; // its changed bytes, a number in the TextStore; 0: as in the file
    RecordId next = NoRecord;
    RecordId previous = NoRecord;
    RecordKind kind = RecordKind::Other;
    std::uint8_t flags = 0;

    bool has(Flag flag) const { return (flags & flag) != 0; }
    bool isGone() const { return (flags & (Erased | Absent)) != 0; }
    bool isEnd() const
    {
        return kind == RecordKind::SectionEnd || kind == RecordKind::TableEnd || kind == RecordKind::BlockEnd ||
               kind == RecordKind::FileEnd;
    }
};
static_assert(sizeof(Record) == 48);

// Whether records of this type follow the polyline or insert that they are part of, up to a SEQEND.
constexpr bool isPartType(NameId type)
{
    return type == known::Vertex || type == known::Attribute || type == known::SequenceEnd;
}

} // namespace drawing
