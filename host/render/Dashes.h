#pragma once

#include "host/drawing/geometry/Vector.h"
#include "host/render/Linetypes.h"

#include <span>

namespace render {

// Takes the pieces of a dashed line.
class DashSink
{
public:
    virtual ~DashSink() = default;
    virtual void dash(std::span<const geometry::Vector> points) = 0; // two equal points are a dot
    virtual void label(const LinetypeElement &element, const geometry::Vector &place,
                       const geometry::Vector &direction) = 0; // the direction has length 1
};

// Cuts a line of points by a linetype whose lengths are multiplied by the scale. A line that begins with a dash ends
// with one as well: what is left over lengthens its first and last dash. One too short for the whole pattern, and one
// that would have very many dashes, stays whole. A closed line begins without such a share.
void cutIntoDashes(std::span<const geometry::Vector> points, bool isClosed, const Linetype &linetype, double scale,
                   DashSink &sink);

} // namespace render
