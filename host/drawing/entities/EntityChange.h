#pragma once

#include "host/drawing/entities/ValueChange.h"

namespace drawing {

// Changes a record to what a program's list says of it. `wanted` is in the form of listing(), radians and all, with
// extended data, and may be a part of it: groups whose code is not in the list stay as they are. Of groups that are
// there several times, as the points of a polyline, the list's replace all. The type, the handle, the owner and what
// stands between braces never change, but for the extension dictionary and the reactors (see Attachments.h). Values
// that listing() had only added are not written while they are unchanged. Extended data replaces that of the same
// applications; an application alone removes its data. A layer that is not there is made. False when a value cannot be
// written or a dictionary or reactor be attached; then nothing is changed.
bool changeRecord(Drawing &drawing, RecordId record, const GroupList &wanted);

// The same for some values of the listing; see changeValues(). False, too, for what only a whole list can do.
bool changeRecord(Drawing &drawing, RecordId record, const ValueChanges &changes);

// Makes a layer as programs expect it, when it is not there.
void ensureLayer(Drawing &drawing, const std::u16string &name);

} // namespace drawing
