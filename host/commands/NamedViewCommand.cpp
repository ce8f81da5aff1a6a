// VIEW: views with a name.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"

#include <cmath>

namespace commands {

using drawing::realGroup;
using geometry::Matrix;

namespace {

enum Code : int { CentreCode = 10, DirectionCode, TargetCode, HeightCode = 40, WidthCode, TwistCode = 50 };

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
void save(Context &context, const std::u16string &name, const ViewState &view, double width)
{
    if (const RecordId old = findRecord(context, drawing::known::View, name); old != drawing::NoRecord)
        context.database().erase(old);
    const Session &session = context.session();
    constexpr double Lens = 50;
    drawing::GroupList groups{drawing::textGroup(drawing::groupcode::Type, u"VIEW")};
    if (!context.database().isBefore2000()) {
        groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbSymbolTableRecord"));
        groups.push_back(drawing::textGroup(drawing::groupcode::Subclass, u"AcDbViewTableRecord"));
    }
    groups.push_back(drawing::textGroup(drawing::groupcode::Name, name));
    groups.push_back(drawing::integerGroup(70, session.isPaperSpaceCurrent() ? 1 : 0));
    groups.push_back(realGroup(HeightCode, view.height));
    groups.push_back(drawing::flatPointGroup(CentreCode, geometry::inverse(view.displayToWorld()).place(view.centre)));
    groups.push_back(realGroup(WidthCode, width));
    groups.push_back(drawing::pointGroup(DirectionCode, view.direction));
    groups.push_back(drawing::pointGroup(TargetCode, view.target));
    groups.push_back(realGroup(42, Lens));
    groups.push_back(realGroup(43, 0));
    groups.push_back(realGroup(44, 0));
    groups.push_back(realGroup(TwistCode, degrees(view.twist)));
    groups.push_back(drawing::integerGroup(71, 0));
    addRecord(context, groups);
}

void restore(Context &context, const std::u16string &name)
{
    const RecordId record = findRecord(context, drawing::known::View, name);
    if (record == drawing::NoRecord)
        throw CommandError{u"Cannot find view " + name + u"."};
    const drawing::GroupList groups = context.database().groups(record);
    ViewState view = viewState(context.session());
    view.height = drawing::realOf(groups, HeightCode, view.height);
    view.direction = drawing::placeOf(groups, DirectionCode, {0, 0, 1});
    view.target = drawing::placeOf(groups, TargetCode);
    view.twist = geometry::radians(drawing::realOf(groups, TwistCode));
    view.centre = view.displayToWorld().place(drawing::placeOf(groups, CentreCode));
    show(context.session(), view);
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
    view.centre = toWorld.place((a + b) * 0.5);
    view.height = std::abs(b.y - a.y);
    save(context, name, view, std::abs(b.x - a.x));
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
        save(context, name, view, widthOf(context.session(), view));
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
