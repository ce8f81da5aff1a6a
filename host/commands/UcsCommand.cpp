// UCS: the coordinate system that points are typed in.

#include "host/commands/Commands.h"
#include "host/commands/CoordinateSystems.h"
#include "host/commands/PlanView.h"
#include "host/commands/TableRecords.h"
#include "host/commands/WorkPlane.h"
#include "host/drawing/HeaderVariables.h"

#include <cmath>

namespace commands {

using drawing::pointGroup;
using drawing::textGroup;
using drawing::known::UserCoordinates;
using geometry::Matrix;

namespace {

enum Code : int { OriginCode = 10, XDirectionCode = 11, YDirectionCode = 12 };

Point pointOf(const Vector &vector)
{
    return {vector.x, vector.y, vector.z};
}

// In the drawing's header, too: there undo finds it, and who opens the drawing.
void keep(Context &context, std::u16string_view variable, const drawing::Group &value)
{
    const std::string inHeader = headerNameOf(context.session().isPaperSpaceCurrent(), variable);
    if (drawing::findVariable(context.database(), inHeader) != drawing::NoRecord)
        drawing::setVariable(context.database(), inHeader, value);
}

void assign(Context &context, std::u16string_view variable, const Point &value)
{
    context.session().assign(variable, value);
    keep(context, variable, pointGroup(OriginCode, geometry::vectorOf(value)));
}

void assignName(Context &context, const std::u16string &name)
{
    context.session().assign(u"UCSNAME", name);
    keep(context, u"UCSNAME", textGroup(drawing::groupcode::Name, name));
}

// What is seen stays, unless UCSFOLLOW wants the new system's plan.
void use(Context &context, const Memory::CoordinateSystem &system)
{
    Session &session = context.session();
    const ViewState view = viewState(session);
    assign(context, u"UCSORG", system.origin);
    assign(context, u"UCSXDIR", system.x);
    assign(context, u"UCSYDIR", system.y);
    assignName(context, system.name);
    if (session.integer(u"UCSFOLLOW") != 0 && !session.isPaperSpaceCurrent())
        showPlan(context, WorkPlane(session).toWorld());
    else
        show(session, view);
}

Memory::CoordinateSystem current(const Session &session)
{
    return {session.point(u"UCSORG"), session.point(u"UCSXDIR"), session.point(u"UCSYDIR"), session.text(u"UCSNAME")};
}

void change(Context &context, const Matrix &toWorld, const std::u16string &name = {})
{
    context.memory().systems.push_back(current(context.session()));
    use(context, {pointOf(toWorld.origin), pointOf(geometry::normalized(toWorld.x)),
                  pointOf(geometry::normalized(toWorld.y)), name});
}

// Upright to the direction of view, and level in it.
Matrix systemOfView(const Session &session)
{
    Matrix matrix = viewState(session).displayToWorld();
    matrix.origin = WorkPlane(session).toWorld().origin;
    return matrix;
}

// With x along one direction and y on the side of another.
Matrix system(const Vector &origin, const Vector &x, const Vector &towardsY)
{
    const Vector normal = geometry::cross(x, towardsY);
    if (geometry::length(normal) == 0)
        throw CommandError{u"The points lie on one line."};
    Matrix matrix;
    matrix.x = geometry::normalized(x);
    matrix.z = geometry::normalized(normal);
    matrix.y = geometry::cross(matrix.z, matrix.x);
    matrix.origin = origin;
    return matrix;
}

Command askThreePoints(Context &context, const WorkPlane &plane, std::optional<Point> origin)
{
    if (!origin) {
        const auto asked = co_await context.ask().point({u"Specify new origin point <0,0,0>: "});
        origin = asked.value;
    }
    const Vector there = plane.world(*origin);
    const auto x =
        co_await context.ask().point({u"Specify point on X-axis or <accept>: ", {}, Enter::Allowed, *origin});
    if (x.isNothing()) {
        Matrix moved = plane.toWorld();
        moved.origin = there;
        co_return change(context, moved);
    }
    const Vector direction = plane.world(x.value) - there;
    const auto y =
        co_await context.ask().point({u"Specify point on the XY plane or <accept>: ", {}, Enter::Allowed, *origin});
    const Vector side = y.hasValue() ? plane.world(y.value) - there : geometry::cross(plane.normal(), direction);
    change(context, system(there, direction, side));
}

Command askOrigin(Context &context, const WorkPlane &plane)
{
    const auto origin = co_await context.ask().point({u"Specify new origin point <0,0,0>: "});
    Matrix moved = plane.toWorld();
    moved.origin = plane.world(origin.value);
    change(context, moved);
}

Command askRotation(Context &context, const WorkPlane &plane, const std::u16string axis)
{
    const std::u16string prompt = u"Specify rotation angle about " + axis + u" axis <90>: ";
    const auto angle = co_await context.ask().angle({prompt});
    const double turn = angle.hasValue() ? angle.value : geometry::FullTurn / 4;
    const Vector about = axis == u"X" ? Vector{1, 0, 0} : (axis == u"Y" ? Vector{0, 1, 0} : Vector{0, 0, 1});
    change(context, plane.toWorld() * Matrix::rotation(about, turn));
}

Command askZAxis(Context &context, const WorkPlane &plane)
{
    const auto origin = co_await context.ask().point({u"Specify new origin point <0,0,0>: "});
    const auto onAxis = co_await context.ask().point(
        {u"Specify point on positive portion of Z-axis: ", {}, Enter::Refused, origin.value});
    const Vector there = plane.world(origin.value), z = plane.world(onAxis.value) - there;
    Matrix matrix = Matrix::ofExtrusion(geometry::normalized(z));
    matrix.origin = there;
    change(context, matrix);
}

// Its own coordinate system: the origin at its first point, the x axis along a line.
Command askObject(Context &context)
{
    const auto picked = co_await context.ask().entity({u"Select object to align UCS: ", {}, Enter::Refused});
    const drawing::GroupList groups = context.database().groups(picked.value.entity);
    const Vector extrusion = drawing::extrusionOf(groups);
    const Matrix toWorld = Matrix::ofExtrusion(extrusion);
    const bool isLine = drawing::textOf(groups, drawing::groupcode::Type) == u"LINE";
    const Vector first = drawing::placeOf(groups, OriginCode);
    if (isLine) {
        const Vector along = drawing::placeOf(groups, XDirectionCode) - first;
        co_return change(context, system(first, along, geometry::cross(extrusion, along)));
    }
    Matrix matrix = toWorld;
    matrix.origin = toWorld.place(first);
    change(context, matrix);
}

void usePrevious(Context &context)
{
    std::vector<Memory::CoordinateSystem> &systems = context.memory().systems;
    if (systems.empty())
        throw CommandError{u"No previous coordinate system saved."};
    use(context, systems.back());
    systems.pop_back();
}

void save(Context &context, const std::u16string &name)
{
    if (!isValidName(name))
        throw CommandError{u"Invalid UCS name."};
    const Memory::CoordinateSystem system = current(context.session());
    if (const RecordId there = findRecord(context, UserCoordinates, name); there != drawing::NoRecord)
        context.database().erase(there);
    addRecord(context, {textGroup(drawing::groupcode::Type, u"UCS"), textGroup(drawing::groupcode::Name, name),
                        pointGroup(OriginCode, geometry::vectorOf(system.origin)),
                        pointGroup(XDirectionCode, geometry::vectorOf(system.x)),
                        pointGroup(YDirectionCode, geometry::vectorOf(system.y))});
    assignName(context, name);
}

Command askNamed(Context &context, const std::u16string option)
{
    const auto name = co_await context.ask().string({u"Enter name of UCS: ", {}, Enter::Refused});
    if (option == u"Save")
        co_return save(context, name.value);
    const RecordId record = namedSystem(context, name.value);
    if (option == u"Delete")
        co_return context.database().erase(record);
    change(context, systemToWorld(context, record), context.database().name(record));
}

} // namespace

Command ucs(Context &context)
{
    const WorkPlane plane(context.session());
    const auto choice = co_await context.ask().point(
        {u"Specify origin of UCS or [NAmed/OBject/Previous/View/World/X/Y/Z/ZAxis] <World>: ",
         u"Origin 3point OBject Entity Previous Restore Save Delete View World X Y ZAxis Z New Move NAmed"});
    if (choice.hasValue())
        co_await askThreePoints(context, plane, choice.value);
    else if (choice.isNothing() || choice.is(u"World"))
        change(context, Matrix());
    else if (choice.is(u"View"))
        change(context, systemOfView(context.session()));
    else if (choice.is(u"3point"))
        co_await askThreePoints(context, plane, std::nullopt);
    else if (choice.is(u"Origin") || choice.is(u"Move"))
        co_await askOrigin(context, plane);
    else if (choice.is(u"X") || choice.is(u"Y") || choice.is(u"Z"))
        co_await askRotation(context, plane, choice.keyword);
    else if (choice.is(u"ZAxis"))
        co_await askZAxis(context, plane);
    else if (choice.is(u"OBject") || choice.is(u"Entity"))
        co_await askObject(context);
    else if (choice.is(u"Previous"))
        usePrevious(context);
    else if (choice.is(u"New"))
        co_await ucs(context);
    else if (choice.is(u"NAmed")) {
        const auto option = co_await context.ask().keyword(
            {u"Enter an option [Restore/Save/Delete]: ", u"Restore Save Delete", Enter::Refused});
        co_await askNamed(context, option.keyword);
    } else
        co_await askNamed(context, choice.keyword);
}

} // namespace commands
