#include "host/render/DisplayList.h"

#include <limits>

namespace render {

void DisplayList::begin(const DisplayItem &style)
{
    m_items.push_back(style);
    m_items.back().firstPoint = static_cast<std::uint32_t>(m_points.size());
}

void DisplayList::append(std::span<const QPointF> points)
{
    for (const QPointF &point : points)
        m_points.push_back(
            {static_cast<float>(point.x() - m_origin.x()), static_cast<float>(point.y() - m_origin.y())});
}

void DisplayList::end()
{
    DisplayItem &item = m_items.back();
    item.pointCount = static_cast<std::uint32_t>(m_points.size()) - item.firstPoint;
}

void DisplayList::add(const DisplayItem &style, std::span<const QPointF> line)
{
    begin(style);
    append(line);
    end();
}

void DisplayList::add(const DisplayItem &style, const std::vector<std::vector<QPointF>> &loops)
{
    begin(style);
    for (const auto &loop : loops) {
        append(loop);
        m_points.push_back({std::numeric_limits<float>::quiet_NaN(), 0});
    }
    end();
}

void DisplayList::add(DisplayItem style, const std::vector<std::vector<QPointF>> &loops, const Gradient &gradient)
{
    style.kind = DisplayItem::Kind::Gradient;
    style.detail = static_cast<std::uint32_t>(m_gradients.size());
    m_gradients.push_back(gradient);
    add(style, loops);
}

void DisplayList::add(DisplayItem style, const std::vector<std::vector<QPointF>> &loops, const Picture &picture)
{
    style.kind = DisplayItem::Kind::Picture;
    style.detail = static_cast<std::uint32_t>(m_pictures.size());
    m_pictures.push_back(picture);
    add(style, loops);
}

QRectF DisplayList::bounds() const
{
    constexpr float Far = std::numeric_limits<float>::max();
    float left = Far, bottom = Far, right = -Far, top = -Far;
    for (const DisplayItem &item : m_items)
        for (const DisplayPoint &point : points(item)) {
            if (isLoopEnd(point) || item.isEndless)
                continue;
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            bottom = std::min(bottom, point.y);
            top = std::max(top, point.y);
        }
    return left <= right ? QRectF(QPointF(left, bottom) + m_origin, QPointF(right, top) + m_origin) : QRectF();
}

} // namespace render
