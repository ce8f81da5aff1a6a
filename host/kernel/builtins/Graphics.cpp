// What programs draw over the picture, and what the person does there: the gr… functions.

#include "host/commands/WorkPlane.h"
#include "host/kernel/Document.h"
#include "host/kernel/HostServices.h"
#include "host/kernel/PointValues.h"
#include "host/kernel/builtins/HostBuiltins.h"
#include "host/kernel/drawing/EntityName.h"
#include "lisp/LispStatus.h"

#include <array>
#include <cstdlib>

using geometry::Matrix;
using geometry::Vector;
using lisp::Args;
using lisp::Machine;
using lisp::Value;

namespace {

using Line = DrawingOverlay::Line;
using Highlight = DrawingOverlay::Highlight;

enum EventCode : int { KeyCode = 2, PickCode = 3, MoveCode = 5 }; // as programs know them

DrawingOverlay &overlay(Machine &machine)
{
    return *Document::of(machine).services().overlay;
}

Vector placeOf(Value value)
{
    const std::optional<PointList> list = pointListOf(value);
    if (!list)
        lisp::badArgument(u"point:", value);
    return {list->point.x, list->point.y, list->point.z};
}

Highlight highlightOf(Value value)
{
    return value.isInteger() && value.asInteger() != 0 ? Highlight::On : Highlight::Off;
}

Value grdraw(Machine &machine, Args arguments)
{
    const Matrix toWorld = commands::WorkPlane(Document::of(machine).session()).toWorld();
    overlay(machine).add({{toWorld.place(placeOf(arguments[0])), toWorld.place(placeOf(arguments[1])),
                           arguments.integer(2), highlightOf(arguments[3])}});
    return Value::nil();
}

// Four rows of four numbers.
Matrix matrixOf(Value value)
{
    const std::vector<Value> rows = lisp::itemsOf(value);
    std::array<std::array<double, 4>, 4> numbers{};
    if (rows.size() != numbers.size())
        lisp::badArgument(u"matrix:", value);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        const std::vector<Value> items = lisp::itemsOf(rows[row]);
        if (items.size() != numbers[row].size())
            lisp::badArgument(u"matrix:", value);
        for (std::size_t column = 0; column < items.size(); ++column)
            numbers[row][column] = lisp::Args(&items[column], 1).number(0);
    }
    const auto column = [&](std::size_t number) {
        return Vector{numbers[0][number], numbers[1][number], numbers[2][number]};
    };
    return {column(0), column(1), column(2), column(3)};
}

// (grvecs VECTORS [MATRIX]): a colour holds for the pairs of points behind it; a negative one highlights.
Value grvecs(Machine &machine, Args arguments)
{
    const Matrix own = arguments[1].isTrue() ? matrixOf(arguments[1]) : Matrix();
    const Matrix toWorld = commands::WorkPlane(Document::of(machine).session()).toWorld() * own;
    std::vector<Line> lines;
    int color = 7;
    std::optional<Vector> from;
    for (const Value item : lisp::ListItems(arguments.list(0))) {
        if (item.isInteger()) {
            color = item.asInteger();
            continue;
        }
        const Vector place = toWorld.place(placeOf(item));
        if (from)
            lines.push_back({*from, place, std::abs(color), color < 0 ? Highlight::On : Highlight::Off});
        from = from ? std::nullopt : std::optional(place);
    }
    if (from)
        lisp::fail(u"bad grvecs list value");
    overlay(machine).add(lines);
    return Value::nil();
}

// (grtext) takes the text away. The boxes of a menu, numbered from 0, are not there.
Value grtext(Machine &machine, Args arguments)
{
    const bool isForStatus = arguments.has(0) && arguments.integer(0) < 0;
    if (!arguments.has(0))
        overlay(machine).showText({});
    else if (isForStatus)
        overlay(machine).showText(std::u16string(arguments.text(1)));
    return arguments[1];
}

// (redraw) takes away what was drawn over the picture; (redraw ENAME 3) and (redraw ENAME 4) highlight an entity.
Value redraw(Machine &machine, Args arguments)
{
    constexpr int HighlightOn = 3;
    if (!arguments.has(0)) {
        overlay(machine).clear();
        return Value::nil();
    }
    const auto *name = arguments.native<EntityName>(0, u"lentityp");
    const drawing::RecordId entity = recordOf(Document::of(machine).drawing(), name->name);
    const int mode = arguments.has(1) ? arguments.integer(1) : 1;
    if (entity != drawing::NoRecord)
        overlay(machine).setHighlight(entity, mode == HighlightOn ? Highlight::On : Highlight::Off);
    return Value::nil();
}

Value eventValue(Machine &machine, int code, Value value)
{
    lisp::ListBuilder both(machine.heap());
    both.add(Value::integer(code));
    both.add(value);
    return both.list();
}

Value grread(Machine &machine, Args arguments)
{
    using Event = Prompter::Event;
    Event event{};
    const auto moves = arguments[0].isTrue() ? Prompter::Moves::Told : Prompter::Moves::Ignored;
    if (Document::of(machine).prompter().event(moves, event) != StatusNormal)
        lisp::fail(u"Function cancelled");
    if (event.kind == Event::Kind::Key)
        return eventValue(machine, KeyCode, Value::integer(event.key));
    return eventValue(machine, event.kind == Event::Kind::Pick ? PickCode : MoveCode,
                      pointValue(machine, event.place, 3));
}

constexpr lisp::BuiltinRow rows[] = {
    {"grdraw", "(grdraw FROM TO COLOR [HIGHLIGHT])", "Draws a line over the picture, until it is redrawn.", grdraw},
    {"grvecs", "(grvecs VECTORS [MATRIX])",
     "Draws lines over the picture: colours, and pairs of points in the colour before them.", grvecs},
    {"grtext", "(grtext [BOX] [TEXT] [HIGHLIGHT])", "Shows a text in the status bar: BOX -1 or -2.", grtext},
    {"grread", "(grread [TRACK] [KEYS] [CURSOR])",
     "Gives what the person does next: (2 KEY), (3 POINT) for a click, and (5 POINT) for a move if TRACK is not nil.",
     grread},
    {"redraw", "(redraw [ENAME] [MODE])",
     "Takes away what was drawn over the picture; of an entity, MODE 3 highlights it, others end that.", redraw},
};

} // namespace

std::span<const lisp::BuiltinRow> graphicsBuiltins()
{
    return rows;
}
