#pragma once

#include "host/drawing/geometry/Course.h"
#include "host/drawing/geometry/EntityShapes.h"
#include "host/drawing/snap/Snap.h"

#include <vector>

namespace snap {

// What of an entity touches the aperture, and the places that it has without regard to where the cursor is.
class SnapPlaces : public geometry::ShapeSink
{
public:
    struct Piece
    {
        geometry::Course course;
        drawing::RecordId entity;
    };

    SnapPlaces(const drawing::Drawing &drawing, const Aim &aim, Modes modes)
        : m_drawing(drawing), m_aim(aim), m_modes(modes)
    {
    }

    std::vector<Piece> pieces; // that touch the aperture
    std::vector<Snap> places;

    void path(const geometry::Path &path, const geometry::Origin &origin) override;
    void area(const geometry::Area &area, const geometry::Origin &origin) override;
    void face(const geometry::Face &face, const geometry::Origin &origin) override;
    void text(const geometry::Text &text, const geometry::Origin &origin) override;
    void paragraphs(const geometry::Paragraphs &paragraphs, const geometry::Origin &origin) override;
    void point(const geometry::Vector &place, const geometry::Origin &origin) override;
    void image(const geometry::Image &image, const geometry::Origin &origin) override;
    void ray(const geometry::Ray &ray, const geometry::Origin &origin) override;
    void window(const geometry::Window &window, const geometry::Origin &origin) override;

private:
    template <class AnyText> void letters(const AnyText &text, const geometry::Origin &origin);
    void curve(const geometry::Curve &curve, const geometry::Origin &origin);
    void outline(std::span<const geometry::Vector> corners, const geometry::Origin &origin);
    void placesOf(const geometry::Course &course, const geometry::Origin &origin);
    void insertions(const geometry::Origin &origin);
    void add(Mode mode, const geometry::Vector &place, const geometry::Origin &origin);
    bool isAimedAt(const geometry::Vector &place) const;

    const drawing::Drawing &m_drawing;
    const Aim &m_aim;
    Modes m_modes;
};

} // namespace snap
