#pragma once

#include "host/commands/Context.h"
#include "host/drawing/geometry/Course.h"

namespace commands {

// The curves that objects are drawn with, in world coordinates: what they may be cut at. With EDGEMODE 1 lines and arcs
// go on behind their ends.
class Edges
{
public:
    Edges(Context &context, const Selection &entities);

    const std::vector<geometry::Course> &courses() const { return m_courses; }
    geometry::Span span() const { return m_span; }

private:
    std::vector<geometry::Course> m_courses;
    geometry::Span m_span;
};

} // namespace commands
