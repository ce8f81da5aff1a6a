#pragma once

#include "host/drawing/Record.h"

#include <QImage>
#include <QPointF>
#include <QRectF>
#include <QTransform>

#include <cstdint>
#include <span>
#include <vector>

namespace render {

// What is to be drawn, in order: lines and areas cut into straight pieces, pictures. Coordinates are those of a page or
// of the drawing seen from above, x to the right and y upwards, as floats from an origin that lies near.
struct DisplayPoint
{
    float x, y;
};

struct Gradient
{
    QPointF from, to;
    std::uint32_t first, last; // 0xRRGGBB
    bool isMirrored = false;   // back to the first colour from the middle on
};

struct Picture
{
    QImage image;
    QTransform toPage; // from pixels, the first at the top left
};

struct DisplayItem
{
    enum class Kind : std::uint8_t {
        Line,
        Area,     // its loops are filled where an odd number of them lies around
        Letter,   // an area that is filled where the loops go around it
        Gradient, // an area; `detail` is its number among the gradients
        Picture   // clipped by its loops; `detail` is its number among the pictures
    };

    std::uint32_t firstPoint = 0, pointCount = 0; // a loop ends at a point whose x is no number
    std::uint32_t rgb = 0;
    float weight = 0;                             // in millimetres; 0: as thin as can be
    drawing::RecordId entity = drawing::NoRecord; // the outermost, which a pick selects
    std::uint32_t detail = 0;
    Kind kind = Kind::Line;
    bool isEndless = false; // drawn through the whole window; it does not count for the bounds
};

class DisplayList
{
public:
    DisplayList() = default;
    explicit DisplayList(const QPointF &origin) : m_origin(origin) {}

    // Points are in the coordinates of the page. A line of two equal points is a dot.
    void add(const DisplayItem &style, std::span<const QPointF> line);
    void add(const DisplayItem &style, const std::vector<std::vector<QPointF>> &loops);
    void add(DisplayItem style, const std::vector<std::vector<QPointF>> &loops, const Gradient &gradient);
    void add(DisplayItem style, const std::vector<std::vector<QPointF>> &loops, const Picture &picture);

    void takeOut(std::size_t item) { m_items[item].pointCount = 0; } // its number stays; nothing of it is left to draw

    const QPointF &origin() const { return m_origin; }
    const std::vector<DisplayItem> &items() const { return m_items; }
    std::span<const DisplayPoint> points(const DisplayItem &item) const
    {
        return {m_points.data() + item.firstPoint, item.pointCount};
    }
    const Gradient &gradient(const DisplayItem &item) const { return m_gradients[item.detail]; }
    const Picture &picture(const DisplayItem &item) const { return m_pictures[item.detail]; }
    QRectF bounds() const; // of all points but those of endless lines; null when there are none

    static bool isLoopEnd(const DisplayPoint &point) { return point.x != point.x; }

private:
    void begin(const DisplayItem &style);
    void append(std::span<const QPointF> points);
    void end();

    QPointF m_origin;
    std::vector<DisplayItem> m_items;
    std::vector<DisplayPoint> m_points;
    std::vector<Gradient> m_gradients;
    std::vector<Picture> m_pictures;
};

} // namespace render
