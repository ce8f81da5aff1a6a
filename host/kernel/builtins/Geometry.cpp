// Places, and the coordinate systems that they are in.

#include "host/commands/ViewState.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/TextLayouts.h"
#include "host/interpreter/Printer.h"
#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/drawing/EntityData.h"
#include "host/kernel/drawing/EntityName.h"

using geometry::Matrix;
using geometry::Vector;
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

enum class CoordinateCode { World, User, Display, Paper };

// The coordinates of these entities are the world's, whatever extrusion direction they have.
bool isInWorld(std::u16string_view type)
{
    for (const std::u16string_view one : {u"LINE", u"POINT", u"3DFACE", u"ELLIPSE", u"SPLINE", u"MTEXT", u"LEADER",
                                          u"RAY", u"XLINE", u"VIEWPORT", u"IMAGE"})
        if (type == one)
            return true;
    return false;
}

Matrix entityToWorld(Document &document, const LispName &name)
{
    const drawing::RecordId record = recordOf(document.drawing(), name);
    if (record == drawing::NoRecord)
        return {};
    const drawing::Database &database = document.drawing().database();
    return isInWorld(database.type(record)) ? Matrix()
                                            : Matrix::ofExtrusion(drawing::extrusionOf(database.groups(record)));
}

// A code, an entity, whose own coordinate system is meant, or the extrusion direction of one.
Matrix systemArgument(Document &document, Args arguments, std::uint32_t index)
{
    const Value system = arguments[index];
    if (const std::optional<PointList> direction = pointListOf(system))
        return Matrix::ofExtrusion({direction->point.x, direction->point.y, direction->point.z});
    if (!system.isInteger())
        return entityToWorld(document, arguments.native<EntityName>(index, u"lentityp")->name);
    switch (static_cast<CoordinateCode>(system.asInteger())) {
    case CoordinateCode::World:
        return {};
    case CoordinateCode::User:
        return commands::WorkPlane(document.session()).toWorld();
    case CoordinateCode::Display:
        return commands::viewState(document.session()).displayToWorld();
    case CoordinateCode::Paper: // would need a viewport of paper space that the model is worked on in
        break;
    }
    lisp::fail(u"bad argument value: coordinate system " + lisp::printed(system));
}

// A point of two coordinates lies at height 0, in the user's system at the elevation.
Value trans(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    const std::optional<PointList> point = pointListOf(arguments[0]);
    if (!point)
        lisp::badArgument(u"point:", arguments[0]);
    Vector place{point->point.x, point->point.y, point->point.z};
    const bool isFromUser =
        arguments[1].isInteger() && arguments[1].asInteger() == static_cast<int>(CoordinateCode::User);
    if (point->count == 2 && isFromUser)
        place.z = document.session().real(u"ELEVATION");
    const Matrix from = systemArgument(document, arguments, 1), to = inverse(systemArgument(document, arguments, 2));
    const bool isDisplacement = arguments.has(3) && arguments[3].isTrue();
    const Vector found = isDisplacement ? to.direction(from.direction(place)) : to.place(from.place(place));
    return pointValue(machine, {found.x, found.y, found.z}, 3);
}

// A text as its groups say, but upright and not aligned: its insertion point is the origin.
geometry::Text plainText(Document &document, const drawing::GroupList &groups)
{
    constexpr int StyleCode = 7, HeightCode = 40, WidthCode = 41, ObliqueCode = 51;
    const commands::Session &session = document.session();
    const double height = drawing::realOf(groups, HeightCode, session.real(u"TEXTSIZE"));
    geometry::Text text;
    text.string = drawing::textOf(groups, 1);
    text.style = document.drawing().tables().find(drawing::known::Style,
                                                  drawing::textOf(groups, StyleCode, session.text(u"TEXTSTYLE")));
    text.right = {height * drawing::realOf(groups, WidthCode, 1), 0, 0};
    text.up = {height * std::tan(drawing::realOf(groups, ObliqueCode)), height, 0}; // angles of lists are radians
    return text;
}

Value textbox(Machine &machine, Args arguments)
{
    Document &document = Document::of(machine);
    const drawing::GroupList groups = entityRequest(arguments.list(0)).groups;
    const std::u16string type = drawing::textOf(groups, drawing::groupcode::Type, u"TEXT");
    if (!drawing::hasGroup(groups, 1) || (type != u"TEXT" && type != u"ATTRIB" && type != u"ATTDEF"))
        return Value::nil();
    const geometry::Text text = plainText(document, groups);
    const auto corners = inkCorners(text, geometry::textStyleOf(document.drawing().database(), text.style));
    geometry::Box box;
    for (const Vector &corner : corners.value_or(std::array<Vector, 4>{}))
        box.add(corner);
    lisp::ListBuilder both(machine.heap());
    both.add(pointValue(machine, {box.minimum.x, box.minimum.y, 0}, 3));
    both.add(pointValue(machine, {box.maximum.x, box.maximum.y, 0}, 3));
    return both.list();
}

constexpr lisp::BuiltinRow rows[] = {
    {"trans", "(trans POINT FROM TO [DISPLACEMENT])",
     "Brings a point to another coordinate system: 0 world, 1 user, 2 display, an entity's, an extrusion's.", trans},
    {"textbox", "(textbox LIST)", "Gives two corners of the box about a text, from its insertion point and upright.",
     textbox},
    {"osnap", "(osnap POINT MODES)",
     "Gives the place of an entity near the point: \"_end\", \"_mid,_cen\" and so on; nil if there is none.", osnap},
};

} // namespace

std::span<const lisp::BuiltinRow> geometryBuiltins()
{
    return rows;
}
