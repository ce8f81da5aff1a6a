// VIEW: views with a name.

#include "host/commands/Commands.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"

#include <cmath>

namespace commands {

using drawing::realGroup;

namespace {

constexpr int HeightCode = 40, WidthCode = 41, CentreCode = 10;

Task<std::u16string> askName(Context &context, std::u16string_view prompt)
{
    const auto name = co_await context.ask().string({prompt, {}, Enter::Refused});
    if (!isValidName(name.value))
        throw CommandError{u"Invalid view name."};
    co_return name.value;
}

struct Seen
{
    Point centre; // as VIEWCTR
    double width, height;
};

Seen current(const Session &session)
{
    const Point screen = session.point(u"SCREENSIZE");
    const double height = session.real(u"VIEWSIZE");
    return {session.point(u"VIEWCTR"), height * screen.x / screen.y, height};
}

// A view of that name is replaced.
void save(Context &context, const std::u16string &name, const Seen &seen)
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
    groups.push_back(realGroup(HeightCode, seen.height));
    groups.push_back(drawing::flatPointGroup(CentreCode, geometry::vectorOf(seen.centre)));
    groups.push_back(realGroup(WidthCode, seen.width));
    groups.push_back(drawing::pointGroup(11, geometry::vectorOf(session.point(u"VIEWDIR"))));
    groups.push_back(drawing::pointGroup(12, geometry::vectorOf(session.point(u"TARGET"))));
    groups.push_back(realGroup(42, Lens));
    groups.push_back(realGroup(43, 0));
    groups.push_back(realGroup(44, 0));
    groups.push_back(realGroup(50, session.real(u"VIEWTWIST") * (360 / geometry::FullTurn)));
    groups.push_back(drawing::integerGroup(71, 0));
    addRecord(context, groups);
}

void restore(Context &context, const std::u16string &name)
{
    const RecordId view = findRecord(context, drawing::known::View, name);
    if (view == drawing::NoRecord)
        throw CommandError{u"Cannot find view " + name + u"."};
    const drawing::GroupList groups = context.database().groups(view);
    const Vector centre = drawing::placeOf(groups, CentreCode);
    Session &session = context.session();
    session.assign(u"VIEWCTR", Point{centre.x, centre.y, 0});
    session.assign(u"VIEWSIZE", drawing::realOf(groups, HeightCode, session.real(u"VIEWSIZE")));
    const Vector direction = drawing::placeOf(groups, 11, {0, 0, 1}), target = drawing::placeOf(groups, 12);
    session.assign(u"VIEWDIR", Point{direction.x, direction.y, direction.z});
    session.assign(u"TARGET", Point{target.x, target.y, target.z});
    session.assign(u"VIEWTWIST", geometry::radians(drawing::realOf(groups, 50)));
}

Command saveWindow(Context &context)
{
    const std::u16string name = co_await askName(context, u"Enter view name to save: ");
    const auto first = co_await context.ask().point({u"Specify first corner: ", {}, Enter::Refused});
    const auto other = co_await context.ask().corner({u"Specify opposite corner: ", {}, Enter::Refused, first.value});
    const Point &a = first.value, &b = other.value;
    save(context, name, {{(a.x + b.x) / 2, (a.y + b.y) / 2, 0}, std::abs(b.x - a.x), std::abs(b.y - a.y)});
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
        save(context, name, current(context.session()));
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
