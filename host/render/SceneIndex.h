#pragma once

#include "host/render/DisplayList.h"

#include <algorithm>
#include <functional>
#include <span>

namespace render {

// Blocks of the plane with the items of a list that lie in each. Coordinates are the list's, from its origin.
//
// Drawing block after block is what makes large drawings quick: what is read lies in one piece of memory, the pixels of
// a block stay in the processor's cache, and blocks that are not seen cost nothing. Within a block items are in drawing
// order: that of their numbers, and for items that come later that of the numbers of their entities.
class SceneIndex
{
public:
    struct Box
    {
        float left, bottom, right, top;

        bool meets(const Box &other) const
        {
            return left <= other.right && other.left <= right && bottom <= other.top && other.bottom <= top;
        }
    };

    SceneIndex() = default;
    // Lineweights reach beyond the points; `unitsPerMillimetre` is 0 where they are not drawn.
    SceneIndex(const DisplayList &list, double unitsPerMillimetre, const std::function<void()> &watch = {});

    // For single items that join the list or leave it. The blocks stay as they are, so that this is for few.
    void insert(const DisplayList &list, std::uint32_t item);
    void remove(const DisplayList &list, std::uint32_t item); // as long as the list has its points

    // An item in a block. That of a line of two points holds all that is needed to draw it.
    struct Entry
    {
        float x1, y1, x2, y2; // the points of such a line, else corners of the box
        std::uint32_t rgb;
        std::uint32_t item;
        float weight; // as the item's; negative: it is no such line

        bool isSegment() const { return weight >= 0; }
        Box box() const { return {std::min(x1, x2), std::min(y1, y2), std::max(x1, x2), std::max(y1, y2)}; }
    };
    struct Block
    {
        Box box; // endless on the sides where no other block follows
        std::span<const Entry> entries;
    };
    std::vector<Block> blocksIn(const Box &box) const;
    // The numbers of the items whose boxes meet this one, from the lowest, which is drawn first.
    std::vector<std::uint32_t> itemsIn(const Box &box) const;

private:
    struct Cells // inclusive
    {
        int left, bottom, right, top;
    };
    Cells cellsOf(const Box &box) const;
    template <class Function> void forCells(const Cells &cells, Function function) const;
    Box reachOf(const DisplayList &list, const DisplayItem &item) const;
    void fillBlocks(const DisplayList &list, const std::vector<Box> &boxes, const std::function<void()> &watch);
    Box blockBox(int column, int row) const;

    double m_unitsPerMillimetre = 0;
    Box m_whole{};
    int m_size = 1;                            // blocks in a row and in a column
    std::vector<std::vector<Entry>> m_entries; // of each block
};

} // namespace render
