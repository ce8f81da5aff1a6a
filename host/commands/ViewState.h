#pragma once

#include "host/drawing/Group.h"
#include "host/drawing/geometry/Matrix.h"

namespace commands {

class Session;

// What is seen, told in the world: it stays the same when the user's coordinate system changes.
struct ViewState
{
    geometry::Vector centre, target, direction{0, 0, 1}; // the direction goes from the target to the eye
    double height = 0, twist = 0;                        // the twist in radians, as VIEWTWIST

    // From the display's coordinates, whose origin is the target and whose x axis goes to the right, to the world's.
    geometry::Matrix displayToWorld() const;
    void lookDownOn(const geometry::Matrix &plane); // from above, with its x axis to the right
    geometry::Box box(double width) const;          // around what is seen, in the world
};

// It is kept in VIEWCTR, VIEWSIZE, VIEWDIR, VIEWTWIST and TARGET, places and the direction in the user's coordinates.
// A height that is no positive number, as one that has become too large or too small for one, is not taken.
ViewState viewState(const Session &session);
void show(Session &session, const ViewState &view);

// The groups by which a record of the VIEW table says what is seen, and how wide.
struct NamedView
{
    ViewState seen;
    double width = 0;
};
drawing::GroupList groupsOf(const NamedView &view);
NamedView namedView(const drawing::GroupList &record);

} // namespace commands
