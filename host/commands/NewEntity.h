#pragma once

#include "host/commands/Context.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/edit/PolylineSegments.h"

namespace commands {

using drawing::GroupList;

// The type of a new entity and what it has from the current settings: layer, colour, linetype, and so on.
GroupList newEntity(Context &context, std::u16string type);

// The extrusion direction, and the thickness that is set; nothing where both are as usual.
void extrude(Context &context, const WorkPlane &plane, GroupList &groups);

// Adds it to the current space. Throws CommandError when it cannot be written.
RecordId addEntity(Context &context, const GroupList &groups);
void addPart(Context &context, RecordId whole, const GroupList &groups);

RecordId addLine(Context &context, const Vector &start, const Vector &end); // in world coordinates

enum class Shape { Straight, Curved };
// What was just drawn ends at the place and goes in this direction there; what comes next may go on from it.
void rememberEnd(Context &context, const WorkPlane &plane, const Point &end, double direction, Shape shape);

using PolylineVertex = drawing::PolylineData::Vertex; // in object coordinates

enum class Closing { Open, Closed };

// A polyline in the work plane: an LWPOLYLINE, or a POLYLINE where the file's version or PLINETYPE 0 wants that.
RecordId addPolyline(Context &context, const WorkPlane &plane, const std::vector<PolylineVertex> &vertices,
                     Closing closing);

} // namespace commands
