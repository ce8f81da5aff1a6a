#include "host/render/PointMarks.h"

#include "host/drawing/HeaderVariables.h"

namespace render {

namespace {

using geometry::Vector;

enum Mark { Dot, Nothing, Plus, Cross, Tick };
constexpr std::int64_t MarkMask = 7, Circle = 32, Square = 64;
constexpr double UsualShare = 0.05;

} // namespace

PointMarks::PointMarks(const drawing::Database &database)
{
    const auto mode = drawing::variable(database, "$PDMODE"), size = drawing::variable(database, "$PDSIZE");
    if (const auto *value = mode ? std::get_if<std::int64_t>(&mode->value) : nullptr)
        m_mode = *value;
    if (const auto *value = size ? std::get_if<double>(&size->value) : nullptr)
        m_size = std::isfinite(*value) ? *value : 0;
}

std::vector<geometry::Curve> PointMarks::at(const Vector &place, double scale, double height) const
{
    const double size = m_size > 0 ? m_size * scale : height * (m_size < 0 ? -m_size / 100 : UsualShare);
    const Vector x{size / 2, 0, 0}, y{0, size / 2, 0};
    std::vector<geometry::Curve> curves;
    const auto line = [&](const Vector &from, const Vector &to) {
        curves.push_back(geometry::Line{place + from, place + to});
    };
    switch (m_mode & MarkMask) {
    case Dot:
        line({}, {});
        break;
    case Plus: // these two reach beyond circle and square
        line(-x * 2, x * 2);
        line(-y * 2, y * 2);
        break;
    case Cross:
        line((-x - y) * 2, (x + y) * 2);
        line((y - x) * 2, (x - y) * 2);
        break;
    case Tick:
        line({}, y);
        break;
    default:
        break;
    }
    if ((m_mode & Circle) != 0)
        curves.push_back(geometry::EllipticArc{place, x, y});
    const Vector corners[] = {-x - y, x - y, x + y, y - x};
    for (std::size_t i = 0; (m_mode & Square) != 0 && i < std::size(corners); ++i)
        line(corners[i], corners[(i + 1) % std::size(corners)]);
    return curves;
}

} // namespace render
