#pragma once

#include "host/drawing/Drawing.h"

// What hangs on an entity, object or table record: an extension dictionary, which it owns, and reactors, objects that
// want to hear of its changes. Files have both between braces, {ACAD_XDICTIONARY and {ACAD_REACTORS, behind its handle
// and ahead of its owner; programs give them anywhere in a list.
namespace drawing {

// Those of a list that a new record can have. The dictionary of another record, which the list of a copy still names,
// and reactors that are not there are left out.
GroupList attachmentsForNew(const Drawing &drawing, const GroupList &list);
GroupList withoutAttachments(const GroupList &list);

// Whether the record can have those that the list has other than it: a dictionary that belongs to nothing yet, and
// reactors that are there.
bool canAttach(const Drawing &drawing, RecordId record, const GroupList &wanted);
// Those of the list take the places of the record's of the same kind; braces with nothing between them remove these.
void putAttachments(GroupList &groups, const GroupList &wanted);

// Makes the record the owner of its extension dictionary, and the one that it had before free for another.
void ownExtensionDictionary(Database &database, RecordId record, RecordId before = NoRecord);

} // namespace drawing
