#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

#include <optional>
#include <vector>

namespace selection {

// Where the entities of a drawing's model and paper lie, seen from above, so that picks and windows need not look at
// all of them. It is made when it is first asked and follows the drawing's changes then.
class EntityIndex
{
public:
    explicit EntityIndex(const drawing::Drawing &drawing) : m_drawing(drawing) {}

    // Every entity whose extents meet the rectangle, in the drawing's order, and those that have no extents.
    std::vector<drawing::RecordId> entitiesNear(const geometry::Box &rectangle);

private:
    struct Cells // inclusive
    {
        int left, bottom, right, top;
    };
    void follow();
    void makeAnew();
    void measure(drawing::RecordId entity);
    void add(drawing::RecordId entity);
    void remove(drawing::RecordId entity);
    Cells cellsOf(const geometry::Box &box) const;
    bool isWide(const Cells &cells) const;
    template <class Function> void forCells(const Cells &cells, Function function);

    const drawing::Drawing &m_drawing;
    std::optional<std::uint64_t> m_changeCount; // of the journal, when the index was right
    std::vector<geometry::Box> m_boxes;         // by entity; an empty one: it has no extents
    geometry::Box m_whole;
    int m_size = 1; // cells in a row and in a column
    std::vector<std::vector<drawing::RecordId>> m_cells;
    std::vector<drawing::RecordId> m_wide; // in so many cells that they stand in none
};

} // namespace selection
