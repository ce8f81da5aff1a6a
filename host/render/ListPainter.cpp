#include "host/render/ListPainter.h"

#include <QPainter>
#include <QPainterPath>

namespace render {

namespace {

QPointF onDevice(const DisplayPoint &point, const DisplayList &list, const DeviceView &view)
{
    return view.toDevice.map(QPointF(double{point.x}, double{point.y}) + list.origin());
}

QPainterPath pathOf(const DisplayList &list, const DisplayItem &item, const DeviceView &view)
{
    QPainterPath path;
    path.setFillRule(item.kind == DisplayItem::Kind::Letter ? Qt::WindingFill : Qt::OddEvenFill);
    bool begins = true;
    for (const DisplayPoint &point : list.points(item)) {
        if (DisplayList::isLoopEnd(point)) {
            path.closeSubpath();
            begins = true;
        } else if (begins) {
            path.moveTo(onDevice(point, list, view));
            begins = false;
        } else {
            path.lineTo(onDevice(point, list, view));
        }
    }
    return path;
}

void paintLine(const DisplayList &list, const DisplayItem &item, const DeviceView &view, QPainter &painter)
{
    const double width = std::max(double{item.weight} * view.pixelsPerMillimetre, view.thinnest);
    painter.setPen(QPen(QColor::fromRgb(item.rgb), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    QPolygonF line;
    for (const DisplayPoint &point : list.points(item))
        line << onDevice(point, list, view);
    if (line.size() == 2 && line[0] == line[1])
        painter.drawPoint(line[0]);
    else
        painter.drawPolyline(line);
}

QBrush brushOf(const Gradient &gradient, const DeviceView &view)
{
    QLinearGradient brush(view.toDevice.map(gradient.from), view.toDevice.map(gradient.to));
    brush.setColorAt(0, QColor::fromRgb(gradient.first));
    brush.setColorAt(gradient.isMirrored ? 0.5 : 1, QColor::fromRgb(gradient.last));
    if (gradient.isMirrored)
        brush.setColorAt(1, QColor::fromRgb(gradient.first));
    return brush;
}

void paintPicture(const DisplayList &list, const DisplayItem &item, const DeviceView &view, QPainter &painter)
{
    const Picture &picture = list.picture(item);
    painter.save();
    painter.setClipPath(pathOf(list, item, view), Qt::IntersectClip);
    painter.setTransform(picture.toPage * view.toDevice);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(0, 0, picture.image);
    painter.restore();
}

} // namespace

void paint(const DisplayList &list, const DisplayItem &item, const DeviceView &view, QPainter &painter)
{
    switch (item.kind) {
    case DisplayItem::Kind::Line:
        paintLine(list, item, view, painter);
        break;
    case DisplayItem::Kind::Area:
    case DisplayItem::Kind::Letter:
        painter.fillPath(pathOf(list, item, view), QColor::fromRgb(item.rgb));
        break;
    case DisplayItem::Kind::Gradient:
        painter.fillPath(pathOf(list, item, view), brushOf(list.gradient(item), view));
        break;
    case DisplayItem::Kind::Picture:
        paintPicture(list, item, view, painter);
        break;
    }
}

void paint(const DisplayList &list, const DeviceView &view, QPainter &painter)
{
    for (const DisplayItem &item : list.items())
        paint(list, item, view, painter);
}

} // namespace render
