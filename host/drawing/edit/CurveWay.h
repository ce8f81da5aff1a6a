#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/edit/PolylineSegments.h"
#include "host/drawing/geometry/Crossings.h"

#include <vector>

namespace drawing {

// A curve entity as one way from its start to its end, in world coordinates: a LINE, ARC, CIRCLE, ELLIPSE or SPLINE, or
// a plane polyline. A place on it is the number of the piece plus the part of that piece: 1.5 is the middle of the
// second segment. On a closed one places go on behind the end: count() is the start again.
class CurveWay
{
public:
    static std::optional<CurveWay> of(const Drawing &drawing, RecordId entity); // none: no such curve

    double count() const { return static_cast<double>(m_pieces.size()); }
    bool isClosed() const { return m_isClosed; }
    const std::vector<geometry::Course> &pieces() const { return m_pieces; }

    geometry::Vector at(double place) const;
    double nearest(const geometry::Vector &to) const;
    // Where another curve meets it, in order.
    std::vector<double> crossings(const geometry::Course &other, geometry::Span otherSpan) const;

private:
    double placeOf(std::size_t piece, double parameter) const;

    std::vector<geometry::Course> m_pieces;
    bool m_isClosed = false;
};

struct WayPart
{
    double from, to;
};

// Leaves only these parts of the entity; none of them: erases it. The first stays the entity itself; a part of a CIRCLE
// is an ARC. False when a part cannot be written.
bool keepParts(Drawing &drawing, RecordId entity, const std::vector<WayPart> &parts);

enum class WayEnd { Start, End };

// Moves one end of a LINE, ARC, ELLIPSE or open polyline along its own direction to a place that it goes on to.
bool moveEnd(Drawing &drawing, RecordId entity, WayEnd end, const geometry::Vector &to);

// The SPLINE of a curve.
GroupList splineGroups(GroupList common, const geometry::Nurbs &nurbs);

} // namespace drawing
