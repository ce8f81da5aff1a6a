// nentsel and nentselp: picks what lies inside of block references.

#include "host/commands/Picking.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/geometry/Course.h"
#include "host/drawing/geometry/PlanePolyline.h"
#include "host/drawing/selection/Region.h"
#include "host/kernel/Document.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/builtins/PickErrors.h"
#include "host/kernel/drawing/EntityName.h"
#include "lisp/LispStatus.h"

using drawing::NoRecord;
using drawing::RecordId;
using geometry::Matrix;
using geometry::Vector;
using lisp::Args;
using lisp::ListBuilder;
using lisp::Machine;
using lisp::Value;

namespace {

// The vertex that begins the segment which is nearest to the place, in the polyline's own coordinates.
RecordId vertexAt(const drawing::Drawing &drawing, RecordId polyline, const Vector &place)
{
    const drawing::Database &database = drawing.database();
    const std::optional<drawing::PolylineData> data = drawing::polylineOf(database, polyline);
    if (!data)
        return polyline;
    const Vector own = inverse(Matrix::ofExtrusion(data->extrusion)).place(place);
    RecordId found = polyline;
    double nearest = INFINITY;
    RecordId part = database.record(polyline).next;
    for (std::size_t i = 0; i < data->vertices.size() && part != NoRecord; part = database.record(part).next) {
        if (database.record(part).isGone())
            continue;
        const auto &from = data->vertices[i], &to = data->vertices[(i + 1) % data->vertices.size()];
        const bool isLast = ++i == data->vertices.size();
        if (isLast && !data->isClosed)
            break;
        const geometry::Course course(geometry::segment(from.place, to.place, from.bulge));
        const Vector away = course.at(course.nearest(own)) - own;
        if (const double distance = std::hypot(away.x, away.y); distance < nearest) {
            nearest = distance;
            found = part;
        }
    }
    return found;
}

Value vectorValue(Machine &machine, const Vector &vector)
{
    return pointValue(machine, {vector.x, vector.y, vector.z}, 3);
}

// Where the three unit vectors and the origin go.
Value rowsOf(Machine &machine, const Matrix &matrix)
{
    ListBuilder rows(machine.heap());
    for (const Vector &row : {matrix.x, matrix.y, matrix.z, matrix.origin})
        rows.add(vectorValue(machine, row));
    return rows.list();
}

// The same as four rows that columns are multiplied with.
Value squareOf(Machine &machine, const Matrix &matrix)
{
    ListBuilder rows(machine.heap());
    const auto add = [&](double x, double y, double z, double w) {
        ListBuilder row(machine.heap());
        for (const double number : {x, y, z, w})
            row.add(Value::real(number));
        rows.add(row.list());
    };
    for (const auto axis : {&Vector::x, &Vector::y, &Vector::z})
        add(matrix.x.*axis, matrix.y.*axis, matrix.z.*axis, matrix.origin.*axis);
    add(0, 0, 0, 1);
    return rows.list();
}

using MatrixValue = Value (*)(Machine &machine, const Matrix &matrix);

// The name and the point; of what lies in a block also the matrix to the world and the references, innermost first.
// Attributes, which stand in the world, are as what lies in none.
Value nestedAt(Machine &machine, const LispPoint &point, MatrixValue matrixValue)
{
    Document &document = Document::of(machine);
    const drawing::Drawing &drawing = document.drawing();
    const drawing::Point at{point.x, point.y, point.z};
    const RecordId outer = commands::entityAt(document.session(), at);
    const Vector world = commands::WorkPlane(document.session()).world(at);
    const auto part = outer != NoRecord ? selection::nearestPart(drawing, outer, {world.x, world.y})
                                        : std::optional<selection::Part>();
    if (!part) {
        notePickError(document, PickError::NothingThere);
        return Value::nil();
    }
    const std::u16string type = drawing.database().type(part->entity);
    const RecordId named =
        type == u"POLYLINE" ? vertexAt(drawing, part->entity, inverse(part->toWorld).place(world)) : part->entity;
    ListBuilder result(machine.heap());
    result.add(entityName(machine, drawing, named));
    result.add(pointValue(machine, point, 3));
    if (part->inserts.empty() || type == u"ATTRIB")
        return result.list();
    result.add(matrixValue(machine, part->toWorld));
    ListBuilder references(machine.heap());
    for (auto insert = part->inserts.rbegin(); insert != part->inserts.rend(); ++insert)
        references.add(entityName(machine, drawing, *insert));
    result.add(references.list());
    return result.list();
}

Value ask(Machine &machine, std::u16string_view prompt, MatrixValue matrixValue)
{
    Document &document = Document::of(machine);
    LispPoint point{};
    switch (document.prompter().entity(prompt, point)) {
    case StatusNormal:
        return nestedAt(machine, point, matrixValue);
    case StatusKeyword:
        return machine.string(document.prompter().lastInput());
    case StatusNoInput:
        notePickError(document, PickError::NoAnswer);
        return Value::nil();
    default:
        lisp::fail(u"Function cancelled");
    }
}

constexpr std::u16string_view StandardPrompt = u"\nSelect object: ";

Value nentsel(Machine &machine, Args arguments)
{
    return ask(machine, arguments.has(0) ? arguments.text(0) : StandardPrompt, rowsOf);
}

// With a point nobody is asked.
Value nentselp(Machine &machine, Args arguments)
{
    const std::uint32_t pointIndex = arguments.has(0) && arguments[0].isString() ? 1 : 0;
    if (!arguments.has(pointIndex))
        return ask(machine, pointIndex == 1 ? arguments.text(0) : StandardPrompt, squareOf);
    const std::optional<PointList> point = pointListOf(arguments[pointIndex]);
    if (!point)
        lisp::badArgument(u"point:", arguments[pointIndex]);
    return nestedAt(machine, point->point, squareOf);
}

constexpr lisp::BuiltinRow rows[] = {
    {"nentsel", "(nentsel [PROMPT])",
     "Asks for an entity, also in blocks; there with a 4x3 matrix to the world and the block references.", nentsel},
    {"nentselp", "(nentselp [PROMPT] [POINT])", "The same with a 4x4 matrix; with a point nobody is asked.", nentselp},
};

} // namespace

std::span<const lisp::BuiltinRow> nestedSelectionBuiltins()
{
    return rows;
}
