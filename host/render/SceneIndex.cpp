#include "host/render/SceneIndex.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace render {

namespace {

constexpr int MostBlocksInRow = 64;
constexpr double ItemsInBlock = 2000;
constexpr std::uint32_t WatchedItems = 1 << 17; // between two times
constexpr float Far = std::numeric_limits<float>::max();
constexpr SceneIndex::Box EmptyBox{Far, Far, -Far, -Far};

void extend(SceneIndex::Box &box, const SceneIndex::Box &by)
{
    box = {std::min(box.left, by.left), std::min(box.bottom, by.bottom), std::max(box.right, by.right),
           std::max(box.top, by.top)};
}

SceneIndex::Box boxOf(const DisplayList &list, const DisplayItem &item)
{
    SceneIndex::Box box = EmptyBox;
    for (const DisplayPoint &point : list.points(item))
        if (!DisplayList::isLoopEnd(point))
            extend(box, {point.x, point.y, point.x, point.y});
    return box;
}

SceneIndex::Entry entryOf(const DisplayList &list, std::uint32_t number, const SceneIndex::Box &box)
{
    const DisplayItem &item = list.items()[number];
    const auto points = list.points(item);
    if (item.kind == DisplayItem::Kind::Line && points.size() == 2)
        return {points[0].x, points[0].y, points[1].x, points[1].y, item.rgb, number, item.weight};
    return {box.left, box.bottom, box.right, box.top, item.rgb, number, -1};
}

int cellOf(float value, float low, float high, int size)
{
    const double share = high > low ? (double{value} - double{low}) / (double{high} - double{low}) : 0;
    return static_cast<int>(std::clamp(share * size, 0.0, size - 1.0));
}

} // namespace

SceneIndex::SceneIndex(const DisplayList &list, double unitsPerMillimetre, const std::function<void()> &watch)
    : m_unitsPerMillimetre(unitsPerMillimetre), m_whole(EmptyBox)
{
    std::vector<Box> boxes;
    boxes.reserve(list.items().size());
    for (const DisplayItem &item : list.items()) {
        if (!item.isEndless)
            extend(m_whole, boxOf(list, item));
        boxes.push_back(reachOf(list, item));
    }
    const double blocks = std::sqrt(static_cast<double>(boxes.size()) / ItemsInBlock);
    m_size = std::clamp(static_cast<int>(blocks), 1, MostBlocksInRow);
    if (watch)
        watch();
    fillBlocks(list, boxes, watch);
}

SceneIndex::Box SceneIndex::reachOf(const DisplayList &list, const DisplayItem &item) const
{
    const Box box = boxOf(list, item);
    const float reach = item.weight * static_cast<float>(m_unitsPerMillimetre / 2);
    return {box.left - reach, box.bottom - reach, box.right + reach, box.top + reach};
}

SceneIndex::Cells SceneIndex::cellsOf(const Box &box) const
{
    return {
        cellOf(box.left, m_whole.left, m_whole.right, m_size), cellOf(box.bottom, m_whole.bottom, m_whole.top, m_size),
        cellOf(box.right, m_whole.left, m_whole.right, m_size), cellOf(box.top, m_whole.bottom, m_whole.top, m_size)};
}

SceneIndex::Box SceneIndex::blockBox(int column, int row) const
{
    const auto edge = [&](float low, float high, int number) {
        return number == 0        ? -Far
               : number == m_size ? Far
                                  : low + (high - low) * static_cast<float>(number) / static_cast<float>(m_size);
    };
    return {edge(m_whole.left, m_whole.right, column), edge(m_whole.bottom, m_whole.top, row),
            edge(m_whole.left, m_whole.right, column + 1), edge(m_whole.bottom, m_whole.top, row + 1)};
}

template <class Function> void SceneIndex::forCells(const Cells &cells, Function function) const
{
    for (int row = cells.bottom; row <= cells.top; ++row)
        for (int column = cells.left; column <= cells.right; ++column)
            function(static_cast<std::size_t>(row) * static_cast<std::size_t>(m_size) +
                     static_cast<std::size_t>(column));
}

// Counts first, so that no block's entries are ever moved.
void SceneIndex::fillBlocks(const DisplayList &list, const std::vector<Box> &boxes, const std::function<void()> &watch)
{
    const std::size_t count = static_cast<std::size_t>(m_size) * static_cast<std::size_t>(m_size);
    std::vector<std::uint32_t> sizes(count);
    for (const Box &box : boxes)
        forCells(cellsOf(box), [&](std::size_t cell) { ++sizes[cell]; });
    m_entries.resize(count);
    for (std::size_t cell = 0; cell < count; ++cell)
        m_entries[cell].reserve(sizes[cell]);
    for (std::uint32_t item = 0; item < boxes.size(); ++item) {
        if (watch && item % WatchedItems == 0)
            watch();
        const Entry entry = entryOf(list, item, boxes[item]);
        forCells(cellsOf(boxes[item]), [&](std::size_t cell) { m_entries[cell].push_back(entry); });
    }
}

void SceneIndex::insert(const DisplayList &list, std::uint32_t item)
{
    const auto comesBefore = [&](const Entry &first, const Entry &second) {
        const auto order = [&](const Entry &entry) { return std::pair(list.items()[entry.item].entity, entry.item); };
        return order(first) < order(second);
    };
    const Box box = reachOf(list, list.items()[item]);
    const Entry entry = entryOf(list, item, box);
    forCells(cellsOf(box), [&](std::size_t cell) {
        std::vector<Entry> &block = m_entries[cell];
        block.insert(std::upper_bound(block.begin(), block.end(), entry, comesBefore), entry);
    });
}

void SceneIndex::remove(const DisplayList &list, std::uint32_t item)
{
    forCells(cellsOf(reachOf(list, list.items()[item])), [&](std::size_t cell) {
        std::erase_if(m_entries[cell], [item](const Entry &entry) { return entry.item == item; });
    });
}

std::vector<SceneIndex::Block> SceneIndex::blocksIn(const Box &box) const
{
    std::vector<Block> blocks;
    if (m_entries.empty())
        return blocks;
    forCells(cellsOf(box), [&](std::size_t cell) {
        const auto size = static_cast<std::size_t>(m_size);
        blocks.push_back({blockBox(static_cast<int>(cell % size), static_cast<int>(cell / size)), m_entries[cell]});
    });
    return blocks;
}

std::vector<std::uint32_t> SceneIndex::itemsIn(const Box &box) const
{
    std::vector<std::uint32_t> found;
    for (const Block &block : blocksIn(box))
        for (const Entry &entry : block.entries)
            if (entry.box().meets(box))
                found.push_back(entry.item);
    std::sort(found.begin(), found.end());
    found.erase(std::unique(found.begin(), found.end()), found.end());
    return found;
}

} // namespace render
