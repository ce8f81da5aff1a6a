#pragma once

#include "host/drawing/Drawing.h"

namespace drawing {

// Whether a record of this type can take what a program's list says: linetypes and text styles that are there, colours
// from 0 to 256, lineweights that there are (see Lineweights.h), layers and table records with valid names, circles and
// arcs that are larger than nothing, extended data with balanced braces, not longer than ExtendedSizeLimit. `present`
// are groups that a record has already: those are taken as they are.
bool hasValidValues(const Drawing &drawing, NameId type, const GroupList &list, const GroupList &present = {});

// Whether a record can hold the list's extended data beside that of the applications that the list does not name.
bool holdsExtendedData(const Drawing &drawing, RecordId record, const GroupList &list);

// Extended data can only be added for applications that are registered.
bool usesKnownApplications(const Drawing &drawing, const GroupList &list);

// Whether a name may be given to a table record or block: no characters that have a meaning of their own, and
// none that cannot be seen.
bool isValidName(std::u16string_view name);

} // namespace drawing
