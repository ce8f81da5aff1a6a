#pragma once

#include "host/drawing/Database.h"
#include "host/drawing/geometry/Shapes.h"

namespace render {

// How points are shown, as $PDMODE and $PDSIZE say.
class PointMarks
{
public:
    explicit PointMarks(const drawing::Database &database);

    bool isDot() const { return m_mode == 0; }
    // The lines of the mark around a place on the page. `scale` is a length of 1 in the world on the page, and `height`
    // that of the page: sizes that are not absolute are a share of it.
    std::vector<geometry::Curve> at(const geometry::Vector &place, double scale, double height) const;

private:
    std::int64_t m_mode = 0;
    double m_size = 0;
};

} // namespace render
