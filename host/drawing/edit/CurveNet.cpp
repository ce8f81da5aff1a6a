#include "host/drawing/edit/CurveNet.h"

#include "host/drawing/geometry/CurveBox.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace drawing {

using geometry::Box;
using geometry::Course;
using geometry::Crossing;
using geometry::Curve;
using geometry::Line;
using geometry::Span;
using geometry::Vector;

namespace {

constexpr double Rounding = 1e-9;

double flatDistance(const Vector &a, const Vector &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

bool mayMeet(const Box &a, const Box &b)
{
    return a.minimum.x <= b.maximum.x && b.minimum.x <= a.maximum.x && a.minimum.y <= b.maximum.y &&
           b.minimum.y <= a.maximum.y;
}

Box boxOf(const Course &course, double margin)
{
    Box box;
    addBox(course.curve(), box);
    box.add(box.minimum - Vector{margin, margin, 0});
    box.add(box.maximum + Vector{margin, margin, 0});
    return box;
}

// Calls visit(i, j), i < j, for each two boxes that meet.
template <class Visit> void forMeetingPairs(const std::vector<Box> &boxes, Visit visit)
{
    std::vector<std::size_t> fromLeft(boxes.size()), open;
    std::iota(fromLeft.begin(), fromLeft.end(), 0);
    std::ranges::sort(fromLeft, {}, [&](std::size_t i) { return boxes[i].minimum.x; });
    for (const std::size_t next : fromLeft) {
        std::erase_if(open, [&](std::size_t i) { return boxes[i].maximum.x < boxes[next].minimum.x; });
        for (const std::size_t other : open)
            if (mayMeet(boxes[other], boxes[next]))
                visit(std::min(other, next), std::max(other, next));
        open.push_back(next);
    }
}

// Where each curve is cut by the others, and where the end of another lies on it.
std::vector<std::vector<double>> cutsOf(const std::vector<Course> &curves, double gap)
{
    std::vector<std::vector<double>> cuts(curves.size());
    std::vector<Box> boxes;
    for (const Course &course : curves)
        boxes.push_back(boxOf(course, gap));
    const auto cutAtEnds = [&](std::size_t cut, const Course &other) {
        for (const double end : {other.first(), other.last()})
            if (const double place = curves[cut].nearest(other.at(end));
                flatDistance(curves[cut].at(place), other.at(end)) <= gap)
                cuts[cut].push_back(place);
    };
    forMeetingPairs(boxes, [&](std::size_t i, std::size_t j) {
        for (const Crossing &crossing : crossings(curves[i], curves[j])) {
            cuts[i].push_back(crossing.first);
            cuts[j].push_back(crossing.second);
        }
        cutAtEnds(i, curves[j]);
        cutAtEnds(j, curves[i]);
    });
    return cuts;
}

// On the loop itself.
Vector somePlaceOf(const Loop &loop)
{
    const Course first(loop.front());
    return first.at(first.middle());
}

} // namespace

// Places that are no farther apart than the gap are one node, the first of them.
class CurveNet::Nodes
{
public:
    explicit Nodes(double gap) : m_gap(gap) {}
    std::size_t at(const Vector &place);
    std::size_t count() const { return m_places.size(); }

private:
    // The plane in squares of the gap's size: what is near lies in the same square or in one beside it.
    using Square = std::pair<double, double>;
    struct SquareHash
    {
        std::size_t operator()(const Square &square) const
        {
            constexpr std::size_t Odd = 0x9E3779B97F4A7C15; // spreads neighbours
            return std::hash<double>()(square.first) * Odd + std::hash<double>()(square.second);
        }
    };

    double m_gap;
    std::vector<Vector> m_places;
    std::unordered_map<Square, std::vector<std::size_t>, SquareHash> m_bySquare;
};

std::size_t CurveNet::Nodes::at(const Vector &place)
{
    const Square own{std::floor(place.x / m_gap), std::floor(place.y / m_gap)};
    std::size_t nearest = m_places.size();
    for (const double column : {own.first - 1, own.first, own.first + 1})
        for (const double row : {own.second - 1, own.second, own.second + 1})
            if (const auto square = m_bySquare.find({column, row}); square != m_bySquare.end())
                for (const std::size_t node : square->second)
                    if (flatDistance(m_places[node], place) <= m_gap)
                        nearest = std::min(nearest, node);
    if (nearest == m_places.size()) {
        m_bySquare[own].push_back(nearest);
        m_places.push_back(place);
    }
    return nearest;
}

CurveNet::CurveNet(const std::vector<Course> &curves, double gap) : m_gap(gap)
{
    Nodes nodes(gap);
    const std::vector<std::vector<double>> cuts = cutsOf(curves, gap);
    for (std::size_t i = 0; i < curves.size(); ++i)
        addPieces(curves[i], cuts[i], nodes);
    dropDeadEnds(nodes.count());
    sortAroundNodes(nodes.count());
}

void CurveNet::addPieces(const Course &course, std::vector<double> cuts, Nodes &nodes)
{
    const double first = course.first(), last = course.last();
    if (!course.isClosed())
        cuts.insert(cuts.end(), {first, last});
    if (cuts.empty())
        cuts.push_back(first);
    std::ranges::sort(cuts);
    if (course.isClosed())
        cuts.push_back(cuts.front() + last - first);
    double from = cuts.front();
    for (std::size_t i = 1; i < cuts.size(); ++i) {
        const bool isWhole = cuts.size() == 2 && course.isClosed();
        if (cuts[i] - from <= Rounding || (!isWhole && flatDistance(course.at(from), course.at(cuts[i])) <= m_gap &&
                                           course.lengthBetween(from, cuts[i]) <= 2 * m_gap))
            continue;
        const Course piece(course.part(from, cuts[i]));
        const std::size_t start = nodes.at(geometry::startOf(piece.curve()));
        m_pieces.push_back({piece, start, nodes.at(geometry::endOf(piece.curve()))});
        from = cuts[i];
    }
}

// With a dead end goes the piece to it, which may make a dead end of where it comes from.
void CurveNet::dropDeadEnds(std::size_t nodeCount)
{
    std::vector<std::vector<std::size_t>> piecesAt(nodeCount); // a piece from a node to itself is there twice
    for (std::size_t piece = 0; piece < m_pieces.size(); ++piece) {
        piecesAt[m_pieces[piece].start].push_back(piece);
        piecesAt[m_pieces[piece].end].push_back(piece);
    }
    std::vector<std::size_t> left(nodeCount), deadEnds;
    for (std::size_t node = 0; node < left.size(); ++node)
        if (left[node] = piecesAt[node].size(); left[node] == 1)
            deadEnds.push_back(node);
    std::vector<bool> isDropped(m_pieces.size());
    while (!deadEnds.empty()) {
        const std::size_t end = deadEnds.back();
        deadEnds.pop_back();
        for (const std::size_t piece : piecesAt[end]) {
            if (isDropped[piece])
                continue;
            isDropped[piece] = true;
            for (const std::size_t node : {m_pieces[piece].start, m_pieces[piece].end})
                if (--left[node] == 1)
                    deadEnds.push_back(node);
        }
    }
    std::vector<Piece> kept;
    for (std::size_t piece = 0; piece < m_pieces.size(); ++piece)
        if (!isDropped[piece])
            kept.push_back(std::move(m_pieces[piece]));
    m_pieces = std::move(kept);
}

// Where it has gone after a short way, so that curves which leave along the same tangent are told apart.
double CurveNet::directionOf(HalfPiece half) const
{
    constexpr double ShortWay = 1e-3;
    const Course &course = m_pieces[half / 2].course;
    const double step = (course.last() - course.first()) * ShortWay;
    const bool isForward = half % 2 == 0;
    const Vector from = course.at(isForward ? course.first() : course.last());
    const Vector to = course.at(isForward ? course.first() + step : course.last() - step);
    return std::atan2(to.y - from.y, to.x - from.x);
}

void CurveNet::sortAroundNodes(std::size_t nodeCount)
{
    m_leaving.assign(nodeCount, {});
    for (HalfPiece half = 0; half < 2 * m_pieces.size(); ++half)
        m_leaving[startOf(half)].push_back(half);
    for (auto &leaving : m_leaving)
        std::ranges::sort(leaving, {}, [this](HalfPiece half) { return directionOf(half); });
}

// The way on that keeps the face to the left: the first one clockwise from where it came.
CurveNet::HalfPiece CurveNet::nextLeft(HalfPiece half) const
{
    const std::vector<HalfPiece> &leaving = m_leaving[endOf(half)];
    const auto back = std::ranges::find(leaving, half ^ 1);
    return back == leaving.begin() ? leaving.back() : *(back - 1);
}

std::vector<CurveNet::HalfPiece> CurveNet::face(HalfPiece first) const
{
    std::vector<HalfPiece> way;
    HalfPiece half = first;
    do {
        way.push_back(half);
        half = nextLeft(half);
    } while (half != first && way.size() <= 2 * m_pieces.size());
    return way;
}

Loop CurveNet::loopOf(const std::vector<HalfPiece> &face) const
{
    Loop loop;
    for (const HalfPiece half : face) {
        const Curve &curve = m_pieces[half / 2].course.curve();
        loop.push_back(half % 2 == 0 ? curve : reversed(curve));
    }
    return loop;
}

std::vector<Loop> CurveNet::outerLoops() const
{
    std::vector<Loop> loops;
    std::vector<bool> isSeen(2 * m_pieces.size());
    for (HalfPiece half = 0; half < isSeen.size(); ++half) {
        if (isSeen[half])
            continue;
        const std::vector<HalfPiece> way = face(half);
        for (const HalfPiece one : way)
            isSeen[one] = true;
        if (Loop loop = loopOf(way); areaOf(outlineOf(loop)) < 0) { // seen from outside
            std::ranges::reverse(loop);
            std::ranges::transform(loop, loop.begin(), geometry::reversed);
            loops.push_back(std::move(loop));
        }
    }
    return loops;
}

std::vector<Loop> CurveNet::loopsAbout(const Vector &place, Islands islands) const
{
    // Pieces to the right, seen along a direction in which hardly any end lies.
    const Course ray(Line{place, place + Vector{1, 1.2345678e-4, 0}});
    std::vector<std::pair<double, HalfPiece>> hits;
    for (std::size_t i = 0; i < m_pieces.size(); ++i)
        for (const Crossing &crossing : crossings(ray, m_pieces[i].course, Span::Extended)) {
            const bool goesUp = m_pieces[i].course.slope(crossing.second).y > 0;
            if (crossing.first > 0)
                hits.emplace_back(crossing.first, 2 * i + (goesUp ? 0 : 1));
        }
    std::ranges::sort(hits);
    std::vector<bool> isSeen(2 * m_pieces.size());
    for (const auto &[distance, half] : hits) {
        if (isSeen[half])
            continue;
        const std::vector<HalfPiece> way = face(half);
        for (const HalfPiece one : way)
            isSeen[one] = true;
        const Loop loop = loopOf(way);
        const Outline outline = outlineOf(loop);
        if (!(areaOf(outline) > 0) || !isInside(outline, place))
            continue;
        std::vector<Loop> loops{loop};
        if (islands == Islands::With)
            addIslands(outline, place, loops);
        return loops;
    }
    return {};
}

// Those within an outline that are not about the place themselves.
void CurveNet::addIslands(const Outline &outline, const Vector &place, std::vector<Loop> &loops) const
{
    const double area = areaOf(outline) * (1 - Rounding);
    for (const Loop &island : outerLoops()) {
        const Outline shore = outlineOf(island);
        if (isInside(outline, somePlaceOf(island)) && areaOf(shore) < area && !isInside(shore, place))
            loops.push_back(island);
    }
}

} // namespace drawing
