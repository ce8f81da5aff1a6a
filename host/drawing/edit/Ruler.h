#pragma once

#include "host/drawing/geometry/Course.h"

#include <vector>

namespace drawing {

// Finds places by their distance along curves that follow each other, from the start of the first.
class Ruler
{
public:
    struct Mark
    {
        geometry::Vector place, ahead; // the direction of the curve there, of length 1
    };

    explicit Ruler(const std::vector<geometry::Curve> &curves); // one at least

    double length() const { return m_stretches.empty() ? 0 : m_stretches.back().end; }
    bool isClosed() const;          // ends where it begins
    Mark at(double distance) const; // where the length is not 0

private:
    // Of one curve, between two knots of it: where it is smooth.
    struct Stretch
    {
        std::size_t course;
        double from, to;   // parameters
        double start, end; // distances
    };
    void add(std::size_t course, double from, double to);

    std::vector<geometry::Course> m_courses;
    std::vector<Stretch> m_stretches;
};

} // namespace drawing
