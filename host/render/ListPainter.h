#pragma once

#include "host/render/DisplayList.h"

class QPainter;

namespace render {

// How a list comes onto a device.
struct DeviceView
{
    QTransform toDevice;               // from the list's coordinates to the painter's own, which has no transformation
    double pixelsPerMillimetre = 3.78; // of lineweights
    double thinnest = 1;               // line, in the painter's units
};

// Draws the items. The painter's clip stays.
void paint(const DisplayList &list, const DeviceView &view, QPainter &painter);
void paint(const DisplayList &list, const DisplayItem &item, const DeviceView &view, QPainter &painter);

} // namespace render
