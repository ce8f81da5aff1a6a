// IMAGE and WIPEOUT, VIEWPORT.
#include "host/drawing/geometry/ShapeWalk.h"

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

// The boundary is given in pixels from the centre of the upper left one, downwards; two corners are a rectangle.
std::vector<Vector> outlineOf(const Image &image, std::vector<Vector> boundary)
{
    if (boundary.size() == 2)
        boundary = {boundary[0], {boundary[1].x, boundary[0].y, 0}, boundary[1], {boundary[0].x, boundary[1].y, 0}};
    for (Vector &place : boundary)
        place = image.insertion + image.right * (place.x + 0.5) + image.up * (image.height - place.y - 0.5);
    return boundary;
}

} // namespace

void imageShapes(ShapeWalk &walk, RecordId id)
{
    Image image;
    image.isWipeout = walk.database().record(id).type == drawing::known::Wipeout;
    std::vector<Vector> boundary;
    bool isClipped = image.isWipeout;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        switch (item.code) {
        case 10:
            image.insertion = vectorOf(item.point);
            break;
        case 11:
            image.right = vectorOf(item.point);
            break;
        case 12:
            image.up = vectorOf(item.point);
            break;
        case 13:
            image.width = item.point.x;
            image.height = item.point.y;
            break;
        case 14:
            boundary.push_back(vectorOf(item.point));
            break;
        case 70:
            image.isShown = (item.integer & 1) != 0;
            break;
        case 280:
            isClipped = isClipped || item.integer != 0;
            break;
        case 340:
            image.definition = walk.database().find({item.handle});
            break;
        default:
            break;
        }
    if (!isClipped || boundary.size() < 2)
        boundary = {{-0.5, -0.5, 0}, {image.width - 0.5, image.height - 0.5, 0}};
    image.outline = outlineOf(image, std::move(boundary));
    walk.image(std::move(image));
}

void viewportShapes(ShapeWalk &walk, RecordId id)
{
    Vector centre;
    double width = 0, height = 0;
    EntityReader reader(walk.database(), id);
    for (Item item; reader.next(item);)
        if (item.code == 10)
            centre = vectorOf(item.point);
        else if (item.code == 40)
            width = item.real;
        else if (item.code == 41)
            height = item.real;
    const Vector x{width / 2, 0, 0}, y{0, height / 2, 0};
    walk.window({{centre - x - y, centre + x - y, centre + x + y, centre - x + y}, id});
}

} // namespace geometry
