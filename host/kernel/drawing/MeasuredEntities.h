#pragma once

#include "host/drawing/geometry/Extents.h"

#include <optional>
#include <vector>

// The boxes of the entities that programs have measured. They ask for one entity's box several times, for each corner
// or side once, and go over the entities that they have chosen more than once. A box holds until anything changes in
// the drawing: a block, a style or a vertex may be a part of it.
class MeasuredEntities
{
public:
    explicit MeasuredEntities(const drawing::Drawing &drawing) : m_drawing(drawing) {}

    std::optional<geometry::Box> extentsOf(drawing::RecordId entity); // as geometry::extentsOf()

private:
    struct Measured
    {
        drawing::RecordId entity = drawing::NoRecord;
        std::uint64_t changeCount = 0;
        std::optional<geometry::Box> box;
    };

    Measured &placeOf(drawing::RecordId entity) { return m_places[entity & (m_places.size() - 1)]; }
    void grow();

    static constexpr std::size_t FirstPlaces = 64, MostPlaces = 1 << 18; // powers of two; some 20 MB

    const drawing::Drawing &m_drawing;
    std::vector<Measured> m_places = std::vector<Measured>(FirstPlaces); // each for the entity measured last of several
};
