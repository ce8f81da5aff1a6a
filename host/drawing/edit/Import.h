#pragma once

#include "host/drawing/Drawing.h"

#include <string>
#include <vector>

namespace drawing {

// What came of another drawing.
struct Import
{
    RecordId block = NoRecord;            // the start of the block that its model became
    std::vector<std::u16string> heldOnto; // blocks that both have: they stay as they were
    std::size_t left = 0;                 // objects that could not come along, as they need more than what came
};

// Makes the model of another drawing a block of this name, with its $INSBASE as base point; a block that has the name
// is emptied before. All layers, linetypes, styles, applications and named blocks of the other drawing come along. What
// the drawing has under the same name holds. No block when the name cannot be written.
//
// Drawings before R13 take only drawings before R13, and what would show itself must not be imported.
Import importAsBlock(Drawing &drawing, const Drawing &source, const std::u16string &name);
bool canTake(const Drawing &drawing, const Drawing &source);
bool wouldShowItself(const Drawing &drawing, const Drawing &source, const std::u16string &name);

} // namespace drawing
