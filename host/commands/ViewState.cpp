#include "host/commands/ViewState.h"

#include "host/commands/WorkPlane.h"

namespace commands {

using geometry::Matrix;

namespace {

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
    session.assign(u"VIEWSIZE", view.height);
    session.assign(u"VIEWTWIST", view.twist);
}

} // namespace commands
