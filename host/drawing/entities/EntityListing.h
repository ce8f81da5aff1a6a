#pragma once

#include "host/drawing/Drawing.h"

#include <vector>

namespace drawing {

// What programs see of a record: its groups in one customary form, whatever the file has. The type stands first, then
// the owner and the handle; an entity has its subclass markers, its space (67) and layout (410), and the groups that
// files leave out where they have their default.
struct ListedGroup
{
    static constexpr int Derived = -1; // not in the record

    Group group;
    int origin = Derived; // its place in Database::groups()
};

// Angles (groups 50 to 58) are degrees in a drawing and radians for programs. Other groups stay as they are.
Group inRadians(Group group);
Group inDegrees(Group group);

// Without extended data (1000 and above). Angles are in radians.
std::vector<ListedGroup> listing(const Drawing &drawing, RecordId record);

// The name of the layout that an entity stands in; empty for those of other blocks.
std::u16string layoutOf(const Drawing &drawing, RecordId entity);

// The table record (before R2000: none), table or dictionary that the record belongs to.
Handle ownerOf(const Drawing &drawing, RecordId record);

} // namespace drawing
