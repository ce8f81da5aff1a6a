#pragma once

#include "host/commands/DrawnEnd.h"
#include "host/commands/Input.h"
#include "host/commands/SelectionWay.h"
#include "host/commands/ViewState.h"

#include <optional>

namespace commands {

// What commands remember for those that come later, as long as the document is open.
struct Memory
{
    struct CoordinateSystem
    {
        Point origin, x, y;
        std::u16string name;
    };

    std::vector<ViewState> views;           // for ZOOM Previous
    std::vector<CoordinateSystem> systems;  // for UCS Previous
    SelectionWays ways;                     // into the last selection
    Selection erased;                       // for OOPS
    std::optional<DrawnEnd> drawnEnd;       // of the last line, arc or polyline
    RecordId text = drawing::NoRecord;      // the last one, for TEXT to go on below
    RecordId attribute = drawing::NoRecord; // the same of ATTDEF
    RecordId dimension = drawing::NoRecord; // the last linear one, for others to go on from
    std::optional<std::u16string> script;   // that SCRIPT has read and that is to be run now
};

} // namespace commands
