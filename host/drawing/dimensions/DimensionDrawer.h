#pragma once

#include "host/drawing/dimensions/DimensionDrawing.h"
#include "host/drawing/dimensions/DimensionPicture.h"

namespace drawing {

// The places of a dimension in the plane that its picture is drawn in.
class DimensionPlaces
{
public:
    explicit DimensionPlaces(const GroupList &dimension); // which must live as long as this

    const DimensionPlane &plane() const { return m_plane; }
    geometry::Vector at(int code) const;
    geometry::Vector ofObject(int code) const; // which the file has in the object's coordinates
    // Of an angular dimension; none when its lines are parallel or its arc is at the vertex.
    std::optional<MeasuredAngle> angle() const;

private:
    const GroupList &m_groups;
    DimensionPlane m_plane;
    geometry::Matrix m_fromWorld, m_fromObject;
};

// Draws one dimension, which is drawable, into a block and finds what follows for its groups.
class DimensionDrawer
{
public:
    // The groups and the style must live as long as this.
    DimensionDrawer(Drawing &drawing, RecordId block, const GroupList &dimension, const DimensionStyle &style,
                    TextPlace wanted);

    bool draw(); // false: something of it cannot be

    double measurement() const { return m_measurement; } // a length; radians of an angle
    geometry::Vector textPlace() const;                  // as a dimension has it

private:
    DimensionLabel label(std::u16string text, double usualAngle) const;
    std::u16string lengthText(std::u16string_view prefix = {}) const;

    void drawLinear(double angle);
    double angleOfPlaces() const;
    geometry::Vector extensionDirection(const geometry::Vector &across) const;
    void drawRadial(std::u16string_view prefix);
    geometry::Vector textSide(const geometry::Vector &start, const geometry::Vector &tip) const;
    void drawAngle(std::initializer_list<int> definitions);
    void drawOrdinate();

    const GroupList &m_groups;
    const DimensionStyle &m_style;
    double m_horizontal; // from the dimension's own x axis to that of who reads it, clockwise
    DimensionPlaces m_places;
    DimensionPicture m_picture;
    bool m_isTextPlaced;
    double m_measurement = 0;
    geometry::Vector m_text;
};

} // namespace drawing
