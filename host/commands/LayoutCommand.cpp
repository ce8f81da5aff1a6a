// -LAYOUT: the sheets of a drawing.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/drawing/LayoutEditing.h"
#include "host/drawing/edit/CopyLinks.h"
#include "host/drawing/edit/Transform.h"
#include "host/drawing/selection/Candidates.h"

#include <QString>

namespace commands {

using drawing::Layout;

namespace {

std::u16string numbered(const std::u16string &before, int number, const std::u16string &behind = {})
{
    return before + QString::number(number).toStdU16String() + behind;
}

// "Layout3", "Plan (2)": the first number from which the name is free.
std::u16string freeName(Context &context, const std::u16string &before, const std::u16string &behind, int number)
{
    while (drawing::findLayout(context.database(), numbered(before, number, behind)))
        ++number;
    return numbered(before, number, behind);
}

Layout requireLayout(Context &context, const std::u16string &name)
{
    const std::optional<Layout> layout = drawing::findLayout(context.database(), name);
    if (!layout)
        throw CommandError{u"Layout \"" + name + u"\" not found."};
    return *layout;
}

// One that is there; Enter is the current one, or of the model the one that was current last.
Task<Layout> askLayout(Context &context, const std::u16string question)
{
    const std::optional<Layout> active = drawing::activeLayout(context.drawing());
    const std::u16string standard = active ? active->name : std::u16string();
    const std::u16string prompt = question + u" <" + standard + u">: ";
    const auto name = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    co_return requireLayout(context, name.hasValue() ? name.value : standard);
}

Task<std::u16string> askNewName(Context &context, const std::u16string question, const std::u16string standard)
{
    const std::u16string prompt = question + (standard.empty() ? u"" : u" <" + standard + u">") + u": ";
    const Enter enter = standard.empty() ? Enter::Refused : Enter::Allowed;
    const auto name = co_await context.ask().string({prompt, {}, enter, {}, Blanks::BelongToAnswers});
    const std::u16string wanted = name.hasValue() ? name.value : standard;
    if (!isValidName(wanted))
        throw CommandError{u"Invalid layout name."};
    if (drawing::findLayout(context.database(), wanted) || drawing::isModelName(wanted))
        throw CommandError{u"Layout \"" + wanted + u"\" already exists."};
    co_return wanted;
}

Command copyOption(Context &context)
{
    const Layout original = co_await askLayout(context, u"Enter name of layout to copy");
    const std::u16string standard = freeName(context, original.name + u" (", u")", 2);
    const std::u16string name = co_await askNewName(context, u"Enter layout name for copy", standard);
    const std::optional<Layout> copy = drawing::addLayout(context.drawing(), original, name);
    if (!copy)
        throw CommandError{u"The layout cannot be made."};
    const RecordId block = findRecord(context, drawing::known::Block, context.database().name(copy->blockRecord));
    std::vector<drawing::EntityCopy> copies;
    for (const RecordId entity : selection::entitiesOn(context.drawing(), original))
        if (const RecordId there = drawing::copyEntity(context.drawing(), entity, {block, true});
            there != drawing::NoRecord)
            copies.push_back({entity, there});
    linkCopies(context.drawing(), copies);
}

Command newOption(Context &context)
{
    const std::u16string name =
        co_await askNewName(context, u"Enter new Layout name", freeName(context, u"Layout", {}, 1));
    const std::optional<Layout> original = drawing::activeLayout(context.drawing());
    if (!original || !drawing::addLayout(context.drawing(), *original, name))
        throw CommandError{u"The layout cannot be made."};
}

Command deleteOption(Context &context)
{
    const Layout layout = co_await askLayout(context, u"Enter name of layout to delete");
    if (!drawing::deleteLayout(context.drawing(), layout))
        throw CommandError{u"The only layout cannot be deleted."};
    context.say(u"Layout \"" + layout.name + u"\" deleted.");
}

Command renameOption(Context &context)
{
    const Layout layout = co_await askLayout(context, u"Enter layout to rename");
    const std::u16string name = co_await askNewName(context, u"Enter new layout name", {});
    if (!drawing::renameLayout(context.drawing(), layout, name))
        throw CommandError{u"The layout cannot be renamed."};
}

Command setOption(Context &context)
{
    const std::u16string standard = context.session().text(u"CTAB");
    const std::u16string prompt = u"Enter layout to make current <" + standard + u">: ";
    const auto name = co_await context.ask().string({prompt, {}, Enter::Allowed, {}, Blanks::BelongToAnswers});
    if (name.hasValue() && !context.session().set(u"CTAB", name.value))
        throw CommandError{u"Layout \"" + name.value + u"\" not found."};
}

} // namespace

Command layout(Context &context)
{
    const auto option = co_await context.ask().keyword(
        {u"Enter layout option [Copy/Delete/New/Rename/Set/?] <set>: ", u"Copy Delete New Rename Set ?"});
    if (context.database().isBefore2000())
        throw CommandError{u"Drawings of this version have no layouts."};
    if (option.is(u"Copy")) {
        co_await copyOption(context);
    } else if (option.is(u"Delete")) {
        co_await deleteOption(context);
    } else if (option.is(u"New")) {
        co_await newOption(context);
    } else if (option.is(u"Rename")) {
        co_await renameOption(context);
    } else if (option.is(u"?")) {
        context.session().print(u"\nActive Layouts:");
        for (const Layout &one : drawing::layouts(context.database()))
            context.session().print(u"\nLayout: " + one.name);
        context.session().print(u"\n");
    } else {
        co_await setOption(context);
    }
}

} // namespace commands
