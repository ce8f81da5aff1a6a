// DRAWORDER: which objects lie above others.

#include "host/commands/Commands.h"
#include "host/commands/SelectObjects.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/Blocks.h"
#include "host/drawing/DrawOrder.h"
#include "host/drawing/selection/Candidates.h"

#include <algorithm>
#include <unordered_set>

namespace commands {

namespace {

enum class Order { Front, Back, Above, Under };

Order orderOf(const Reply<bool> &choice)
{
    if (choice.is(u"Front"))
        return Order::Front;
    if (choice.is(u"Above"))
        return Order::Above;
    return choice.is(u"Under") ? Order::Under : Order::Back;
}

// The objects go in one piece, in the order that they have among themselves.
void reorder(Selection &all, const Selection &moved, Order order, const Selection &references)
{
    const std::unordered_set<RecordId> isMoved(moved.begin(), moved.end());
    const std::unordered_set<RecordId> isReference(references.begin(), references.end());
    const auto staysBehind = [&](RecordId entity) { return isMoved.count(entity) == 0; };
    const Selection::iterator firstMoved = std::stable_partition(all.begin(), all.end(), staysBehind);
    const auto reference = [&](RecordId entity) { return isReference.count(entity) != 0; };
    Selection::iterator place = firstMoved;
    if (order == Order::Back)
        place = all.begin();
    else if (order == Order::Under)
        place = std::find_if(all.begin(), firstMoved, reference);
    else if (order == Order::Above)
        place = std::find_if(std::make_reverse_iterator(firstMoved), all.rend(), reference).base();
    std::rotate(place, firstMoved, all.end());
}

} // namespace

Command drawOrder(Context &context)
{
    const Selection moved = co_await selectObjects(context);
    if (moved.empty())
        co_return;
    const auto choice = co_await context.ask().keyword(
        {u"Enter object ordering option [Above objects/Under objects/Front/Back] <Back>: ", u"Above Under Front Back"});
    const Order order = orderOf(choice);
    Selection references;
    if (order == Order::Above || order == Order::Under) {
        context.say(u"Select reference objects");
        references = co_await selectObjects(context, Purpose::Look);
        if (references.empty())
            co_return;
    }
    const bool onPaper = context.session().isPaperSpaceCurrent();
    Selection all =
        selection::entitiesOf(context.drawing(), onPaper ? selection::Space::Paper : selection::Space::Model);
    const RecordId record =
        findRecord(context, drawing::known::BlockRecord, onPaper ? drawing::PaperSpace : drawing::ModelSpace);
    drawing::sortForDrawing(context.database(), record, all);
    reorder(all, moved, order, references);
    if (!drawing::setDrawOrder(context.database(), record, all))
        throw CommandError{u"This version of drawings cannot keep an order."};
}

} // namespace commands
