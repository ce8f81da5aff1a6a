#include "host/render/Raster.h"

#include <algorithm>
#include <cmath>

namespace render {

Raster::Raster(QImage &image)
    : m_pixels(reinterpret_cast<std::uint32_t *>(image.bits())),
      m_stride(image.bytesPerLine() / static_cast<qsizetype>(sizeof(std::uint32_t))), m_all(image.rect()), m_clip(m_all)
{
}

// Liang and Barsky's way: how far along the line it enters and leaves the image.
bool Raster::clip(float &x1, float &y1, float &x2, float &y2) const
{
    constexpr float Within = 0.001F; // the last pixel
    const auto left = static_cast<float>(m_clip.left()), top = static_cast<float>(m_clip.top());
    const float right = static_cast<float>(m_clip.right() + 1) - Within;
    const float bottom = static_cast<float>(m_clip.bottom() + 1) - Within;
    const auto isInside = [&](float x, float y) { return x >= left && y >= top && x <= right && y <= bottom; };
    if (isInside(x1, y1) && isInside(x2, y2))
        return true;
    const float dx = x2 - x1, dy = y2 - y1;
    float enter = 0, leave = 1;
    const auto cut = [&](float direction, float distance) { // inside while direction * t <= distance
        if (direction == 0)
            return distance >= 0;
        const float t = distance / direction;
        if (direction < 0)
            enter = std::max(enter, t);
        else
            leave = std::min(leave, t);
        return enter <= leave;
    };
    if (!(cut(-dx, x1 - left) && cut(dx, right - x1) && cut(-dy, y1 - top) && cut(dy, bottom - y1)))
        return false;
    const float fromX = x1, fromY = y1;
    x1 = std::clamp(fromX + enter * dx, left, right);
    y1 = std::clamp(fromY + enter * dy, top, bottom);
    x2 = std::clamp(fromX + leave * dx, left, right);
    y2 = std::clamp(fromY + leave * dy, top, bottom);
    return true;
}

// One step for each pixel of the longer direction, in 65536ths of a pixel of the shorter one. The last step ends where
// the line does, so that no pixel has to be checked.
void Raster::line(float x1, float y1, float x2, float y2, std::uint32_t rgb)
{
    if (!clip(x1, y1, x2, y2))
        return;
    constexpr float One = 65536;
    const int fromX = static_cast<int>(x1), fromY = static_cast<int>(y1);
    const int columns = static_cast<int>(x2) - fromX, rows = static_cast<int>(y2) - fromY;
    const bool isFlat = std::abs(columns) >= std::abs(rows);
    const int steps = std::max(std::abs(columns), std::abs(rows));
    const float change = isFlat ? y2 - y1 : x2 - x1;
    const int slope = static_cast<int>(change * One / static_cast<float>(std::max(steps, 1)));
    const std::ptrdiff_t along = isFlat ? (columns < 0 ? -1 : 1) : (rows < 0 ? -m_stride : m_stride);
    const std::ptrdiff_t across = isFlat ? m_stride : 1;
    std::uint32_t *pixel = m_pixels + (isFlat ? fromX : fromY * m_stride);
    int position = static_cast<int>((isFlat ? y1 : x1) * One);
    for (int step = 0; step <= steps; ++step) {
        pixel[(position >> 16) * across] = rgb;
        pixel += along;
        position += slope;
    }
}

} // namespace render
