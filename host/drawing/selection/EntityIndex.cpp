#include "host/drawing/selection/EntityIndex.h"

#include "host/drawing/ChangedEntities.h"
#include "host/drawing/geometry/Extents.h"
#include "host/drawing/selection/Candidates.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace selection {

using drawing::RecordId;
using geometry::Box;

namespace {

constexpr double EntitiesInCell = 16;
constexpr int MostCellsInRow = 512, MostCellsOfEntity = 256;
constexpr std::size_t ReplacedShare = 4;  // of all entities; more are quicker made anew
constexpr std::size_t StepsOfRenewal = 3; // each as long as it takes to measure an entity, or to add it

bool meet(const Box &a, const Box &b)
{
    return a.minimum.x <= b.maximum.x && b.minimum.x <= a.maximum.x && a.minimum.y <= b.maximum.y &&
           b.minimum.y <= a.maximum.y;
}

int cellOf(double value, double low, double high, int size)
{
    const double share = high > low ? (value - low) / (high - low) : 0;
    return share > 0 ? static_cast<int>(std::min(share * size, size - 1.0)) : 0; // 0 also for what is no number
}

} // namespace

std::vector<RecordId> EntityIndex::entitiesNear(const Box &rectangle)
{
    follow();
    workOff();
    std::vector<RecordId> found;
    for (const RecordId entity : m_wide)
        if (m_boxes[entity].isEmpty() || meet(m_boxes[entity], rectangle))
            found.push_back(entity);
    forCells(cellsOf(rectangle), [&](std::vector<RecordId> &cell) {
        std::copy_if(cell.begin(), cell.end(), std::back_inserter(found),
                     [&](RecordId entity) { return meet(m_boxes[entity], rectangle); });
    });
    std::sort(found.begin(), found.end()); // records are added at the end, so that this is the drawing's order
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

Box EntityIndex::extentsOf(RecordId entity)
{
    follow();
    workOff();
    return m_boxes[entity];
}

bool EntityIndex::prepare()
{
    constexpr std::size_t Part = 50000;
    follow();
    work(Part);
    return !isReady();
}

bool EntityIndex::isReady() const
{
    return m_added == m_waiting.size() && m_renewed == m_changed.size();
}

void EntityIndex::follow()
{
    const drawing::Journal &journal = m_drawing.database().journal();
    if (m_changeCount == journal.changeCount())
        return;
    const bool isMade = m_changeCount && m_added == m_waiting.size();
    const auto records = isMade ? journal.changedSince(*m_changeCount) : std::nullopt;
    const auto entities =
        records ? drawing::changedEntities(m_drawing, *records, drawing::Aspect::Shape) : std::nullopt;
    m_changeCount = journal.changeCount();
    if (entities && m_changed.size() - m_renewed + entities->size() <= m_boxes.size() / ReplacedShare) {
        m_boxes.resize(m_drawing.database().recordCount());
        m_isIn.resize(m_boxes.size());
        m_changed.insert(m_changed.end(), entities->begin(), entities->end());
    } else {
        makeAnew();
    }
}

// Until then it stands where it lay before.
void EntityIndex::renew(RecordId entity)
{
    const drawing::Database &database = m_drawing.database();
    const drawing::Record &record = database.record(entity);
    remove(entity);
    m_boxes[entity] = Box();
    if (record.isGone() || record.container != database.section(drawing::known::Entities))
        return;
    measure(entity);
    add(entity);
}

void EntityIndex::makeAnew()
{
    m_waiting = allEntities(m_drawing);
    m_measured = m_added = 0;
    m_changed = {};
    m_renewed = 0;
    m_boxes.assign(m_drawing.database().recordCount(), {});
    m_isIn.assign(m_boxes.size(), false);
    m_whole = {};
    m_wide.clear();
    m_cells.assign(1, {});
    m_size = 1;
}

void EntityIndex::workOff()
{
    work(std::numeric_limits<std::size_t>::max());
}

void EntityIndex::work(std::size_t steps)
{
    for (; m_measured < m_waiting.size() && steps > 0; ++m_measured, --steps) {
        measure(m_waiting[m_measured]);
        m_whole.add(m_boxes[m_waiting[m_measured]]);
    }
    if (m_measured < m_waiting.size())
        return;
    if (!m_waiting.empty() && m_added == 0)
        layOutCells();
    for (; m_added < m_waiting.size() && steps > 0; ++m_added, --steps)
        add(m_waiting[m_added]);
    if (m_added < m_waiting.size())
        return;
    m_waiting = {};
    m_measured = m_added = 0;
    for (; m_renewed < m_changed.size() && steps > 0; ++m_renewed, steps -= std::min(steps, StepsOfRenewal))
        renew(m_changed[m_renewed]);
    if (m_renewed < m_changed.size())
        return;
    m_changed = {};
    m_renewed = 0;
}

void EntityIndex::layOutCells()
{
    m_size = std::clamp(static_cast<int>(std::sqrt(static_cast<double>(m_waiting.size()) / EntitiesInCell)), 1,
                        MostCellsInRow);
    m_cells.assign(static_cast<std::size_t>(m_size) * static_cast<std::size_t>(m_size), {});
}

void EntityIndex::measure(RecordId entity)
{
    m_boxes[entity] = geometry::extentsOf(m_drawing, entity).value_or(Box());
}

void EntityIndex::add(RecordId entity)
{
    const Box &box = m_boxes[entity];
    m_isIn[entity] = true;
    if (box.isEmpty() || isWide(cellsOf(box)))
        m_wide.push_back(entity);
    else
        forCells(cellsOf(box), [entity](std::vector<RecordId> &cell) { cell.push_back(entity); });
}

void EntityIndex::remove(RecordId entity)
{
    const Box &box = m_boxes[entity];
    if (!m_isIn[entity])
        return;
    m_isIn[entity] = false;
    if (box.isEmpty() || isWide(cellsOf(box)))
        std::erase(m_wide, entity);
    else
        forCells(cellsOf(box), [entity](std::vector<RecordId> &cell) { std::erase(cell, entity); });
}

EntityIndex::Cells EntityIndex::cellsOf(const Box &box) const
{
    const geometry::Vector &low = m_whole.minimum, &high = m_whole.maximum;
    return {cellOf(box.minimum.x, low.x, high.x, m_size), cellOf(box.minimum.y, low.y, high.y, m_size),
            cellOf(box.maximum.x, low.x, high.x, m_size), cellOf(box.maximum.y, low.y, high.y, m_size)};
}

bool EntityIndex::isWide(const Cells &cells) const
{
    return (cells.right - cells.left + 1) * (cells.top - cells.bottom + 1) > MostCellsOfEntity;
}

template <class Function> void EntityIndex::forCells(const Cells &cells, Function function)
{
    for (int row = cells.bottom; row <= cells.top; ++row)
        for (int column = cells.left; column <= cells.right; ++column)
            function(m_cells[static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size) +
                             static_cast<std::size_t>(column)]);
}

} // namespace selection
