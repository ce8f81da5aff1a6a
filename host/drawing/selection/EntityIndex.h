#pragma once

#include "host/drawing/Drawing.h"
#include "host/drawing/geometry/Vector.h"

#include <optional>
#include <vector>

namespace selection {

// Where the entities of a drawing's model and paper lie, seen from above, so that picks and windows need not look at
// all of them. It is made when it is first asked, or before that in parts, and follows the drawing's changes then.
class EntityIndex
{
public:
    explicit EntityIndex(const drawing::Drawing &drawing) : m_drawing(drawing) {}

    // Every entity whose extents meet the rectangle, in the drawing's order, and those that have no extents.
    std::vector<drawing::RecordId> entitiesNear(const geometry::Box &rectangle);
    // As geometry::extentsOf(), of an entity of the model or the paper; an empty one where that gives none.
    geometry::Box extentsOf(drawing::RecordId entity);

    // Does a part of what the next question would wait for, a few hundredths of a second long. False: nothing is left.
    bool prepare();

private:
    struct Cells // inclusive
    {
        int left, bottom, right, top;
    };
    void follow();
    void makeAnew();
    void workOff();               // all that wait
    void work(std::size_t steps); // at most so many
    void layOutCells();
    bool isReady() const;
    void renew(drawing::RecordId entity);
    void measure(drawing::RecordId entity);
    void add(drawing::RecordId entity);
    void remove(drawing::RecordId entity);
    Cells cellsOf(const geometry::Box &box) const;
    bool isWide(const Cells &cells) const;
    template <class Function> void forCells(const Cells &cells, Function function);

    const drawing::Drawing &m_drawing;
    std::optional<std::uint64_t> m_changeCount; // of the journal, when the index was right
    std::vector<geometry::Box> m_boxes;         // by entity; an empty one: it has no extents
    std::vector<bool> m_isIn;                   // by entity; in the cells, or among the wide ones
    geometry::Box m_whole;
    int m_size = 1; // cells in a row and in a column
    std::vector<std::vector<drawing::RecordId>> m_cells;
    std::vector<drawing::RecordId> m_wide; // in so many cells that they stand in none
    // While it is made: first all are measured, then all are added.
    std::vector<drawing::RecordId> m_waiting;
    std::size_t m_measured = 0, m_added = 0;
    std::vector<drawing::RecordId> m_changed; // since it was made; some more than once
    std::size_t m_renewed = 0;
};

} // namespace selection
