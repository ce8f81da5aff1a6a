#pragma once

#include "host/drawing/dimensions/DimensionStyle.h"
#include "host/drawing/dimensions/MeasuredAngle.h"
#include "host/drawing/edit/GroupEditing.h"
#include "host/drawing/geometry/Matrix.h"

#include <optional>

namespace drawing {

// The axes that a dimension is drawn by: x to the right of who reads it, z its extrusion direction. Places in it are
// measured from the origin of the world.
struct DimensionPlane
{
    geometry::Matrix toWorld, toObject;
};

// What a text shows and where, if that is not where it stands by itself.
struct DimensionLabel
{
    std::u16string text;
    std::optional<double> angle; // radians
    std::optional<geometry::Vector> place;
};

// What a dimension looks like: the lines, arrows and texts that are put into a block. Places are in its plane.
class DimensionPicture
{
public:
    DimensionPicture(Drawing &drawing, RecordId block, const DimensionPlane &plane, const DimensionStyle &style)
        : m_drawing(drawing), m_block(block), m_plane(plane), m_style(style)
    {
    }

    bool isWhole() const { return m_isWhole; } // nothing of it could not be added

    // A line from a measured place up to the dimension line and over it.
    void extensionLine(const geometry::Vector &measured, const geometry::Vector &foot);
    // The same for one side of an angle, where what is measured does not reach the arc itself.
    void extensionLine(const MeasuredAngle &angle, const AngleSide &side);
    // The line with its arrows between two places, and the text at its middle, along the line. Gives where the text
    // stands.
    geometry::Vector dimensionLine(const geometry::Vector &first, const geometry::Vector &second,
                                   const DimensionLabel &label);
    // The same along an arc.
    geometry::Vector dimensionArc(const MeasuredAngle &angle, const DimensionLabel &label);
    // A line to a text that stands in the given direction (or the opposite one) and is turned along it, with a step
    // where the end is not straight ahead.
    geometry::Vector ordinateLine(const geometry::Vector &measured, const geometry::Vector &end,
                                  const geometry::Vector &direction, const DimensionLabel &label);
    // An arrow at the place, from a text that hangs at another and is level.
    geometry::Vector leaderLine(const geometry::Vector &tip, const geometry::Vector &textSide,
                                const DimensionLabel &label);
    void definitionPoint(const geometry::Vector &place);
    void centreMark(const geometry::Vector &centre);

private:
    void line(const geometry::Vector &start, const geometry::Vector &end, int color);
    void arc(const MeasuredAngle &angle, double start, double end);
    void arrow(const geometry::Vector &tip, const geometry::Vector &towards);
    void text(const geometry::Vector &place, double angle, const std::u16string &string);
    double widthOf(const std::u16string &string) const;
    geometry::Vector aboveArc(const MeasuredAngle &angle, double place, double turn,
                              const std::u16string &string) const;
    double halfGap(const std::u16string &string, double turn) const;
    static GroupList part(std::u16string type, int color);
    void add(const GroupList &groups);

    Drawing &m_drawing;
    RecordId m_block;
    DimensionPlane m_plane;
    DimensionStyle m_style;
    bool m_isWhole = true;
};

} // namespace drawing
