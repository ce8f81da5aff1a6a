#pragma once

#include "host/commands/NewEntity.h"
#include "host/drawing/dimensions/DimensionGroups.h"
#include "host/drawing/geometry/Course.h"

// A dimension in the making.
namespace commands {

// DIM and DIM1 ask for the text at the end, the other commands have an option for it.
enum class TextQuestion { AsOption, AtEnd };

// What is typed for the text instead of the measurement, and how it is turned.
struct DimensionLabel
{
    std::u16string text;         // empty: the measurement
    std::optional<double> angle; // radians; none: as it stands by itself
};

Task<std::u16string> askDimensionText(Context &context, const std::u16string &measurement);
Task<std::optional<double>> askTextAngle(Context &context);

// The segment of the line, arc, circle or polyline that was picked. Throws CommandError where there is none.
geometry::Course pickedSegment(Context &context, const PickedEntity &picked);

// What all kinds of dimensions have. `line` (group 10) and `text` are in the user's coordinates; the kind may have
// flags.
GroupList newDimension(Context &context, std::int64_t kind, const Vector &line, const Vector &text,
                       const DimensionLabel &label);
// Adds a place that is measured, given in the user's coordinates.
void addMeasured(Context &context, GroupList &dimension, int code, const Vector &place);
// The angle of the text, kept as the turn from how it stands otherwise.
void addTextAngle(GroupList &dimension, const DimensionLabel &label, double usual);
// Adds the dimension with the current style and its picture.
RecordId addDimension(Context &context, GroupList dimension);

} // namespace commands
