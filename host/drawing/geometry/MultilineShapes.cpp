#include "host/drawing/geometry/ShapeWalk.h"

#include <algorithm>
#include <utility>

namespace geometry {

using drawing::Item;
using drawing::RecordId;

namespace {

struct Corner
{
    Vector place, miter;
    std::vector<double> offsets; // of each element, along the miter

    Vector of(std::size_t element) const { return place + miter * offsets[element]; }
};

struct Multiline
{
    std::vector<Corner> corners;
    bool isClosed = false;

    std::size_t elementCount() const
    {
        const auto fewest = std::ranges::min_element(corners, {}, [](const Corner &one) { return one.offsets.size(); });
        return fewest != corners.end() ? fewest->offsets.size() : 0;
    }
};

// An element's parameters follow their number; the first is its offset, the others are where it begins and is cut.
Multiline read(EntityReader reader)
{
    constexpr int Flags = 71, Place = 11, Miter = 13, ParameterCount = 74, Parameter = 41;
    constexpr std::int64_t Closed = 2;
    Multiline multiline;
    bool isOffset = false;
    for (Item item; reader.next(item);)
        if (item.code == Flags)
            multiline.isClosed = (item.integer & Closed) != 0;
        else if (item.code == Place)
            multiline.corners.push_back({vectorOf(item.point), {}, {}});
        else if (multiline.corners.empty())
            continue;
        else if (item.code == Miter)
            multiline.corners.back().miter = vectorOf(item.point);
        else if (item.code == ParameterCount)
            isOffset = true;
        else if (item.code == Parameter && std::exchange(isOffset, false))
            multiline.corners.back().offsets.push_back(item.real);
    return multiline;
}

} // namespace

// The elements' lines, without caps, joints and fill, whole where they are cut.
void multilineShapes(ShapeWalk &walk, RecordId id)
{
    const Multiline multiline = read(EntityReader(walk.database(), id));
    const std::vector<Corner> &corners = multiline.corners;
    if (corners.size() < 2)
        return;
    for (std::size_t element = 0; element < multiline.elementCount(); ++element) {
        std::vector<Curve> path;
        for (std::size_t next = 1; next < corners.size(); ++next)
            path.push_back(Line{corners[next - 1].of(element), corners[next].of(element)});
        if (multiline.isClosed)
            path.push_back(Line{corners.back().of(element), corners.front().of(element)});
        walk.path(path, multiline.isClosed);
    }
}

} // namespace geometry
