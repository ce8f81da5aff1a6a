#pragma once

#include "host/render/ListPainter.h"
#include "host/render/Raster.h"
#include "host/render/SceneIndex.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace render {

// Draws a list with its index into an image: what does not meet the image is left out, what is smaller than a pixel
// is a dot, thin lines go through the Raster and everything else through QPainter.
class ScenePainter
{
public:
    ScenePainter(const DisplayList &list, const SceneIndex &index, const DeviceView &view, QImage &image);

    void paint(const QPolygonF &outline = {}); // nothing outside is drawn; empty: the whole image

private:
    QRect deviceRect(const SceneIndex::Box &box) const;
    QPainter &painter();
    void paintEntry(const SceneIndex::Entry &entry);
    bool isThin(float weight) const;
    void paintThinLine(const DisplayItem &item);
    float deviceX(float x) const { return m_scaleX * x + m_shiftX; }
    float deviceY(float y) const { return m_scaleY * y + m_shiftY; }
    SceneIndex::Box visibleBox() const;

    const DisplayList &m_list;
    const SceneIndex &m_index;
    const DeviceView &m_view;
    QImage &m_image;
    Raster m_raster;
    QPainter m_painter;
    float m_scaleX, m_scaleY, m_shiftX, m_shiftY; // from the list's coordinates
    SceneIndex::Box m_visible;
    QPainterPath m_outline;
    bool m_isClipped = false;
    QRect m_rectangle; // of the block that is being drawn
};

} // namespace render
