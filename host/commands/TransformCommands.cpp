// Moving, copying, rotating, scaling and mirroring objects.

#include "host/commands/Commands.h"
#include "host/commands/DimensionText.h"
#include "host/commands/Displacement.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/Transform.h"

#include <QString>

#include <cmath>

namespace commands {

using drawing::Similarity;
using geometry::Matrix;

namespace {

enum class Originals { Changed, Kept };

// What has the new place: the entity or its copy. NoRecord when that cannot be.
RecordId transform(Context &context, RecordId entity, const Similarity &similarity, Originals originals)
{
    const bool isCopied = originals == Originals::Kept;
    const RecordId changed = isCopied ? drawing::copyTransformed(context.drawing(), entity, similarity) : entity;
    if (changed == drawing::NoRecord || (!isCopied && !drawing::transformEntity(context.drawing(), entity, similarity)))
        return drawing::NoRecord;
    showNewMeasurement(context, changed, similarity.scale());
    return changed;
}

Selection transformAll(Context &context, const Selection &entities, const Matrix &matrix,
                       Originals originals = Originals::Changed)
{
    const Similarity similarity{matrix, context.session().integer(u"MIRRTEXT") != 0};
    Selection changed;
    std::vector<drawing::EntityCopy> copies;
    for (const RecordId entity : entities) {
        context.session().pulse();
        const RecordId there = transform(context, entity, similarity, originals);
        if (there == drawing::NoRecord)
            continue;
        changed.push_back(there);
        if (originals == Originals::Kept)
            copies.push_back({entity, there});
    }
    linkCopies(context.drawing(), copies);
    if (const std::size_t left = entities.size() - changed.size(); left > 0)
        context.session().print(QStringLiteral("\n%1 object(s) could not be changed.\n").arg(left).toStdU16String());
    return changed;
}

// What is done about the origin of the user's coordinate system, done about a point of it.
Matrix about(const WorkPlane &plane, const Point &point, const Matrix &matrix)
{
    const Matrix there = plane.toWorld() * Matrix::translation(geometry::vectorOf(point));
    return there * matrix * geometry::inverse(there);
}

double angleBetween(const Point &from, const Point &to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

// The angle to be turned by, and whether copies of the originals are turned.
struct Turn
{
    double angle = 0;
    Originals originals = Originals::Changed;
};

Task<Turn> askTurn(Context &context, const Point base)
{
    Turn turn;
    for (;;) {
        const auto angle = co_await context.ask().angle(
            {u"Specify rotation angle or [Copy/Reference] <0>: ", u"Copy Reference", Enter::Allowed, base});
        if (angle.is(u"Copy")) {
            turn.originals = Originals::Kept;
            continue;
        }
        if (!angle.is(u"Reference")) {
            turn.angle = angle.value;
            co_return turn;
        }
        const auto old = co_await context.ask().angle({u"Specify the reference angle <0>: "});
        auto now =
            co_await context.ask().angle({u"Specify the new angle or [Points] <0>: ", u"Points", Enter::Allowed, base});
        if (now.is(u"Points"))
            now = co_await context.ask().angle({u"Specify first point: ", {}, Enter::Refused});
        turn.angle = now.value - old.value;
        co_return turn;
    }
}

struct Scaling
{
    double factor = 1;
    Originals originals = Originals::Changed;
};

Task<Scaling> askScaling(Context &context, const Point base)
{
    Scaling scaling;
    for (;;) {
        const auto factor = co_await context.ask().distance(
            {u"Specify scale factor or [Copy/Reference]: ", u"Copy Reference", Enter::Refused, base}, Positive);
        if (factor.is(u"Copy")) {
            scaling.originals = Originals::Kept;
            continue;
        }
        scaling.factor = factor.value;
        if (factor.is(u"Reference")) {
            const auto old = co_await context.ask().distance({u"Specify reference length <1>: "}, Positive);
            auto now = co_await context.ask().distance(
                {u"Specify new length or [Points] <1>: ", u"Points", Enter::Allowed, base}, Positive);
            if (now.is(u"Points"))
                now = co_await context.ask().distance({u"Specify first point: ", {}, Enter::Refused}, Positive);
            scaling.factor = (now.hasValue() ? now.value : 1) / (old.hasValue() ? old.value : 1);
        }
        if (!(scaling.factor > 0) || !std::isfinite(scaling.factor))
            throw CommandError{u"Value must be positive and nonzero."};
        co_return scaling;
    }
}

enum class CopyMode { Repeated, Single }; // the values of COPYMODE

Command askCopyMode(Context &context)
{
    const bool isSingle = context.session().integer(u"COPYMODE") == static_cast<int>(CopyMode::Single);
    const auto mode =
        co_await context.ask().keyword({isSingle ? u"Enter a copy mode option [Single/Multiple] <Single>: "
                                                 : u"Enter a copy mode option [Single/Multiple] <Multiple>: ",
                                        u"Single Multiple"});
    if (!mode.isNothing())
        context.session().assign(u"COPYMODE",
                                 static_cast<int>(mode.is(u"Single") ? CopyMode::Single : CopyMode::Repeated));
}

struct CopyStart
{
    Reply<Point> base;
    CopyMode mode = CopyMode::Repeated;
};

// "Multiple" holds for this command, the mode also for later ones.
Task<CopyStart> askCopyStart(Context &context)
{
    bool isMultiple = false;
    for (;;) {
        auto base = co_await context.ask().point(
            {u"Specify base point or [Displacement/mOde/Multiple] <Displacement>: ", u"Displacement mOde Multiple"});
        if (base.is(u"Multiple")) {
            isMultiple = true;
        } else if (base.is(u"mOde")) {
            co_await askCopyMode(context);
        } else {
            const bool isSingle = context.session().integer(u"COPYMODE") == static_cast<int>(CopyMode::Single);
            co_return CopyStart{base, isSingle && !isMultiple ? CopyMode::Single : CopyMode::Repeated};
        }
    }
}

void eraseAll(Context &context, const Selection &entities)
{
    for (const RecordId entity : entities)
        context.database().erase(entity);
}

} // namespace

Command move(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const WorkPlane plane(context.session());
    const auto base =
        co_await context.ask().point({u"Specify base point or [Displacement] <Displacement>: ", u"Displacement"});
    const Displacement displacement = co_await askDisplacement(context, plane, base);
    transformAll(context, entities, Matrix::translation(displacement.by));
}

// All copies go from the same base point. Programs that expect one copy only, and send no Enter behind its place, begin
// their next command there.
Command copy(Context &context)
{
    const Selection entities = co_await selectObjects(context, Purpose::Look);
    const WorkPlane plane(context.session());
    const CopyStart start = co_await askCopyStart(context);
    const Displacement first = co_await askDisplacement(context, plane, start.base);
    std::vector<Selection> copies{transformAll(context, entities, Matrix::translation(first.by), Originals::Kept)};
    if (start.mode == CopyMode::Single || !first.isBetweenPoints)
        co_return;
    for (;;) {
        const auto next = co_await context.ask().point({.prompt = u"Specify second point or [Exit/Undo] <Exit>: ",
                                                        .keywords = u"Exit Undo",
                                                        .base = start.base.value,
                                                        .otherCommand = OtherCommand::EndsThis});
        if (next.is(u"Undo")) {
            if (copies.empty()) {
                context.session().print(u"\nEverything has been undone.\n");
                continue;
            }
            eraseAll(context, copies.back());
            copies.pop_back();
            continue;
        }
        if (!next.hasValue())
            co_return;
        const Vector by = plane.world(next.value) - plane.world(start.base.value);
        copies.push_back(transformAll(context, entities, Matrix::translation(by), Originals::Kept));
    }
}

Command rotate(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const WorkPlane plane(context.session());
    const auto base = co_await context.ask().point({u"Specify base point: ", {}, Enter::Refused});
    const Turn turn = co_await askTurn(context, base.value);
    transformAll(context, entities, about(plane, base.value, Matrix::rotation(turn.angle)), turn.originals);
}

Command scale(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const WorkPlane plane(context.session());
    const auto base = co_await context.ask().point({u"Specify base point: ", {}, Enter::Refused});
    const Scaling scaling = co_await askScaling(context, base.value);
    const double factor = scaling.factor;
    transformAll(context, entities, about(plane, base.value, Matrix::scale(factor, factor, factor)), scaling.originals);
}

Command mirror(Context &context)
{
    const Selection entities = co_await selectObjects(context);
    const WorkPlane plane(context.session());
    const auto first = co_await context.ask().point({u"Specify first point of mirror line: ", {}, Enter::Refused});
    const auto second =
        co_await context.ask().point({u"Specify second point of mirror line: ", {}, Enter::Refused, first.value});
    const auto erases = co_await context.ask().keyword({u"Erase source objects? [Yes/No] <N>: ", u"Yes No"});
    const double angle = angleBetween(first.value, second.value);
    const Matrix mirror = Matrix::mirror({0, 0, 0}, {-std::sin(angle), std::cos(angle), 0});
    transformAll(context, entities, about(plane, first.value, mirror),
                 erases.is(u"Yes") ? Originals::Changed : Originals::Kept);
}

} // namespace commands
