// Places, and the coordinate systems that they are in.

#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"

using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

LispPoint pointArgument(Args arguments, std::uint32_t index)
{
    const std::optional<PointList> point = pointListOf(arguments[index]);
    if (!point)
        lisp::badArgument(u"point:", arguments[index]);
    return point->point;
}

// Unknown modes give nil, as places that are not there do.
Value osnap(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    const LispPoint near = pointArgument(arguments, 0);
    const std::optional<snap::Modes> modes = snap::modesFromText(arguments.text(1));
    if (!modes)
        return Value::nil();
    const std::optional<LispPoint> place = document.snapped(near, *modes, document.prompter().lastPoint);
    return place ? pointValue(machine, *place, 3) : Value::nil();
}

constexpr lisp::BuiltinRow rows[] = {
    {"osnap", "(osnap POINT MODES)",
     "Gives the place of an entity near the point: \"_end\", \"_mid,_cen\" and so on; nil if there is none.", osnap},
};

} // namespace

std::span<const lisp::BuiltinRow> geometryBuiltins()
{
    return rows;
}
