#include "host/drawing/edit/Boundary.h"

#include "host/drawing/geometry/CurveBox.h"
#include "host/drawing/geometry/Flatten.h"

#include <algorithm>
#include <cmath>

namespace drawing {

using geometry::Box;
using geometry::Course;
using geometry::Crossing;
using geometry::Curve;
using geometry::EllipticArc;
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
    for (std::size_t i = 0; i < curves.size(); ++i)
        for (std::size_t j = i + 1; j < curves.size(); ++j) {
            if (!mayMeet(boxes[i], boxes[j]))
                continue;
            for (const Crossing &crossing : crossings(curves[i], curves[j])) {
                cuts[i].push_back(crossing.first);
                cuts[j].push_back(crossing.second);
            }
            cutAtEnds(i, curves[j]);
            cutAtEnds(j, curves[i]);
        }
    return cuts;
}

std::vector<Vector> placesOf(const Loop &loop)
{
    constexpr double Fineness = 1e-5;
    Box box;
    for (const Curve &curve : loop)
        addBox(curve, box);
    const double tolerance = std::max(length(box.maximum - box.minimum) * Fineness, 1e-12);
    return geometry::flattened({loop, true}, tolerance);
}

} // namespace

CurveNet::CurveNet(const std::vector<Course> &curves, double gap) : m_gap(gap)
{
    const std::vector<std::vector<double>> cuts = cutsOf(curves, gap);
    for (std::size_t i = 0; i < curves.size(); ++i)
        addPieces(curves[i], cuts[i]);
    dropDeadEnds();
    sortAroundNodes();
}

void CurveNet::addPieces(const Course &course, std::vector<double> cuts)
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
        const std::size_t start = nodeAt(geometry::startOf(piece.curve()));
        m_pieces.push_back({piece, start, nodeAt(geometry::endOf(piece.curve()))});
        from = cuts[i];
    }
}

std::size_t CurveNet::nodeAt(const Vector &place)
{
    for (std::size_t i = 0; i < m_nodes.size(); ++i)
        if (flatDistance(m_nodes[i], place) <= m_gap)
            return i;
    m_nodes.push_back(place);
    return m_nodes.size() - 1;
}

void CurveNet::dropDeadEnds()
{
    for (std::size_t before = m_pieces.size() + 1; m_pieces.size() < before;) {
        before = m_pieces.size();
        std::vector<int> count(m_nodes.size());
        for (const Piece &piece : m_pieces) {
            ++count[piece.start];
            ++count[piece.end];
        }
        std::erase_if(m_pieces, [&](const Piece &piece) { return count[piece.start] < 2 || count[piece.end] < 2; });
    }
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

void CurveNet::sortAroundNodes()
{
    m_leaving.assign(m_nodes.size(), {});
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
        if (Loop loop = loopOf(way); areaOf(loop) < 0) { // seen from outside
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
    for (const auto &[distance, half] : hits) {
        const Loop outer = loopOf(face(half));
        if (!(areaOf(outer) > 0) || !isInside(outer, place))
            continue;
        std::vector<Loop> loops{outer};
        if (islands == Islands::With)
            for (const Loop &island : outerLoops())
                if (isInside(outer, Course(island.front()).at(Course(island.front()).middle())) &&
                    areaOf(island) < areaOf(outer) * (1 - Rounding) && !isInside(island, place))
                    loops.push_back(island);
        return loops;
    }
    return {};
}

double areaOf(const Loop &loop)
{
    const std::vector<Vector> places = placesOf(loop);
    double twice = 0;
    for (std::size_t i = 0; i + 1 < places.size(); ++i)
        twice += (places[i].x - places[0].x) * (places[i + 1].y - places[0].y) -
                 (places[i + 1].x - places[0].x) * (places[i].y - places[0].y);
    return twice / 2;
}

bool isInside(const Loop &loop, const Vector &place)
{
    const std::vector<Vector> places = placesOf(loop);
    bool inside = false;
    for (std::size_t i = 0; i + 1 < places.size(); ++i) {
        const Vector &a = places[i], &b = places[i + 1];
        if ((a.y > place.y) != (b.y > place.y) && place.x < (b.x - a.x) * (place.y - a.y) / (b.y - a.y) + a.x)
            inside = !inside;
    }
    return inside;
}

PolylineData polylineOf(const Loop &loop)
{
    constexpr double Fineness = 1e-4;
    PolylineData polyline;
    polyline.isClosed = true;
    const auto add = [&](const Vector &place, double bulge) { polyline.vertices.push_back({place, 0, 0, bulge}); };
    for (const Curve &curve : loop) {
        const EllipticArc *arc = std::get_if<EllipticArc>(&curve);
        const bool isRound =
            arc && std::abs(length(arc->cosineAxis) - length(arc->sineAxis)) <= Rounding * length(arc->cosineAxis);
        if (isRound) {
            // Its turn is to the right where the axes stand that way. A bulge is less than half a turn.
            const double side = arc->cosineAxis.x * arc->sineAxis.y < arc->cosineAxis.y * arc->sineAxis.x ? -1 : 1;
            const int halves = arc->end - arc->start > geometry::FullTurn / 2 ? 2 : 1;
            const double sweep = (arc->end - arc->start) / halves;
            for (int i = 0; i < halves; ++i)
                add(arc->at(arc->start + sweep * i), side * std::tan(sweep / 4));
        } else if (std::holds_alternative<Line>(curve)) {
            add(geometry::startOf(curve), 0);
        } else {
            Box box;
            addBox(curve, box);
            std::vector<Vector> places{geometry::startOf(curve)};
            flatten(curve, std::max(length(box.maximum - box.minimum) * Fineness, 1e-12), places);
            for (std::size_t i = 0; i + 1 < places.size(); ++i)
                add(places[i], 0);
        }
    }
    return polyline;
}

} // namespace drawing
