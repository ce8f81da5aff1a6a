#pragma once

#include "host/drawing/edit/Loop.h"
#include "host/drawing/geometry/Crossings.h"

#include <vector>

namespace drawing {

// The net that curves make where they cross and meet, as seen from above, without what leads nowhere.
class CurveNet
{
public:
    // Ends that are no farther apart than `gap` meet.
    CurveNet(const std::vector<geometry::Course> &curves, double gap);

    // The smallest loop about a place, counter-clockwise, and behind it the outer loops of what lies in it. Empty when
    // no loop is about the place.
    enum class Islands { Without, With };
    std::vector<Loop> loopsAbout(const geometry::Vector &place, Islands islands) const;

    std::vector<Loop> outerLoops() const; // of each connected part of the net

private:
    struct Piece
    {
        geometry::Course course;
        std::size_t start, end; // nodes
    };
    // A piece in one of its two directions: 2 * piece, or one more when it is walked from its end.
    using HalfPiece = std::size_t;

    class Nodes; // where ends meet, counted from 0

    void addPieces(const geometry::Course &course, std::vector<double> cuts, Nodes &nodes);
    void dropDeadEnds(std::size_t nodeCount);
    void sortAroundNodes(std::size_t nodeCount);
    std::size_t startOf(HalfPiece half) const
    {
        return half % 2 == 0 ? m_pieces[half / 2].start : m_pieces[half / 2].end;
    }
    std::size_t endOf(HalfPiece half) const { return startOf(half ^ 1); }
    double directionOf(HalfPiece half) const;
    HalfPiece nextLeft(HalfPiece half) const;
    std::vector<HalfPiece> face(HalfPiece first) const;
    Loop loopOf(const std::vector<HalfPiece> &face) const;
    void addIslands(const Outline &outline, const geometry::Vector &place, std::vector<Loop> &loops) const;

    double m_gap;
    std::vector<Piece> m_pieces;
    std::vector<std::vector<HalfPiece>> m_leaving; // of each node, counter-clockwise
};

} // namespace drawing
