#pragma once

#include "host/drawing/Drawing.h"

#include <optional>

namespace drawing {

// Where a new entity goes, whatever its list says of that.
struct Placement
{
    RecordId container = NoRecord; // a block's start; NoRecord: model or paper space
    bool isPaperSpace = false;
    std::u16string layer = u"0"; // where the list names none
};

// Where a program's list puts an entity that otherwise would go to the current place: into the layout that it names
// (410), or else into the space (67). None when there is no such layout.
std::optional<Placement> placementOf(const Drawing &drawing, const GroupList &list, const Placement &current);

// Adds an entity at the end of its space or block. The list is a program's: the type, and in any order after it what
// makes the entity; a handle, owner or entity name in it does not count. What a type that is older than subclass
// markers leaves out is put where it belongs. A layer that is not there is made.
// NoRecord when a required group is missing, a value cannot be written, a block to be inserted is not there or is a
// space of the drawing, or the drawing is older than the type.
RecordId addEntity(Drawing &drawing, const GroupList &list, const Placement &placement = {});

// Adds a VERTEX, ATTRIB or SEQEND behind what the polyline or insert has already.
RecordId addPart(Drawing &drawing, RecordId whole, const GroupList &list);
// The same behind `last`, which is the latest part, or the whole itself where there is none. To look for it at each of
// thousands takes too long.
RecordId addPartBehind(Drawing &drawing, RecordId last, RecordId whole, const GroupList &list);

// Whether addEntity, or addPart, has all that it needs.
bool isComplete(const Drawing &drawing, const GroupList &list);

// Whether all values of the list are ones that the drawing's file can hold.
bool isWritable(const Drawing &drawing, const GroupList &list);

// Whether an INSERT can show what the list names, if it names another block than before: one that is there, is no space
// of the drawing, and does not hold the insert in turn.
bool canShow(const Drawing &drawing, RecordId insert, const GroupList &wanted);

// Adds a record to the table of its type, with what the list leaves out: LAYER, LTYPE, STYLE, …
RecordId addTableRecord(Drawing &drawing, const GroupList &list);

// Whether its dimension styles have the name of their arrow's block under the code that is other records' handle.
bool namesArrows(const Database &database);

} // namespace drawing
