// ARRAY: copies in rows and columns, or around a point.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/geometry/Extents.h"

#include <cmath>

namespace commands {

using drawing::Similarity;
using geometry::Matrix;

namespace {

constexpr int MostCopies = 100000; // what somebody may mean

void addCopies(Context &context, const Selection &originals, const Matrix &matrix)
{
    std::vector<drawing::EntityCopy> copies;
    for (const RecordId original : originals) {
        const RecordId copy = drawing::copyTransformed(context.drawing(), original, Similarity{matrix, false});
        if (copy == drawing::NoRecord)
            throw CommandError{u"The object cannot be copied."};
        copies.push_back({original, copy});
    }
    linkCopies(context.drawing(), copies);
}

Task<int> askCount(Context &context, std::u16string_view prompt)
{
    const auto count = co_await context.ask().integer({prompt}, {1, MostCopies});
    co_return count.hasValue() ? count.value : 1;
}

struct Cell
{
    double row = 0, column = 0;
};

std::u16string_view complaintAboutRows(const Input &input, const Session &session)
{
    const bool fits = numberOf(input, session) || pointOf(input, session);
    return fits ? u"" : u"Requires numeric distance or two points.";
}

// Two distances, or two corners of a cell for both.
Task<Cell> askCell(Context &context, int rows, int columns)
{
    Cell cell;
    if (rows > 1) {
        const auto answer = co_await context.ask().any(
            InputKind::Distance, {u"Enter the distance between rows or specify unit cell (---): ", {}, Enter::Refused},
            complaintAboutRows);
        const std::optional<double> distance = numberOf(answer.value, context.session());
        if (!distance) {
            const Point corner = *pointOf(answer.value, context.session());
            const auto other =
                co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, corner});
            co_return Cell{other.value.y - corner.y, other.value.x - corner.x};
        }
        cell.row = *distance;
    }
    if (columns > 1) {
        const auto distance =
            co_await context.ask().distance({u"Specify the distance between columns (|||): ", {}, Enter::Refused});
        cell.column = distance.value;
    }
    co_return cell;
}

Command rectangular(Context &context, const Selection originals)
{
    const int rows = co_await askCount(context, u"Enter the number of rows (---) <1>: ");
    const int columns = co_await askCount(context, u"Enter the number of columns (|||) <1>: ");
    if (rows == 1 && columns == 1)
        throw CommandError{u"One-element array, nothing to do."};
    if (static_cast<double>(rows) * columns > MostCopies)
        throw CommandError{u"Too many elements."};
    const Cell cell = co_await askCell(context, rows, columns);
    const WorkPlane plane(context.session());
    for (int row = 0; row < rows; ++row)
        for (int column = 0; column < columns; ++column)
            if (row > 0 || column > 0) {
                const Vector by = plane.toWorld().direction({cell.column * column, cell.row * row, 0});
                addCopies(context, originals, Matrix::translation(by));
            }
}

// The place of an object that goes around when it is not turned: the middle of all.
Vector middleOf(Context &context, const Selection &entities)
{
    geometry::Box box;
    for (const RecordId entity : entities)
        if (const std::optional<geometry::Box> one = geometry::extentsOf(context.drawing(), entity))
            box.add(*one);
    return box.isEmpty() ? Vector{} : (box.minimum + box.maximum) * 0.5;
}

struct Round
{
    int count = 0;
    double angle = geometry::FullTurn; // from the first to the last, or all around
};

// Two of the three: the number, the whole angle, the angle between.
Task<Round> askRound(Context &context)
{
    const auto count = co_await context.ask().integer({u"Enter the number of items in the array: "}, {1, MostCopies});
    const auto typed = co_await context.ask().angle({u"Specify the angle to fill (+=ccw, -=cw) <360>: "});
    Round round;
    round.count = count.value;
    if (typed.hasValue() && typed.value != 0)
        round.angle = typed.value;
    const bool isWhole = std::abs(std::abs(round.angle) - geometry::FullTurn) < 1e-9;
    if (count.hasValue() && count.value > 1) {
        round.angle /= isWhole ? round.count : round.count - 1;
        co_return round;
    }
    const auto between = co_await context.ask().angle({u"Angle between items: ", {}, Enter::Refused}, Nonzero);
    const double steps = std::floor(std::abs(round.angle / between.value) + 1e-9);
    if (steps > MostCopies)
        throw CommandError{u"Too many elements."};
    round.count = static_cast<int>(steps) + (isWhole ? 0 : 1);
    round.angle = std::copysign(between.value, round.angle);
    co_return round;
}

Command polar(Context &context, const Selection originals)
{
    const auto centre = co_await context.ask().point({u"Specify center point of array: ", {}, Enter::Refused});
    const Round round = co_await askRound(context);
    const auto turns = co_await context.ask().keyword({u"Rotate arrayed objects? [Yes/No] <Y>: ", u"Yes No"});
    const WorkPlane plane(context.session());
    const Matrix there = plane.toWorld() * Matrix::translation(geometry::vectorOf(centre.value));
    const Vector middle = middleOf(context, originals);
    for (int item = 1; item < round.count; ++item) {
        const Matrix turn = there * Matrix::rotation(round.angle * item) * geometry::inverse(there);
        addCopies(context, originals, turns.is(u"No") ? Matrix::translation(turn.place(middle) - middle) : turn);
    }
}

} // namespace

Command array(Context &context)
{
    const Selection originals = co_await selectObjects(context);
    if (originals.empty())
        co_return;
    const auto type =
        co_await context.ask().keyword({u"Enter the type of array [Rectangular/Polar] <R>: ", u"Rectangular Polar"});
    if (type.is(u"Polar"))
        co_await polar(context, originals);
    else
        co_await rectangular(context, originals);
}

} // namespace commands
