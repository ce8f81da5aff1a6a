// Undo, step by step, by groups and to marks.

#include "host/commands/Commands.h"

namespace commands {

namespace {

constexpr std::u16string_view NothingIsLeft = u"Everything has been undone.";
constexpr std::u16string_view TransactionIsOpen = u"A transaction is open: nothing before it can be undone.";

Command control(Context &context)
{
    drawing::Journal &journal = context.database().journal();
    const auto choice = co_await context.ask().keyword(
        {u"Enter an UNDO control option [All/None/One/Combine/Layer] <All>: ", u"All None One Combine Layer"});
    using Recording = drawing::Journal::Recording;
    if (choice.is(u"None"))
        journal.setRecording(Recording::Off);
    else if (choice.is(u"One"))
        journal.setRecording(Recording::One);
    else if (choice.isNothing() || choice.is(u"All"))
        journal.setRecording(Recording::On);
    else if (choice.is(u"Layer"))
        co_await context.ask().keyword({u"Combine layer property changes? [Yes/No] <Yes>: ", u"Yes No"});
    else
        co_await context.ask().keyword({u"Combine zoom and pan operations? [Yes/No] <Yes>: ", u"Yes No"});
}

Command back(Context &context)
{
    drawing::Journal &journal = context.database().journal();
    if (!journal.hasMark() && !journal.isTransactionOpen()) {
        const auto confirmed =
            co_await context.ask().keyword({u"This will undo everything. OK? [Yes/No] <Y>: ", u"Yes No"});
        if (confirmed.is(u"No"))
            co_return;
    }
    const drawing::Journal::UndoEnd end = journal.undoToMark();
    context.session().readVariables();
    using enum drawing::Journal::UndoEnd;
    context.say(end == Mark ? u"Mark encountered." : end == Transaction ? TransactionIsOpen : NothingIsLeft);
}

void undoSteps(Context &context, int steps)
{
    drawing::Journal &journal = context.database().journal();
    const std::size_t undone = journal.undo(static_cast<std::size_t>(steps));
    context.session().readVariables();
    if (undone < static_cast<std::size_t>(steps))
        context.say(journal.isTransactionOpen() ? TransactionIsOpen : NothingIsLeft);
}

} // namespace

Command undo(Context &context)
{
    drawing::Journal &journal = context.database().journal();
    if (journal.recording() == drawing::Journal::Recording::Off) {
        co_await control(context);
        co_return;
    }
    const auto choice = co_await context.ask().integer(
        {u"Enter the number of operations to undo or [Auto/Control/BEgin/End/Mark/Back] <1>: ",
         u"Auto Control BEgin End Mark Back Group"},
        {1, 32767});
    if (choice.is(u"BEgin") || choice.is(u"Group"))
        journal.beginGroup();
    else if (choice.is(u"End"))
        journal.endGroup();
    else if (choice.is(u"Mark"))
        journal.setMark();
    else if (choice.is(u"Back"))
        co_await back(context);
    else if (choice.is(u"Control"))
        co_await control(context);
    else if (choice.is(u"Auto"))
        co_await context.ask().keyword({u"Enter UNDO Auto mode [ON/OFF] <On>: ", u"ON OFF"});
    else
        undoSteps(context, choice.hasValue() ? choice.value : 1);
}

Command undoOne(Context &context)
{
    undoSteps(context, 1);
    co_return;
}

Command redo(Context &context)
{
    const std::size_t redone = context.database().journal().redo();
    context.session().readVariables();
    if (redone == 0)
        context.say(u"Everything has been redone.");
    co_return;
}

} // namespace commands
