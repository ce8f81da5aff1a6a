#pragma once

#include "host/drawing/Drawing.h"

class Document;

// Gives a record the groups of a program's list, and follows another name for a table record or block in everything
// that calls it. False for a list that the record cannot have, of another type, say; then nothing is changed. The
// record is there.
bool modifyRecord(Document &document, drawing::RecordId record, const drawing::GroupList &wanted);

// Whether a record can have these groups, as far as they are its own: their values are valid, and what they name is
// there.
bool canTake(const drawing::Drawing &drawing, drawing::RecordId record, const drawing::GroupList &wanted);

// Whether the groups say where the letters of a text stand, or what a dimension shows: what follows from them is
// modifyRecord's to find.
bool hasConsequences(const drawing::Drawing &drawing, drawing::RecordId record, const drawing::GroupList &groups);
