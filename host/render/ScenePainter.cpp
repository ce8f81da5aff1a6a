#include "host/render/ScenePainter.h"

#include <cmath>

namespace render {

namespace {

constexpr std::uint32_t Opaque = 0xff000000U;
constexpr float SmallestItem = 1; // in pixels
constexpr double WidestThinLine = 1.5;

} // namespace

ScenePainter::ScenePainter(const DisplayList &list, const SceneIndex &index, const DeviceView &view, QImage &image)
    : m_list(list), m_index(index), m_view(view), m_image(image), m_raster(image),
      m_scaleX(static_cast<float>(view.toDevice.m11())), m_scaleY(static_cast<float>(view.toDevice.m22()))
{
    const QPointF shift = view.toDevice.map(list.origin());
    m_shiftX = static_cast<float>(shift.x());
    m_shiftY = static_cast<float>(shift.y());
    m_visible = visibleBox();
}

SceneIndex::Box ScenePainter::visibleBox() const
{
    constexpr float Margin = 4; // for wide lines
    const float x1 = (-Margin - m_shiftX) / m_scaleX;
    const float x2 = (static_cast<float>(m_image.width()) + Margin - m_shiftX) / m_scaleX;
    const float y1 = (-Margin - m_shiftY) / m_scaleY;
    const float y2 = (static_cast<float>(m_image.height()) + Margin - m_shiftY) / m_scaleY;
    return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)};
}

// A pixel more on each side: what begins within a pixel of the edge would be lost on both.
QRect ScenePainter::deviceRect(const SceneIndex::Box &box) const
{
    const QRect all = m_image.rect();
    const auto column = [&](float x) {
        return static_cast<int>(std::floor(std::clamp(deviceX(x), -2.0F, static_cast<float>(all.width()) + 2)));
    };
    const auto row = [&](float y) {
        return static_cast<int>(std::floor(std::clamp(deviceY(y), -2.0F, static_cast<float>(all.height()) + 2)));
    };
    return QRect(QPoint(column(box.left) - 1, row(box.top) - 1), QPoint(column(box.right) + 1, row(box.bottom) + 1)) &
           all;
}

void ScenePainter::paint(const QPolygonF &outline)
{
    m_outline.addPolygon(m_view.toDevice.map(outline));
    m_isClipped = !outline.isEmpty();
    for (const SceneIndex::Block &block : m_index.blocksIn(m_visible)) {
        m_rectangle = deviceRect(block.box);
        m_raster.setClip(m_rectangle);
        for (const SceneIndex::Entry &entry : block.entries)
            paintEntry(entry);
        if (m_painter.isActive())
            m_painter.end();
    }
}

// Begun when it is needed: most blocks of large drawings hold thin lines alone.
QPainter &ScenePainter::painter()
{
    if (!m_painter.isActive()) {
        m_painter.begin(&m_image);
        m_painter.setRenderHint(QPainter::Antialiasing);
        m_painter.setClipRect(m_rectangle);
        if (m_isClipped)
            m_painter.setClipPath(m_outline, Qt::IntersectClip);
    }
    return m_painter;
}

bool ScenePainter::isThin(float weight) const
{
    return double{weight} * m_view.pixelsPerMillimetre <= WidestThinLine && !m_isClipped;
}

void ScenePainter::paintEntry(const SceneIndex::Entry &entry)
{
    if (entry.isSegment() && isThin(entry.weight)) {
        m_raster.line(deviceX(entry.x1), deviceY(entry.y1), deviceX(entry.x2), deviceY(entry.y2), Opaque | entry.rgb);
        return;
    }
    const SceneIndex::Box box = entry.box();
    if (!box.meets(m_visible))
        return;
    const float width = (box.right - box.left) * m_scaleX, height = (box.top - box.bottom) * -m_scaleY;
    const DisplayItem &item = m_list.items()[entry.item];
    if (width < SmallestItem && height < SmallestItem && !m_isClipped)
        m_raster.pixel(deviceX(box.left), deviceY(box.top), Opaque | entry.rgb);
    else if (item.kind == DisplayItem::Kind::Line && isThin(item.weight))
        paintThinLine(item);
    else
        render::paint(m_list, item, m_view, painter());
}

void ScenePainter::paintThinLine(const DisplayItem &item)
{
    const std::span<const DisplayPoint> points = m_list.points(item);
    const std::uint32_t rgb = Opaque | item.rgb;
    float x = deviceX(points[0].x), y = deviceY(points[0].y);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const float nextX = deviceX(points[i].x), nextY = deviceY(points[i].y);
        m_raster.line(x, y, nextX, nextY, rgb);
        x = nextX;
        y = nextY;
    }
}

} // namespace render
