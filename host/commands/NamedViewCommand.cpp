// VIEW: views with a name.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"

#include <cmath>

namespace commands {

using geometry::Matrix;

namespace {

Task<std::u16string> askName(Context &context, std::u16string_view prompt)
{
    const auto name = co_await context.ask().string({prompt, {}, Enter::Refused});
    if (!isValidName(name.value))
        throw CommandError{u"Invalid view name."};
    co_return name.value;
}

double widthOf(const Session &session, const ViewState &view)
{
    const Point screen = session.point(u"SCREENSIZE");
    return view.height * screen.x / screen.y;
}

// A view of that name is replaced.
void save(Context &context, const std::u16string &name, const NamedView &view)
{
    if (const RecordId old = findRecord(context, drawing::known::View, name); old != drawing::NoRecord)
        context.database().erase(old);
    drawing::GroupList groups{drawing::textGroup(drawing::groupcode::Type, u"VIEW")};
    if (!context.database().isBefore2000()) {
        groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbSymbolTableRecord"));
        groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbViewTableRecord"));
    }
    groups.push_back(drawing::textGroup(drawing::groupcode::Name, name));
    groups.push_back(drawing::integerGroup(70, context.session().isPaperSpaceCurrent() ? 1 : 0));
    const drawing::GroupList seen = groupsOf(view);
    groups.insert(groups.end(), seen.begin(), seen.end());
    addRecord(context, groups);
}

void restore(Context &context, const std::u16string &name)
{
    const RecordId record = findRecord(context, drawing::known::View, name);
    if (record == drawing::NoRecord)
        throw CommandError{u"Cannot find view " + name + u"."};
    show(context.session(), namedView(context.database().groups(record)).seen);
}

Command saveWindow(Context &context)
{
    const std::u16string name = co_await askName(context, u"Enter view name to save: ");
    const auto first = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
    const auto other = co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, first.value});
    ViewState view = viewState(context.session());
    const Matrix toWorld = view.displayToWorld(), toDisplay = geometry::inverse(toWorld);
    const WorkPlane plane(context.session());
    const Vector a = toDisplay.place(plane.world(first.value)), b = toDisplay.place(plane.world(other.value));
    const double width = std::abs(b.x - a.x);
    view.centre = toWorld.place((a + b) * 0.5);
    view.height = std::abs(b.y - a.y);
    if (!(view.height > 0 && width > 0))
        throw CommandError{u"The view is empty."};
    save(context, name, {view, width});
}

Command deleteViews(Context &context)
{
    const auto names = co_await context.ask().string({u"Enter view name(s) to delete: ", {}, Enter::Refused});
    const std::vector<RecordId> views = recordsLike(context, drawing::known::View, names.value);
    if (views.empty())
        throw CommandError{u"No matching view names found."};
    for (const RecordId view : views)
        context.database().erase(view);
}

} // namespace

Command view(Context &context)
{
    const auto option = co_await context.ask().keyword(
        {u"Enter an option [?/Delete/Restore/Save/Window]: ", u"? Delete Restore Save Window", Enter::Refused});
    if (option.is(u"Save")) {
        const std::u16string name = co_await askName(context, u"Enter view name to save: ");
        const ViewState view = viewState(context.session());
        save(context, name, {view, widthOf(context.session(), view)});
    } else if (option.is(u"Restore")) {
        const std::u16string name = co_await askName(context, u"Enter view name to restore: ");
        restore(context, name);
    } else if (option.is(u"Window")) {
        co_await saveWindow(context);
    } else if (option.is(u"Delete")) {
        co_await deleteViews(context);
    } else {
        for (const RecordId one : context.tables().entries(drawing::known::View))
            context.session().print(u'\n' + context.database().name(one));
        context.session().print(u"\n");
    }
}

} // namespace commands
