#include "host/commands/ViewState.h"

#include "host/commands/WorkPlane.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/entities/EntityValues.h"

#include <cmath>

namespace commands {

using geometry::Matrix;

namespace {

enum Code : int {
    CentreCode = 10,
    DirectionCode,
    TargetCode,
    HeightCode = 40,
    WidthCode,
    LensCode,
    FrontCode,
    BackCode,
    TwistCode = 50,
    ModeCode = 71
};

Point directionFor(const WorkPlane &plane, const Vector &direction)
{
    const Vector seen = geometry::inverse(plane.toWorld()).direction(direction);
    return {seen.x, seen.y, seen.z};
}

} // namespace

Matrix ViewState::displayToWorld() const
{
    return Matrix::translation(target) * Matrix::ofExtrusion(geometry::normalized(direction)) *
           Matrix::rotation(-twist);
}

void ViewState::lookDownOn(const Matrix &plane)
{
    const double turn = degrees(WorkPlane(plane).objectAngle(0));
    direction = plane.z;
    twist = turn > 0 ? geometry::FullTurn - geometry::radians(turn) : 0;
}

geometry::Box ViewState::box(double width) const
{
    const Matrix toWorld = displayToWorld();
    const Vector middle = geometry::inverse(toWorld).place(centre);
    geometry::Box box;
    for (const double x : {middle.x - width / 2, middle.x + width / 2})
        for (const double y : {middle.y - height / 2, middle.y + height / 2})
            box.add(toWorld.place({x, y, 0}));
    return box;
}

ViewState viewState(const Session &session)
{
    const WorkPlane plane(session);
    ViewState view;
    view.centre = plane.world(session.point(u"VIEWCTR"));
    view.target = plane.world(session.point(u"TARGET"));
    view.direction = plane.toWorld().direction(geometry::vectorOf(session.point(u"VIEWDIR")));
    view.height = session.real(u"VIEWSIZE");
    view.twist = session.real(u"VIEWTWIST");
    return view;
}

void show(Session &session, const ViewState &view)
{
    const WorkPlane plane(session);
    session.assign(u"VIEWCTR", plane.user(view.centre));
    session.assign(u"TARGET", plane.user(view.target));
    session.assign(u"VIEWDIR", directionFor(plane, view.direction));
    if (view.height > 0 && std::isfinite(view.height))
        session.assign(u"VIEWSIZE", view.height);
    session.assign(u"VIEWTWIST", view.twist);
}

drawing::GroupList groupsOf(const NamedView &view)
{
    using drawing::realGroup;
    constexpr double Lens = 50;
    const ViewState &seen = view.seen;
    return {realGroup(HeightCode, seen.height),
            drawing::flatPointGroup(CentreCode, geometry::inverse(seen.displayToWorld()).place(seen.centre)),
            realGroup(WidthCode, view.width),
            drawing::pointGroup(DirectionCode, seen.direction),
            drawing::pointGroup(TargetCode, seen.target),
            realGroup(LensCode, Lens),
            realGroup(FrontCode, 0),
            realGroup(BackCode, 0),
            realGroup(TwistCode, degrees(seen.twist)),
            drawing::integerGroup(ModeCode, 0)};
}

NamedView namedView(const drawing::GroupList &record)
{
    NamedView view;
    view.width = drawing::realOf(record, WidthCode);
    view.seen.height = drawing::realOf(record, HeightCode);
    view.seen.direction = drawing::placeOf(record, DirectionCode, {0, 0, 1});
    view.seen.target = drawing::placeOf(record, TargetCode);
    view.seen.twist = geometry::radians(drawing::realOf(record, TwistCode));
    view.seen.centre = view.seen.displayToWorld().place(drawing::placeOf(record, CentreCode));
    return view;
}

} // namespace commands
